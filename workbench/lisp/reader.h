// From text to expressions.
#pragma once

#include <string>
#include <string_view>

#include "value.h"

namespace workbench::lisp {

class Reader {
  public:
    Reader(Interpreter& interpreter, std::wstring_view text) : m_interpreter(interpreter), m_text(text) {}

    // False at the end of the text. Throws Error for what is no expression: "malformed list on input",
    // "malformed string on input", "extra right paren on input", "too deeply nested on input".
    bool Read(Value& value);

  private:
    Value ReadExpression(int depth);
    Value ReadList(int depth);
    Value ReadText();
    Value ReadAtom();
    // False at the end of the text.
    bool SkipBlanks();
    wchar_t Peek() const { return m_text[m_position]; }
    bool AtEnd() const { return m_position >= m_text.size(); }

    Interpreter& m_interpreter;
    std::wstring_view m_text;
    std::size_t m_position = 0;
};

// Whether a text that begins with a parenthesis is a whole expression yet.
enum class Completeness {
    kOpen,      // parentheses or a string are open
    kComplete,  // balanced
};
Completeness CompletenessOf(std::wstring_view text);

}  // namespace workbench::lisp
