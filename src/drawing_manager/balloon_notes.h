// The balloons of the Drawing Manager: their words, pictures and measures.
#pragma once

#include <string>

struct CBalloonNote {
    std::wstring strTitle;
    unsigned uIconId = 0;  // a system icon
    std::wstring strText;
    bool bUp = false;
    int nLines = -1;  // -1: worked out from the length of the text
};

// The standard's drawing location is empty.
CBalloonNote MakeInvalidLocationNote();
// The folder holds nothing but the default drawing.
CBalloonNote MakeDefaultDrawingNote();
CBalloonNote MakeReadOnlyNote();
CBalloonNote MakeLockedNote(const std::wstring& strUser, const std::wstring& strMachine,
                            const std::wstring& strTime);
