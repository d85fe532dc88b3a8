// Pictures of the screen as PNG files.
#pragma once

#include <arx_port.h>
#include <windows.h>

#include <cstdint>
#include <string>
#include <vector>

namespace frame {

// Rows of 32-bit pixels (blue, green, red, unused), first row on top.
struct Picture {
    int width = 0;
    int height = 0;
    std::vector<std::uint32_t> pixels;
    friend bool operator==(const Picture&, const Picture&) = default;
};

// What is on the screen in `rect`, other windows' content included. Without rows if the system gives none.
ARX_PORT Picture TakePicture(const RECT& rect);
// False if the file cannot be written.
ARX_PORT bool SavePng(const Picture& picture, const std::wstring& path);

}  // namespace frame
