// Values of the LISP language. Lists never change once made, so they cannot hold themselves.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <stdexcept>
#include <string>
#include <variant>
#include <vector>

namespace workbench::lisp {

class Interpreter;
class Value;
struct Symbol;
struct Cons;
struct Lambda;
struct Builtin;

struct Nil {
    friend bool operator==(const Nil&, const Nil&) = default;
};
// What a function gives that has nothing to say; it prints as nothing.
struct Void {
    friend bool operator==(const Void&, const Void&) = default;
};
// The name of an entity, as the host's result lists carry it.
struct EntityName {
    long long words[2] = {0, 0};
    friend bool operator==(const EntityName&, const EntityName&) = default;
};

// Ends the evaluation with "; error: " and the text.
struct Error {
    std::wstring text;
};

using Text = std::shared_ptr<const std::wstring>;
using ConsPointer = std::shared_ptr<Cons>;

class Value {
  public:
    Value() = default;
    Value(std::int32_t number) : m_data(number) {}
    Value(double number) : m_data(number) {}
    Value(std::wstring text) : m_data(std::make_shared<const std::wstring>(std::move(text))) {}
    Value(const wchar_t* text) : Value(std::wstring(text)) {}
    Value(Symbol* symbol) : m_data(symbol) {}
    Value(ConsPointer cons) : m_data(std::move(cons)) {}
    Value(std::shared_ptr<const Lambda> lambda) : m_data(std::move(lambda)) {}
    Value(const Builtin* builtin) : m_data(builtin) {}
    Value(Void) : m_data(Void()) {}
    Value(EntityName name) : m_data(name) {}

    bool IsNil() const { return std::holds_alternative<Nil>(m_data); }
    bool IsTrue() const { return !IsNil(); }
    bool IsList() const { return IsNil() || AsCons() != nullptr; }
    bool IsNumber() const { return AsInteger() != nullptr || AsReal() != nullptr; }
    const std::int32_t* AsInteger() const { return std::get_if<std::int32_t>(&m_data); }
    const double* AsReal() const { return std::get_if<double>(&m_data); }
    const std::wstring* AsText() const {
        const auto* text = std::get_if<Text>(&m_data);
        return text == nullptr ? nullptr : text->get();
    }
    Symbol* AsSymbol() const {
        const auto* symbol = std::get_if<Symbol*>(&m_data);
        return symbol == nullptr ? nullptr : *symbol;
    }
    const Cons* AsCons() const {
        const auto* cons = std::get_if<ConsPointer>(&m_data);
        return cons == nullptr ? nullptr : cons->get();
    }
    const Lambda* AsLambda() const {
        const auto* lambda = std::get_if<std::shared_ptr<const Lambda>>(&m_data);
        return lambda == nullptr ? nullptr : lambda->get();
    }
    const Builtin* AsBuiltin() const {
        const auto* builtin = std::get_if<const Builtin*>(&m_data);
        return builtin == nullptr ? nullptr : *builtin;
    }
    const EntityName* AsEntityName() const { return std::get_if<EntityName>(&m_data); }
    bool IsVoid() const { return std::holds_alternative<Void>(m_data); }

    // The number as a real; only for numbers.
    double ToReal() const { return AsInteger() != nullptr ? *AsInteger() : *AsReal(); }

    // The same object or an equal atom.
    friend bool IsSame(const Value& left, const Value& right);

  private:
    friend struct Cons;
    std::variant<Nil, std::int32_t, double, Text, Symbol*, ConsPointer, std::shared_ptr<const Lambda>,
                 const Builtin*, Void, EntityName>
        m_data;
};

struct Symbol {
    std::wstring name;  // upper-case
    Value value;
    bool isConstant = false;  // T, PI
};

// A pair; the destructor takes a list of any length and depth apart without recursion.
struct Cons {
    Cons(Value first, Value rest) : car(std::move(first)), cdr(std::move(rest)) {}
    ~Cons();
    Cons(const Cons&) = delete;
    Cons& operator=(const Cons&) = delete;
    Value car, cdr;
};

struct Lambda {
    std::wstring name;  // empty without one
    std::vector<Symbol*> parameters, locals;
    Value body;  // list of expressions
};

using Arguments = std::vector<Value>;

// A function of the interpreter or of the program around it.
struct Builtin {
    std::wstring name;
    int fewest = 0, most = -1;  // arguments; -1 without limit
    std::function<Value(Interpreter&, const Arguments&)> function;
};

inline Value MakeCons(Value car, Value cdr) {
    return std::make_shared<Cons>(std::move(car), std::move(cdr));
}
Value MakeList(const std::vector<Value>& items, Value tail = {});

// The items of a proper list; throws Error for anything else.
std::vector<Value> ItemsOf(const Value& list);

// Equality by content; numbers within `fuzz`.
bool IsEqual(const Value& left, const Value& right, double fuzz = 0);

// Texts in quotes with escapes if `quoted`, as prin1 prints; plain as princ prints.
std::wstring ToText(const Value& value, bool quoted);
std::wstring RealText(double number);

}  // namespace workbench::lisp
