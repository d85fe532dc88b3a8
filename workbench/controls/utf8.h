// UTF-8 to wide text.
#pragma once

#include <string>
#include <string_view>

namespace controls {

// False, with an empty text, for bytes that are not UTF-8: torn, overlong or beyond the last letter.
bool Utf8ToWide(std::string_view bytes, std::wstring& text);

}  // namespace controls
