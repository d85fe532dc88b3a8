#include "frame/ui_colors.h"

namespace frame {

HFONT InterfaceFont() {
    static const HFONT font = [] {
        LOGFONTW description{};
        description.lfHeight = -12;
        description.lfWeight = FW_NORMAL;
        description.lfCharSet = DEFAULT_CHARSET;
        description.lfQuality = CLEARTYPE_QUALITY;
        lstrcpyW(description.lfFaceName, L"Tahoma");
        return CreateFontIndirectW(&description);
    }();
    return font;
}

}  // namespace frame
