// The tip of the palette's Drawing Manager button.
#pragma once

#include <string>

// Tells which standard the drawing belongs to ("Current: client \ standard"); without one, which standard the
// Drawing Manager would start with ("Default: ..."); without that, what the button is for. Reads the project
// database and the registry. `nProjectId` is the drawing's, 0 for none.
std::wstring GetDrawingManagerTip(int nProjectId, int nApp);
