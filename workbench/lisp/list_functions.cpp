#include <algorithm>

#include "interpreter.h"

namespace workbench::lisp {
namespace {

constexpr std::size_t kMostParts = 4;  // of car and cdr in one name

const Value& CarOf(const Value& list) {
    static const Value nil;
    if (list.IsNil()) {
        return nil;
    }
    if (list.AsCons() == nullptr) {
        throw Error{L"bad argument type: consp " + ToText(list, true)};
    }
    return list.AsCons()->car;
}

Value CdrOf(const Value& list) {
    CarOf(list);
    return list.IsNil() ? Value() : list.AsCons()->cdr;
}

// "ADD" for CADDR: taken from the right.
Value TakePath(const std::wstring& path, Value value) {
    for (auto step = path.rbegin(); step != path.rend(); ++step) {
        value = *step == L'A' ? Value(CarOf(value)) : CdrOf(value);
    }
    return value;
}

void AddPaths(Interpreter& lisp, const std::wstring& path) {
    if (!path.empty()) {
        lisp.Define(L"C" + path + L"R", 1, 1,
                    [path](Interpreter&, const Arguments& a) { return TakePath(path, a[0]); });
    }
    if (path.size() < kMostParts) {
        AddPaths(lisp, path + L"A");
        AddPaths(lisp, path + L"D");
    }
}

Value Append(Interpreter&, const Arguments& arguments) {
    Value result;
    for (auto list = arguments.rbegin(); list != arguments.rend(); ++list) {
        result = list == arguments.rbegin() ? *list : MakeList(ItemsOf(*list), result);
    }
    return result;
}

Value Reverse(Interpreter&, const Arguments& arguments) {
    std::vector<Value> items = ItemsOf(arguments[0]);
    std::reverse(items.begin(), items.end());
    return MakeList(items);
}

Value Nth(Interpreter&, const Arguments& arguments) {
    std::int32_t left = IntegerArgument(arguments[0]);
    if (left < 0) {
        throw Error{L"bad argument value: " + std::to_wstring(left)};
    }
    Value rest = arguments[1];
    for (; left > 0 && rest.IsTrue(); --left) {
        rest = CdrOf(rest);
    }
    return CarOf(rest);
}

Value Last(Interpreter&, const Arguments& arguments) {
    const std::vector<Value> items = ItemsOf(arguments[0]);
    return items.empty() ? Value() : items.back();
}

Value Member(Interpreter&, const Arguments& arguments) {
    for (Value rest = arguments[1]; rest.IsTrue(); rest = CdrOf(rest)) {
        if (IsEqual(CarOf(rest), arguments[0])) {
            return rest;
        }
    }
    return {};
}

Value Assoc(Interpreter&, const Arguments& arguments) {
    for (const Value& item : ItemsOf(arguments[1])) {
        if (item.AsCons() != nullptr && IsEqual(item.AsCons()->car, arguments[0])) {
            return item;
        }
    }
    return {};
}

Value Subst(Interpreter&, const Arguments& arguments) {
    std::vector<Value> items = ItemsOf(arguments[2]);
    for (Value& item : items) {
        if (IsEqual(item, arguments[1])) {
            item = arguments[0];
        }
    }
    return MakeList(items);
}

Value Mapcar(Interpreter& lisp, const Arguments& arguments) {
    std::vector<std::vector<Value>> lists;
    std::size_t shortest = static_cast<std::size_t>(-1);
    for (std::size_t i = 1; i < arguments.size(); ++i) {
        lists.push_back(ItemsOf(arguments[i]));
        shortest = std::min(shortest, lists.back().size());
    }
    std::vector<Value> results;
    for (std::size_t i = 0; i < shortest; ++i) {
        Arguments row;
        for (const auto& list : lists) {
            row.push_back(list[i]);
        }
        results.push_back(lisp.Apply(arguments[0], row));
    }
    return MakeList(results);
}

Value TypeOf(Interpreter& lisp, const Arguments& arguments) {
    const Value& value = arguments[0];
    if (value.IsNil()) {
        return {};
    }
    const wchar_t* name = value.AsInteger() != nullptr   ? L"INT"
                          : value.AsReal() != nullptr    ? L"REAL"
                          : value.AsText() != nullptr    ? L"STR"
                          : value.AsSymbol() != nullptr  ? L"SYM"
                          : value.AsCons() != nullptr    ? L"LIST"
                          : value.AsLambda() != nullptr  ? L"USUBR"
                          : value.AsBuiltin() != nullptr ? L"SUBR"
                                                         : L"ENAME";
    return lisp.Intern(name);
}

Symbol* SymbolArgument(const Value& value) {
    if (value.AsSymbol() == nullptr || value.AsSymbol()->isConstant) {
        throw Error{L"bad argument type: symbolp " + ToText(value, true)};
    }
    return value.AsSymbol();
}

}  // namespace

void AddListFunctions(Interpreter& interpreter) {
    AddPaths(interpreter, L"");
    interpreter.Define(L"CONS", 2, 2, [](Interpreter&, const Arguments& a) { return MakeCons(a[0], a[1]); });
    interpreter.Define(L"LIST", 0, -1, [](Interpreter&, const Arguments& a) { return MakeList(a); });
    interpreter.Define(L"APPEND", 0, -1, Append);
    interpreter.Define(L"REVERSE", 1, 1, Reverse);
    interpreter.Define(L"LENGTH", 1, 1, [](Interpreter&, const Arguments& a) {
        return Value(static_cast<std::int32_t>(ItemsOf(a[0]).size()));
    });
    interpreter.Define(L"NTH", 2, 2, Nth);
    interpreter.Define(L"LAST", 1, 1, Last);
    interpreter.Define(L"MEMBER", 2, 2, Member);
    interpreter.Define(L"ASSOC", 2, 2, Assoc);
    interpreter.Define(L"SUBST", 3, 3, Subst);
    interpreter.Define(L"MAPCAR", 2, -1, Mapcar);
    interpreter.Define(L"APPLY", 2, 2,
                       [](Interpreter& lisp, const Arguments& a) { return lisp.Apply(a[0], ItemsOf(a[1])); });
    interpreter.Define(L"EVAL", 1, 1, [](Interpreter& lisp, const Arguments& a) { return lisp.Eval(a[0]); });
    interpreter.Define(L"SET", 2, 2,
                       [](Interpreter&, const Arguments& a) { return SymbolArgument(a[0])->value = a[1]; });
    interpreter.Define(L"BOUNDP", 1, 1, [](Interpreter& lisp, const Arguments& a) {
        return lisp.FromBool(a[0].AsSymbol() != nullptr && a[0].AsSymbol()->value.IsTrue());
    });
    interpreter.Define(L"ATOM", 1, 1, [](Interpreter& lisp, const Arguments& a) {
        return lisp.FromBool(a[0].AsCons() == nullptr);
    });
    interpreter.Define(L"LISTP", 1, 1,
                       [](Interpreter& lisp, const Arguments& a) { return lisp.FromBool(a[0].IsList()); });
    const auto isNil = [](Interpreter& lisp, const Arguments& a) { return lisp.FromBool(a[0].IsNil()); };
    interpreter.Define(L"NOT", 1, 1, isNil);
    interpreter.Define(L"NULL", 1, 1, isNil);
    interpreter.Define(
        L"EQ", 2, 2, [](Interpreter& lisp, const Arguments& a) { return lisp.FromBool(IsSame(a[0], a[1])); });
    interpreter.Define(L"EQUAL", 2, 3, [](Interpreter& lisp, const Arguments& a) {
        return lisp.FromBool(IsEqual(a[0], a[1], a.size() > 2 ? NumberArgument(a[2]) : 0));
    });
    interpreter.Define(L"TYPE", 1, 1, TypeOf);
}

}  // namespace workbench::lisp
