// The system's help viewer, loaded when it is first wanted.
#pragma once

#include <string>

// Shows a topic ("C:\Help\PID.chm::/Starting_PID.htm") in a window of its own. Nothing happens if the viewer
// cannot be loaded; it is not looked for a second time.
void ShowHelpTopic(const std::wstring& strTopic);
