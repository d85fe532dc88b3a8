// The registry's class entries of the two controls, as the registrar leaves them, so that loading the module
// runs nothing.
#pragma once

#include <string>

#include "platform/platform.h"

inline void KnowControls() {
    using platform::Hive;
    const std::wstring classId = L"{B4FD4FC6-4EBA-4D06-8244-BB09A940C60A}";
    const std::wstring description = L"AutoCAD DwgThumbnail Control 2013";
    platform::Registry& registry = platform::GetRegistry();
    registry.WriteString(Hive::kClassesRoot, L"AUTOCAD.DwgThumbnailCtrl.4\\CLSID", L"", classId);
    registry.WriteString(Hive::kClassesRoot, L"CLSID\\" + classId, L"", description);
    registry.WriteString(Hive::kLocalMachine, L"Software\\Classes\\AUTOCAD.DwgThumbnailCtrl.4\\CLSID", L"",
                         classId);
    registry.WriteString(Hive::kLocalMachine, L"Software\\Classes\\CLSID\\" + classId, L"", description);
    registry.WriteString(Hive::kClassesRoot,
                         L"Wow6432Node\\TypeLib\\{77529779-442F-43F2-9932-A4876EB56D8D}\\1.0", L"", L"known");
}
