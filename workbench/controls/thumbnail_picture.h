// Draws a drawing file into a small picture.
#pragma once

#include <windows.h>

#include <string>

namespace controls {

// Fills the picture that `dc` draws into (32 bits a pixel, rows from the top down, at `pixels`) with `back`
// and draws the file's model, or its preview, into it. A large drawing is drawn from its first 10,000
// entities, and from no more than 50,000 after its blocks are put in; of texts that are large enough to be
// read, the first 300. False, with the back colour only, for a file that cannot be shown.
bool DrawThumbnail(const std::wstring& path, HDC dc, std::uint32_t* pixels, int width, int height,
                   COLORREF back);

}  // namespace controls
