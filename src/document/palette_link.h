// What the reactors of this folder ask of the palette. The palette is a window in a folder above this one,
// which may not be included here, so it implements this and defines the two functions beside
// CMenuPalette::GetPalette.
#pragma once

#include <string>

class AcApDocument;

// The part of the palette's dialog that hears of documents and system variables.
class CPaletteLink {
  public:
    virtual void UpdateForDocument(AcApDocument* doc) = 0;
    virtual void DocDestroyed() = 0;
    // `name` in upper case. `store`: the new state goes into the drawing's record.
    virtual void SysVarChanged(const std::wstring& name, bool store) = 0;

  protected:
    ~CPaletteLink() = default;
};

// The dialog of the one palette; null while there is none.
CPaletteLink* GetPaletteLink();

// Asks the host's frame to show the palette set as it is now, also when there is none: the frame takes a
// null.
void ShowPaletteSet();
