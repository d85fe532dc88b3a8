// A small LISP in the manner of CAD hosts: dynamic scope, one name space for functions and variables, symbols
// without regard to case. Enough for start-up files and tests.
#pragma once

#include <deque>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>

#include "surroundings.h"
#include "value.h"

namespace workbench::lisp {

class Interpreter {
  public:
    // `surroundings` outlives the interpreter.
    explicit Interpreter(Surroundings& surroundings);
    ~Interpreter();
    Interpreter(const Interpreter&) = delete;
    Interpreter& operator=(const Interpreter&) = delete;

    // Evaluates every expression of the text. On an error, calls the function *ERROR* if the program defined
    // one, else prints "; error: ..."; the rest of the text is not evaluated and false is returned. `value`
    // is that of the last expression, nil after an error.
    bool Run(std::wstring_view text, Value& value);

    // The same for callers inside an evaluation: throws Error.
    Value RunText(std::wstring_view text);
    Value Eval(const Value& expression);
    Value Apply(const Value& function, const Arguments& arguments);

    Symbol* Intern(std::wstring_view name);
    // Null if no text has named it yet.
    Symbol* Find(std::wstring_view name) const;
    Value True() const { return m_true; }
    Value FromBool(bool condition) const { return condition ? m_true : Value(); }

    // Defines a function of the program around; a function of the same name gives way.
    void Define(const std::wstring& name, int fewest, int most,
                std::function<Value(Interpreter&, const Arguments&)> function);
    // Takes such a function away, unless the name has meant something else since.
    void Undefine(const std::wstring& name);

    Surroundings& Around() { return m_surroundings; }

  private:
    friend struct SpecialForms;
    using SpecialForm = Value (*)(Interpreter&, const Value& arguments);

    Value EvalCons(const Cons& form);
    Value EvalBody(const Value& expressions);
    Value CallLambda(const Lambda& lambda, const Arguments& arguments);
    Arguments EvalArguments(const Value& expressions);
    bool Fail(const std::wstring& text);
    void AddSpecialForms();

    Surroundings& m_surroundings;
    std::unordered_map<std::wstring, std::unique_ptr<Symbol>> m_symbols;
    std::unordered_map<const Symbol*, SpecialForm> m_specialForms;
    std::unordered_map<std::wstring, const Builtin*> m_builtins;
    std::deque<Builtin> m_builtinStore;
    Value m_true;
    int m_depth = 0;
    int m_untilCancelCheck = 0;
};

// Each adds its functions.
void AddListFunctions(Interpreter& interpreter);
void AddNumberFunctions(Interpreter& interpreter);
void AddTextFunctions(Interpreter& interpreter);
void AddHostFunctions(Interpreter& interpreter);

// Arguments of a certain kind; throw Error "bad argument type: stringp 5".
const std::wstring& TextArgument(const Value& value);
std::int32_t IntegerArgument(const Value& value);
double NumberArgument(const Value& value);

}  // namespace workbench::lisp
