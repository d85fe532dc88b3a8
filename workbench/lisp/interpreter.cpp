#include "interpreter.h"

#include <cwctype>
#include <utility>

#include "reader.h"

namespace workbench::lisp {
namespace {

// Deeper evaluation than this would come near the end of the program's stack.
constexpr int kDeepestEvaluated = 800;
constexpr int kEvaluationsBetweenChecks = 1000;

class DepthGuard {
  public:
    explicit DepthGuard(int& depth) : m_depth(depth) {
        if (depth >= kDeepestEvaluated) {
            throw Error{L"stack limit reached"};
        }
        ++m_depth;
    }
    ~DepthGuard() { --m_depth; }
    DepthGuard(const DepthGuard&) = delete;
    DepthGuard& operator=(const DepthGuard&) = delete;

  private:
    int& m_depth;
};

// Gives symbols other values for the time of a call.
class Bindings {
  public:
    void Bind(Symbol* symbol, Value value) {
        m_saved.emplace_back(symbol, std::exchange(symbol->value, std::move(value)));
    }
    Bindings() = default;
    ~Bindings() {
        for (auto saved = m_saved.rbegin(); saved != m_saved.rend(); ++saved) {
            saved->first->value = std::move(saved->second);
        }
    }
    Bindings(const Bindings&) = delete;
    Bindings& operator=(const Bindings&) = delete;

  private:
    std::vector<std::pair<Symbol*, Value>> m_saved;
};

std::wstring Upper(std::wstring_view text) {
    std::wstring upper(text);
    for (wchar_t& letter : upper) {
        letter = static_cast<wchar_t>(std::towupper(static_cast<std::wint_t>(letter)));
    }
    return upper;
}

Symbol* SettableSymbol(const Value& value) {
    Symbol* symbol = value.AsSymbol();
    if (symbol == nullptr) {
        throw Error{L"syntax error"};
    }
    if (symbol->isConstant) {
        throw Error{L"assignment to protected symbol: " + symbol->name};
    }
    return symbol;
}

std::shared_ptr<const Lambda> MakeLambda(const std::wstring& name, const Value& parameters,
                                         const Value& body) {
    auto lambda = std::make_shared<Lambda>();
    lambda->name = name;
    lambda->body = body;
    bool inLocals = false;
    for (const Value& parameter : ItemsOf(parameters)) {
        Symbol* symbol = SettableSymbol(parameter);
        if (symbol->name == L"/") {
            inLocals = true;
        } else {
            (inLocals ? lambda->locals : lambda->parameters).push_back(symbol);
        }
    }
    return lambda;
}

}  // namespace

struct SpecialForms {
    static const Value& First(const Value& arguments) {
        if (arguments.AsCons() == nullptr) {
            throw Error{L"too few arguments"};
        }
        return arguments.AsCons()->car;
    }
    static Value Rest(const Value& arguments) {
        First(arguments);
        return arguments.AsCons()->cdr;
    }

    static Value Quote(Interpreter&, const Value& arguments) { return First(arguments); }

    static Value Setq(Interpreter& lisp, const Value& arguments) {
        Value value;
        for (Value rest = arguments; rest.IsTrue();) {
            Symbol* symbol = SettableSymbol(First(rest));
            rest = Rest(rest);
            value = lisp.Eval(First(rest));
            symbol->value = value;
            rest = Rest(rest);
        }
        return value;
    }

    static Value Defun(Interpreter&, const Value& arguments) {
        Symbol* name = SettableSymbol(First(arguments));
        const Value rest = Rest(arguments);
        name->value = MakeLambda(name->name, First(rest), Rest(rest));
        return name;
    }

    static Value MakeFunction(Interpreter&, const Value& arguments) {
        return MakeLambda(L"", First(arguments), Rest(arguments));
    }

    static Value Function(Interpreter& lisp, const Value& arguments) {
        const Value& form = First(arguments);
        const Cons* cons = form.AsCons();
        const bool isLambda = cons != nullptr && cons->car.AsSymbol() == lisp.Intern(L"LAMBDA");
        return isLambda ? lisp.Eval(form) : form;
    }

    static Value If(Interpreter& lisp, const Value& arguments) {
        const Value branches = Rest(arguments);
        if (lisp.Eval(First(arguments)).IsTrue()) {
            return lisp.Eval(First(branches));
        }
        const Value otherwise = Rest(branches);
        return otherwise.IsNil() ? Value() : lisp.Eval(First(otherwise));
    }

    static Value Cond(Interpreter& lisp, const Value& arguments) {
        for (Value rest = arguments; rest.IsTrue(); rest = Rest(rest)) {
            const Value& clause = First(rest);
            const Value test = lisp.Eval(First(clause));
            if (test.IsTrue()) {
                const Value body = Rest(clause);
                return body.IsNil() ? test : lisp.EvalBody(body);
            }
        }
        return {};
    }

    static Value While(Interpreter& lisp, const Value& arguments) {
        const Value body = Rest(arguments);
        Value value;
        while (lisp.Eval(First(arguments)).IsTrue()) {
            value = lisp.EvalBody(body);
        }
        return value;
    }

    static Value Repeat(Interpreter& lisp, const Value& arguments) {
        Value value;
        for (std::int32_t left = IntegerArgument(lisp.Eval(First(arguments))); left > 0; --left) {
            value = lisp.EvalBody(Rest(arguments));
        }
        return value;
    }

    static Value Foreach(Interpreter& lisp, const Value& arguments) {
        Symbol* symbol = SettableSymbol(First(arguments));
        const Value rest = Rest(arguments);
        Bindings bindings;
        bindings.Bind(symbol, {});
        Value value;
        for (const Value& item : ItemsOf(lisp.Eval(First(rest)))) {
            symbol->value = item;
            value = lisp.EvalBody(Rest(rest));
        }
        return value;
    }

    static Value Progn(Interpreter& lisp, const Value& arguments) { return lisp.EvalBody(arguments); }

    static Value And(Interpreter& lisp, const Value& arguments) {
        for (Value rest = arguments; rest.IsTrue(); rest = Rest(rest)) {
            if (lisp.Eval(First(rest)).IsNil()) {
                return {};
            }
        }
        return lisp.True();
    }

    static Value Or(Interpreter& lisp, const Value& arguments) {
        for (Value rest = arguments; rest.IsTrue(); rest = Rest(rest)) {
            if (lisp.Eval(First(rest)).IsTrue()) {
                return lisp.True();
            }
        }
        return {};
    }
};

Interpreter::Interpreter(Surroundings& surroundings) : m_surroundings(surroundings) {
    Symbol* t = Intern(L"T");
    t->value = t;
    t->isConstant = true;
    m_true = t;
    Symbol* pi = Intern(L"PI");
    pi->value = 3.14159265358979323846;
    pi->isConstant = true;
    AddSpecialForms();
    AddListFunctions(*this);
    AddNumberFunctions(*this);
    AddTextFunctions(*this);
    AddHostFunctions(*this);
}

Interpreter::~Interpreter() = default;

void Interpreter::AddSpecialForms() {
    const std::pair<const wchar_t*, SpecialForm> forms[] = {
        {L"QUOTE", SpecialForms::Quote},
        {L"SETQ", SpecialForms::Setq},
        {L"DEFUN", SpecialForms::Defun},
        {L"LAMBDA", SpecialForms::MakeFunction},
        {L"FUNCTION", SpecialForms::Function},
        {L"IF", SpecialForms::If},
        {L"COND", SpecialForms::Cond},
        {L"WHILE", SpecialForms::While},
        {L"REPEAT", SpecialForms::Repeat},
        {L"FOREACH", SpecialForms::Foreach},
        {L"PROGN", SpecialForms::Progn},
        {L"AND", SpecialForms::And},
        {L"OR", SpecialForms::Or},
    };
    for (const auto& [name, form] : forms) {
        m_specialForms.emplace(Intern(name), form);
    }
}

Symbol* Interpreter::Intern(std::wstring_view name) {
    std::wstring key = Upper(name);
    auto& place = m_symbols[key];
    if (place == nullptr) {
        place = std::make_unique<Symbol>();
        place->name = std::move(key);
    }
    return place.get();
}

Symbol* Interpreter::Find(std::wstring_view name) const {
    const auto found = m_symbols.find(Upper(name));
    return found == m_symbols.end() ? nullptr : found->second.get();
}

void Interpreter::Define(const std::wstring& name, int fewest, int most,
                         std::function<Value(Interpreter&, const Arguments&)> function) {
    Symbol* symbol = Intern(name);
    const Builtin& builtin =
        m_builtinStore.emplace_back(Builtin{symbol->name, fewest, most, std::move(function)});
    m_builtins[symbol->name] = &builtin;
    symbol->value = &builtin;
}

void Interpreter::Undefine(const std::wstring& name) {
    Symbol* symbol = Find(name);
    const auto builtin = symbol == nullptr ? m_builtins.end() : m_builtins.find(symbol->name);
    if (builtin == m_builtins.end()) {
        return;
    }
    if (symbol->value.AsBuiltin() == builtin->second) {
        symbol->value = Value();
    }
    m_builtins.erase(builtin);
}

bool Interpreter::Run(std::wstring_view text, Value& value) {
    value = Value();
    const int depth = m_depth;
    try {
        value = RunText(text);
        return true;
    } catch (const Error& error) {
        m_depth = depth;
        return Fail(error.text);
    }
}

bool Interpreter::Fail(const std::wstring& text) {
    const Symbol* handler = Find(L"*ERROR*");
    if (handler != nullptr && handler->value.AsLambda() != nullptr) {
        try {
            Apply(handler->value, {Value(text)});
            return false;
        } catch (const Error& error) {
            m_surroundings.Print(L"; error: " + error.text + L"\n");
        }
    }
    m_surroundings.Print(L"; error: " + text + L"\n");
    return false;
}

Value Interpreter::RunText(std::wstring_view text) {
    Reader reader(*this, text);
    Value expression;
    Value value;
    while (reader.Read(expression)) {
        value = Eval(expression);
    }
    return value;
}

Value Interpreter::Eval(const Value& expression) {
    if (const Symbol* symbol = expression.AsSymbol()) {
        return symbol->value;
    }
    if (const Cons* form = expression.AsCons()) {
        const DepthGuard guard(m_depth);
        if (--m_untilCancelCheck <= 0) {
            m_untilCancelCheck = kEvaluationsBetweenChecks;
            if (m_surroundings.IsCancelled()) {
                throw Error{L"Function cancelled"};
            }
        }
        const Value held = expression;  // the form may be redefined while it runs
        return EvalCons(*form);
    }
    return expression;
}

Value Interpreter::EvalCons(const Cons& form) {
    Value function;
    if (const Symbol* symbol = form.car.AsSymbol()) {
        const auto special = m_specialForms.find(symbol);
        if (special != m_specialForms.end()) {
            return special->second(*this, form.cdr);
        }
        function = symbol->value;
        if (function.IsNil()) {
            throw Error{L"no function definition: " + symbol->name};
        }
    } else {
        function = Eval(form.car);
    }
    return Apply(function, EvalArguments(form.cdr));
}

Value Interpreter::EvalBody(const Value& expressions) {
    Value value;
    for (Value rest = expressions; const Cons* cons = rest.AsCons();) {
        value = Eval(cons->car);
        rest = Value(cons->cdr);
    }
    return value;
}

Arguments Interpreter::EvalArguments(const Value& expressions) {
    Arguments arguments;
    for (const Value& expression : ItemsOf(expressions)) {
        arguments.push_back(Eval(expression));
    }
    return arguments;
}

Value Interpreter::Apply(const Value& function, const Arguments& arguments) {
    if (const Lambda* lambda = function.AsLambda()) {
        const DepthGuard guard(m_depth);
        return CallLambda(*lambda, arguments);
    }
    if (const Builtin* builtin = function.AsBuiltin()) {
        const int count = static_cast<int>(arguments.size());
        if (count < builtin->fewest) {
            throw Error{L"too few arguments"};
        }
        if (builtin->most >= 0 && count > builtin->most) {
            throw Error{L"too many arguments"};
        }
        return builtin->function(*this, arguments);
    }
    if (const Symbol* symbol = function.AsSymbol();
        symbol != nullptr && symbol->value.AsSymbol() == nullptr) {
        if (symbol->value.IsNil()) {
            throw Error{L"no function definition: " + symbol->name};
        }
        return Apply(symbol->value, arguments);
    }
    const Cons* cons = function.AsCons();
    if (cons != nullptr && cons->car.AsSymbol() == Intern(L"LAMBDA")) {
        return Apply(Eval(function), arguments);
    }
    throw Error{L"bad function: " + ToText(function, true)};
}

Value Interpreter::CallLambda(const Lambda& lambda, const Arguments& arguments) {
    if (arguments.size() != lambda.parameters.size()) {
        throw Error{arguments.size() < lambda.parameters.size() ? L"too few arguments"
                                                                : L"too many arguments"};
    }
    const Value body = lambda.body;
    Bindings bindings;
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        bindings.Bind(lambda.parameters[i], arguments[i]);
    }
    for (Symbol* local : lambda.locals) {
        bindings.Bind(local, {});
    }
    return EvalBody(body);
}

const std::wstring& TextArgument(const Value& value) {
    if (value.AsText() == nullptr) {
        throw Error{L"bad argument type: stringp " + ToText(value, true)};
    }
    return *value.AsText();
}

std::int32_t IntegerArgument(const Value& value) {
    if (value.AsInteger() == nullptr) {
        throw Error{L"bad argument type: fixnump: " + ToText(value, true)};
    }
    return *value.AsInteger();
}

double NumberArgument(const Value& value) {
    if (!value.IsNumber()) {
        throw Error{L"bad argument type: numberp: " + ToText(value, true)};
    }
    return value.ToReal();
}

}  // namespace workbench::lisp
