// What an outside launcher leaves in the registry for the first start: a standard and a drawing.
#pragma once

#include <string>

struct CLauncherData {
    int m_nProjectId = 0;
    std::wstring m_strDrawing;
};

// Reads the launcher's values and resets them, so that they are taken over once.
CLauncherData TakeLauncherData();
