#include "value.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <iterator>
#include <utility>

#include "text_escapes.h"

namespace workbench::lisp {
namespace {

// Nested deeper than this, lists print as dots and count as different.
constexpr int kDeepestShown = 200;

std::wstring QuotedText(const std::wstring& text) {
    std::wstring quoted = L"\"";
    for (const wchar_t character : text) {
        const auto* escape =
            std::find_if(std::begin(kTextEscapes), std::end(kTextEscapes),
                         [character](const TextEscape& known) { return known.character == character; });
        if (escape != std::end(kTextEscapes)) {
            quoted.push_back(L'\\');
        }
        quoted.push_back(escape != std::end(kTextEscapes) ? escape->letter : character);
    }
    quoted.push_back(L'"');
    return quoted;
}

std::wstring TextAt(const Value& value, bool quoted, int depth);

std::wstring ListText(const Cons& first, bool quoted, int depth) {
    if (depth > kDeepestShown) {
        return L"...";
    }
    std::wstring text = L"(" + TextAt(first.car, quoted, depth + 1);
    Value rest = first.cdr;
    while (const Cons* cons = rest.AsCons()) {
        text += L" " + TextAt(cons->car, quoted, depth + 1);
        rest = Value(cons->cdr);
    }
    if (rest.IsTrue()) {
        text += L" . " + TextAt(rest, quoted, depth + 1);
    }
    return text + L")";
}

std::wstring TextAt(const Value& value, bool quoted, int depth) {
    if (value.IsNil()) {
        return L"nil";
    }
    if (const auto* integer = value.AsInteger()) {
        return std::to_wstring(*integer);
    }
    if (const auto* real = value.AsReal()) {
        return RealText(*real);
    }
    if (const auto* text = value.AsText()) {
        return quoted ? QuotedText(*text) : *text;
    }
    if (const auto* symbol = value.AsSymbol()) {
        return symbol->name;
    }
    if (const auto* cons = value.AsCons()) {
        return ListText(*cons, quoted, depth);
    }
    if (const auto* lambda = value.AsLambda()) {
        return L"#<USUBR " + (lambda->name.empty() ? L"-lambda-" : lambda->name) + L">";
    }
    if (const auto* builtin = value.AsBuiltin()) {
        return L"#<SUBR " + builtin->name + L">";
    }
    return value.AsEntityName() != nullptr ? L"<Entity name>" : L"";
}

bool IsEqualAt(const Value& left, const Value& right, double fuzz, int depth) {
    Value a = left;
    Value b = right;
    while (a.AsCons() != nullptr && b.AsCons() != nullptr) {
        if (a.AsCons() == b.AsCons()) {
            return true;
        }
        if (depth > kDeepestShown || !IsEqualAt(a.AsCons()->car, b.AsCons()->car, fuzz, depth + 1)) {
            return false;
        }
        a = Value(a.AsCons()->cdr);
        b = Value(b.AsCons()->cdr);
    }
    if (a.IsNumber() && b.IsNumber()) {
        return std::fabs(a.ToReal() - b.ToReal()) <= fuzz || a.ToReal() == b.ToReal();
    }
    return IsSame(a, b);
}

}  // namespace

Cons::~Cons() {
    std::vector<ConsPointer> ending;
    const auto take = [&ending](Value& value) {
        if (auto* cons = std::get_if<ConsPointer>(&value.m_data); cons != nullptr && cons->use_count() == 1) {
            ending.push_back(std::move(*cons));
        }
    };
    take(car);
    take(cdr);
    while (!ending.empty()) {
        const ConsPointer cons = std::move(ending.back());
        ending.pop_back();
        take(cons->car);
        take(cons->cdr);
    }
}

bool IsSame(const Value& left, const Value& right) {
    if (left.AsText() != nullptr && right.AsText() != nullptr) {
        return *left.AsText() == *right.AsText();
    }
    return left.m_data == right.m_data;
}

Value MakeList(const std::vector<Value>& items, Value tail) {
    for (auto item = items.rbegin(); item != items.rend(); ++item) {
        tail = MakeCons(*item, std::move(tail));
    }
    return tail;
}

std::vector<Value> ItemsOf(const Value& list) {
    std::vector<Value> items;
    Value rest = list;
    while (const Cons* cons = rest.AsCons()) {
        items.push_back(cons->car);
        rest = Value(cons->cdr);
    }
    if (rest.IsTrue()) {
        throw Error{L"bad list: " + ToText(list, true)};
    }
    return items;
}

bool IsEqual(const Value& left, const Value& right, double fuzz) {
    return IsEqualAt(left, right, fuzz, 0);
}

std::wstring ToText(const Value& value, bool quoted) {
    return TextAt(value, quoted, 0);
}

std::wstring RealText(double number) {
    char buffer[40];
    std::snprintf(buffer, sizeof buffer, "%.6g", number);
    std::string text = buffer;
    if (text.find_first_of(".en") == std::string::npos) {
        text += ".0";
    }
    return {text.begin(), text.end()};
}

}  // namespace workbench::lisp
