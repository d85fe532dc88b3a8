// System variables: of the session, of the documents, and those that are computed.
#pragma once

#include <functional>
#include <map>
#include <string>
#include <variant>
#include <vector>

#include "gepnt3d.h"

namespace workbench::host {

// What a variable holds follows from its first value.
using VariableValue = std::variant<short, double, std::wstring, AcGePoint3d>;
using VariableValues = std::map<std::wstring, VariableValue>;

struct Variable {
    std::wstring name;  // upper-case
    VariableValue initial;
    enum class Scope { kSession, kDocument } scope = Scope::kSession;
    bool readOnly = false;
    short least = -32767, greatest = 32767;  // of numbers
    // A computed variable; `get` is called only while there is a document if its scope says so.
    std::function<VariableValue()> get;
    std::function<void(const VariableValue&)> set;
    // More than a range can say; without one every value in range will do.
    std::function<bool(const VariableValue&)> accepts;
};

enum class SetResult { kSet, kUnknown, kNoDocument, kReadOnly, kWrongType, kOutOfRange };

class SystemVariables {
  public:
    // `documentValues` gives the values of the current document, null without one.
    explicit SystemVariables(std::function<VariableValues*()> documentValues);

    // A variable of the same name gives way.
    void Define(Variable variable);

    // Null for an unknown name, whatever its case.
    const Variable* Find(const std::wstring& name) const;
    // False for an unknown name, or one of documents while there is none.
    bool Get(const std::wstring& name, VariableValue& value) const;
    // What Set would say, without setting.
    SetResult Check(const std::wstring& name, const VariableValue& value) const;
    SetResult Set(const std::wstring& name, const VariableValue& value);

  private:
    std::function<VariableValues*()> m_documentValues;
    std::map<std::wstring, Variable> m_variables;
    VariableValues m_sessionValues;
};

// The variables that stand for themselves; the host adds those that it computes.
std::vector<Variable> PlainVariables();

}  // namespace workbench::host
