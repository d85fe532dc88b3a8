// Between LISP values and result lists, and between an interpreter and the host.
#pragma once

#include <memory>

#include "adsdef.h"
#include "lisp/interpreter.h"
#include "system_variables.h"

namespace workbench::host {

class Document;
class Host;

// Integers become RTSHORT where they fit, else RTLONG; lists of two or three reals become points, other lists
// stand between RTLB and RTLE. Throws lisp::Error for functions and for symbols other than T.
resbuf* ListFromValues(const lisp::Arguments& values);

// The first value of a list; several values in a row make a list.
lisp::Value ValueFromItems(lisp::Interpreter& lisp, const resbuf* items);
lisp::Value ValueFromVariable(const VariableValue& value);
// Integers fit real variables too. False if the value is of no kind that `like` takes.
bool VariableFromValue(const lisp::Value& value, const VariableValue& like, VariableValue& result);

std::unique_ptr<lisp::Surroundings> MakeSurroundings(Host& host, Document& document);

}  // namespace workbench::host
