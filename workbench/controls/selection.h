// Selects an object into a device context and puts the old one back.
#pragma once

#include <windows.h>

namespace controls {

class Selection {
  public:
    Selection(HDC dc, HGDIOBJ object) : m_dc(dc), m_old(SelectObject(dc, object)) {}
    ~Selection() { SelectObject(m_dc, m_old); }
    Selection(const Selection&) = delete;
    Selection& operator=(const Selection&) = delete;

  private:
    HDC m_dc;
    HGDIOBJ m_old;
};

}  // namespace controls
