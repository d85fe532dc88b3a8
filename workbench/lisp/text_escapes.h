// The characters that a text in an expression has as a backslash and a letter. A backslash ahead of any other
// character stands for that one.
#pragma once

namespace workbench::lisp {

struct TextEscape {
    wchar_t letter;
    wchar_t character;
};
inline constexpr TextEscape kTextEscapes[] = {{L'n', L'\n'},   {L'r', L'\r'}, {L't', L'\t'},
                                              {L'e', L'\x1b'}, {L'"', L'"'},  {L'\\', L'\\'}};

}  // namespace workbench::lisp
