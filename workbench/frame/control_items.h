// The items of lists and combo boxes: what a user does to them, and what is chosen.
#pragma once

#include <windows.h>

#include <string>

namespace frame {

// Tells the parent of a control of a change that the user made in it.
void NotifyParent(HWND control, UINT code);

// Chooses a row of a combo or list box as the user would, its parent being told.
void ChooseItem(HWND control, int row);
// The text of the chosen row of a combo or list box; empty if none is.
std::wstring ChosenItem(HWND control);

// Selects one row of a list view, and no other, and brings it into sight.
void SelectOnly(HWND list, int row);

}  // namespace frame
