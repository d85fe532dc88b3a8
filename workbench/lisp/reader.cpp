#include "reader.h"

#include <algorithm>
#include <cstdlib>
#include <cwctype>
#include <iterator>
#include <limits>

#include "interpreter.h"
#include "text_escapes.h"

namespace workbench::lisp {
namespace {

constexpr int kDeepestRead = 1000;
constexpr std::size_t kMostDigits = 300;

bool EndsAtom(wchar_t letter) {
    return std::iswspace(static_cast<std::wint_t>(letter)) ||
           std::wstring_view(L"()'\";").find(letter) != std::wstring_view::npos;
}

bool IsDigit(wchar_t letter) {
    return letter >= L'0' && letter <= L'9';
}

// An optional sign, digits with at most one point and an exponent; at least one digit.
bool LooksLikeNumber(const std::wstring& text, bool& isReal) {
    std::size_t at = text[0] == L'-' || text[0] == L'+' ? 1 : 0;
    std::size_t digits = 0;
    isReal = false;
    for (; at < text.size() && (IsDigit(text[at]) || (text[at] == L'.' && !isReal)); ++at) {
        digits += IsDigit(text[at]) ? 1 : 0;
        isReal = isReal || text[at] == L'.';
    }
    if (digits == 0) {
        return false;
    }
    if (at < text.size() && (text[at] == L'e' || text[at] == L'E')) {
        isReal = true;
        ++at;
        at += at < text.size() && (text[at] == L'-' || text[at] == L'+') ? 1 : 0;
        const std::size_t exponent = at;
        while (at < text.size() && IsDigit(text[at])) {
            ++at;
        }
        if (at == exponent) {
            return false;
        }
    }
    return at == text.size();
}

}  // namespace

bool Reader::SkipBlanks() {
    while (!AtEnd()) {
        if (std::iswspace(static_cast<std::wint_t>(Peek()))) {
            ++m_position;
        } else if (m_text.substr(m_position, 2) == L";|") {
            const std::size_t end = m_text.find(L"|;", m_position + 2);
            m_position = end == std::wstring_view::npos ? m_text.size() : end + 2;
        } else if (Peek() == L';') {
            while (!AtEnd() && Peek() != L'\n') {
                ++m_position;
            }
        } else {
            return true;
        }
    }
    return false;
}

bool Reader::Read(Value& value) {
    if (!SkipBlanks()) {
        return false;
    }
    if (Peek() == L')') {
        throw Error{L"extra right paren on input"};
    }
    value = ReadExpression(0);
    return true;
}

Value Reader::ReadExpression(int depth) {
    if (depth > kDeepestRead) {
        throw Error{L"too deeply nested on input"};
    }
    switch (Peek()) {
        case L'(':
            ++m_position;
            return ReadList(depth);
        case L'"':
            ++m_position;
            return ReadText();
        case L'\'':
            ++m_position;
            if (!SkipBlanks() || Peek() == L')') {
                throw Error{L"misplaced quote on input"};
            }
            return MakeList({m_interpreter.Intern(L"QUOTE"), ReadExpression(depth + 1)});
        default:
            return ReadAtom();
    }
}

Value Reader::ReadList(int depth) {
    std::vector<Value> items;
    while (true) {
        if (!SkipBlanks()) {
            throw Error{L"malformed list on input"};
        }
        if (Peek() == L')') {
            ++m_position;
            return MakeList(items);
        }
        const bool isDot =
            Peek() == L'.' && m_position + 1 < m_text.size() && EndsAtom(m_text[m_position + 1]);
        if (!isDot) {
            items.push_back(ReadExpression(depth + 1));
            continue;
        }
        ++m_position;
        if (items.empty() || !SkipBlanks() || Peek() == L')') {
            throw Error{L"misplaced dot on input"};
        }
        Value tail = ReadExpression(depth + 1);
        if (!SkipBlanks() || Peek() != L')') {
            throw Error{L"misplaced dot on input"};
        }
        ++m_position;
        return MakeList(items, std::move(tail));
    }
}

Value Reader::ReadText() {
    std::wstring text;
    while (!AtEnd()) {
        const wchar_t letter = m_text[m_position++];
        if (letter == L'"') {
            return text;
        }
        if (letter != L'\\' || AtEnd()) {
            text.push_back(letter);
            continue;
        }
        const wchar_t escaped = m_text[m_position++];
        const auto* known =
            std::find_if(std::begin(kTextEscapes), std::end(kTextEscapes),
                         [escaped](const TextEscape& escape) { return escape.letter == escaped; });
        text.push_back(known != std::end(kTextEscapes) ? known->character : escaped);
    }
    throw Error{L"malformed string on input"};
}

Value Reader::ReadAtom() {
    const std::size_t start = m_position;
    while (!AtEnd() && !EndsAtom(Peek())) {
        ++m_position;
    }
    const std::wstring text(m_text.substr(start, m_position - start));
    bool isReal = false;
    if (!LooksLikeNumber(text, isReal)) {
        Symbol* symbol = m_interpreter.Intern(text);
        return symbol->name == L"NIL" ? Value() : Value(symbol);
    }
    if (text.size() > kMostDigits) {
        throw Error{L"number too long on input"};
    }
    const double number = std::wcstod(text.c_str(), nullptr);
    const bool fits = number >= std::numeric_limits<std::int32_t>::min() &&
                      number <= std::numeric_limits<std::int32_t>::max();
    return isReal || !fits ? Value(number) : Value(static_cast<std::int32_t>(number));
}

Completeness CompletenessOf(std::wstring_view text) {
    int open = 0;
    bool inText = false;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (inText) {
            if (text[i] == L'\\') {
                ++i;
            } else if (text[i] == L'"') {
                inText = false;
            }
        } else if (text[i] == L'"') {
            inText = true;
        } else if (text[i] == L'(') {
            ++open;
        } else if (text[i] == L')') {
            --open;
        }
    }
    return inText || open > 0 ? Completeness::kOpen : Completeness::kComplete;
}

}  // namespace workbench::lisp
