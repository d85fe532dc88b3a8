#include <cmath>
#include <limits>

#include "interpreter.h"

namespace workbench::lisp {
namespace {

// Integers stay integers while they fit; what does not becomes a real.
Value FromWide(std::int64_t number) {
    const bool fits = number >= std::numeric_limits<std::int32_t>::min() &&
                      number <= std::numeric_limits<std::int32_t>::max();
    return fits ? Value(static_cast<std::int32_t>(number)) : Value(static_cast<double>(number));
}

template <class Whole, class Real>
Value Combine(const Value& left, const Value& right, Whole whole, Real real) {
    if (left.AsInteger() != nullptr && right.AsInteger() != nullptr) {
        return whole(std::int64_t{*left.AsInteger()}, std::int64_t{*right.AsInteger()});
    }
    return Value(real(NumberArgument(left), NumberArgument(right)));
}

Value Plus(const Value& left, const Value& right) {
    return Combine(
        left, right, [](std::int64_t a, std::int64_t b) { return FromWide(a + b); },
        [](double a, double b) { return a + b; });
}

Value Minus(const Value& left, const Value& right) {
    return Combine(
        left, right, [](std::int64_t a, std::int64_t b) { return FromWide(a - b); },
        [](double a, double b) { return a - b; });
}

Value Times(const Value& left, const Value& right) {
    return Combine(
        left, right, [](std::int64_t a, std::int64_t b) { return FromWide(a * b); },
        [](double a, double b) { return a * b; });
}

Value Divided(const Value& left, const Value& right) {
    if (NumberArgument(right) == 0) {
        throw Error{L"divide by zero"};
    }
    return Combine(
        left, right, [](std::int64_t a, std::int64_t b) { return FromWide(a / b); },
        [](double a, double b) { return a / b; });
}

Value Remainder(const Value& left, const Value& right) {
    if (NumberArgument(right) == 0) {
        throw Error{L"divide by zero"};
    }
    return Combine(
        left, right, [](std::int64_t a, std::int64_t b) { return FromWide(a % b); },
        [](double a, double b) { return std::fmod(a, b); });
}

using Operation = Value (*)(const Value&, const Value&);

// From left to right over all arguments; `start` stands before a single one.
void AddFold(Interpreter& lisp, const wchar_t* name, Operation operation, Value start) {
    lisp.Define(name, 0, -1, [operation, start](Interpreter&, const Arguments& a) {
        if (a.empty()) {
            return Value(0);
        }
        Value result = a.size() == 1 ? operation(start, a[0]) : a[0];
        for (std::size_t i = 1; i < a.size(); ++i) {
            result = operation(result, a[i]);
        }
        return result;
    });
}

int Compare(const Value& left, const Value& right) {
    if (left.AsText() != nullptr && right.AsText() != nullptr) {
        return left.AsText()->compare(*right.AsText());
    }
    const double a = NumberArgument(left);
    const double b = NumberArgument(right);
    return a < b ? -1 : a > b ? 1 : 0;
}

// True if the relation holds between each argument and the next.
void AddRelation(Interpreter& lisp, const wchar_t* name, bool (*holds)(int)) {
    lisp.Define(name, 1, -1, [holds](Interpreter& interpreter, const Arguments& a) {
        for (std::size_t i = 1; i < a.size(); ++i) {
            if (!holds(Compare(a[i - 1], a[i]))) {
                return Value();
            }
        }
        return interpreter.True();
    });
}

// = and /= take values of every kind.
Value AreAllSame(Interpreter& lisp, const Arguments& a) {
    for (std::size_t i = 1; i < a.size(); ++i) {
        const bool numbers = a[i - 1].IsNumber() && a[i].IsNumber();
        if (numbers ? a[i - 1].ToReal() != a[i].ToReal() : !IsSame(a[i - 1], a[i])) {
            return {};
        }
    }
    return lisp.True();
}

void AddReal(Interpreter& lisp, const wchar_t* name, double (*function)(double)) {
    lisp.Define(name, 1, 1, [function](Interpreter&, const Arguments& a) {
        return Value(function(NumberArgument(a[0])));
    });
}

Value Fix(Interpreter&, const Arguments& a) {
    const double whole = std::trunc(NumberArgument(a[0]));
    const bool fits = std::fabs(whole) <= std::numeric_limits<std::int32_t>::max();
    return fits ? Value(static_cast<std::int32_t>(whole)) : Value(whole);
}

Value Expt(Interpreter&, const Arguments& a) {
    const double result = std::pow(NumberArgument(a[0]), NumberArgument(a[1]));
    const bool whole = a[0].AsInteger() != nullptr && a[1].AsInteger() != nullptr && *a[1].AsInteger() >= 0 &&
                       std::fabs(result) <= std::numeric_limits<std::int32_t>::max();
    return whole ? Value(static_cast<std::int32_t>(result)) : Value(result);
}

Value Sqrt(Interpreter&, const Arguments& a) {
    const double number = NumberArgument(a[0]);
    if (number < 0) {
        throw Error{L"function undefined for argument: " + ToText(a[0], true)};
    }
    return std::sqrt(number);
}

Value Extreme(const Arguments& a, bool greatest) {
    const Value* best = &a[0];
    for (const Value& candidate : a) {
        const double difference = NumberArgument(candidate) - NumberArgument(*best);
        if (greatest ? difference > 0 : difference < 0) {
            best = &candidate;
        }
    }
    return *best;
}

Value Shift(Interpreter&, const Arguments& a) {
    constexpr std::int32_t kBits = 32;
    const auto number = static_cast<std::uint32_t>(IntegerArgument(a[0]));
    const std::int32_t by = IntegerArgument(a[1]);
    if (by <= -kBits || by >= kBits) {
        return 0;
    }
    return static_cast<std::int32_t>(by >= 0 ? number << by : number >> -by);
}

void AddComparisons(Interpreter& interpreter) {
    AddRelation(interpreter, L"<", [](int order) { return order < 0; });
    AddRelation(interpreter, L"<=", [](int order) { return order <= 0; });
    AddRelation(interpreter, L">", [](int order) { return order > 0; });
    AddRelation(interpreter, L">=", [](int order) { return order >= 0; });
    interpreter.Define(L"=", 1, -1, AreAllSame);
    interpreter.Define(L"/=", 1, -1, [](Interpreter& lisp, const Arguments& a) {
        return lisp.FromBool(AreAllSame(lisp, a).IsNil());
    });
    interpreter.Define(L"NUMBERP", 1, 1,
                       [](Interpreter& lisp, const Arguments& a) { return lisp.FromBool(a[0].IsNumber()); });
    interpreter.Define(L"ZEROP", 1, 1, [](Interpreter& lisp, const Arguments& a) {
        return lisp.FromBool(NumberArgument(a[0]) == 0);
    });
    interpreter.Define(L"MINUSP", 1, 1, [](Interpreter& lisp, const Arguments& a) {
        return lisp.FromBool(NumberArgument(a[0]) < 0);
    });
}

void AddBitFunctions(Interpreter& interpreter) {
    interpreter.Define(L"LOGAND", 1, -1, [](Interpreter&, const Arguments& a) {
        std::int32_t bits = -1;
        for (const Value& value : a) {
            bits &= IntegerArgument(value);
        }
        return Value(bits);
    });
    interpreter.Define(L"LOGIOR", 1, -1, [](Interpreter&, const Arguments& a) {
        std::int32_t bits = 0;
        for (const Value& value : a) {
            bits |= IntegerArgument(value);
        }
        return Value(bits);
    });
    interpreter.Define(L"LSH", 2, 2, Shift);
}

}  // namespace

void AddNumberFunctions(Interpreter& interpreter) {
    AddFold(interpreter, L"+", Plus, 0);
    AddFold(interpreter, L"-", Minus, 0);
    AddFold(interpreter, L"*", Times, 1);
    AddFold(
        interpreter, L"/", [](const Value& a, const Value& b) { return Divided(a, b); }, 1);
    AddFold(interpreter, L"REM", Remainder, 0);
    interpreter.Define(L"1+", 1, 1, [](Interpreter&, const Arguments& a) { return Plus(a[0], 1); });
    interpreter.Define(L"1-", 1, 1, [](Interpreter&, const Arguments& a) { return Minus(a[0], 1); });
    interpreter.Define(L"ABS", 1, 1, [](Interpreter&, const Arguments& a) {
        return NumberArgument(a[0]) < 0 ? Minus(0, a[0]) : a[0];
    });
    interpreter.Define(L"MIN", 1, -1, [](Interpreter&, const Arguments& a) { return Extreme(a, false); });
    interpreter.Define(L"MAX", 1, -1, [](Interpreter&, const Arguments& a) { return Extreme(a, true); });
    interpreter.Define(L"FIX", 1, 1, Fix);
    interpreter.Define(L"FLOAT", 1, 1,
                       [](Interpreter&, const Arguments& a) { return Value(NumberArgument(a[0])); });
    interpreter.Define(L"EXPT", 2, 2, Expt);
    interpreter.Define(L"SQRT", 1, 1, Sqrt);
    AddReal(interpreter, L"SIN", std::sin);
    AddReal(interpreter, L"COS", std::cos);
    AddReal(interpreter, L"EXP", std::exp);
    interpreter.Define(L"ATAN", 1, 2, [](Interpreter&, const Arguments& a) {
        return Value(std::atan2(NumberArgument(a[0]), a.size() > 1 ? NumberArgument(a[1]) : 1.0));
    });
    AddComparisons(interpreter);
    AddBitFunctions(interpreter);
}

}  // namespace workbench::lisp
