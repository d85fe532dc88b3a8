// Texts of a drawing without their format codes, as they are to be read.
#pragma once

#include <string>
#include <vector>

namespace frame {

// A line text: "%%d" is the degree sign, "%%p" plus-minus, "%%c" the diameter sign, "%%%" a percent sign,
// "%%" with three digits that character; "%%u" and "%%o" switch lines above and below that are not drawn.
// "\U+XXXX" is that character. Everything else stays.
std::wstring PlainLine(const std::wstring& text);

// A paragraph text: its lines, without fonts, heights, colours and braces. A stacked fraction is "a/b".
// Example: "{\fArial|b1;Pump} P-101\PDN 50" is two lines, "Pump P-101" and "DN 50".
std::vector<std::wstring> PlainParagraphs(const std::wstring& text);

}  // namespace frame
