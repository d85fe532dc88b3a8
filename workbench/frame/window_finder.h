// Finds what a script names: dialogs, controls, rows, tree items, menu items. All of this process only.
#pragma once

#include <arx_port.h>
#include <windows.h>

#include <commctrl.h>

#include <optional>
#include <string>
#include <vector>

namespace frame {

ARX_PORT std::wstring WindowText(HWND window);

// The uppermost visible dialog or message box that takes input; null if there is none.
ARX_PORT HWND TopDialog();
// The uppermost visible window, dialogs and the main window included, whose title holds `part`; null if there
// is none.
ARX_PORT HWND FindByTitle(const std::wstring& part);
// The uppermost visible window with a title.
ARX_PORT HWND TopWindow();
// A visible popup menu's window, the innermost one; null if none is open.
ARX_PORT HWND OpenPopupMenu();

// `control` is an id, or a text as it is written on the control, without its '&'. It is looked for in the top
// dialog, or, while there is none, in all windows of the program; only visible controls count. Null if there
// is none.
ARX_PORT HWND FindControl(const std::wstring& control);
// True if a visible control of the top dialog, or its title, holds the text.
bool DialogHoldsText(const std::wstring& part);
// Titles and texts of all dialogs that are open, for messages about what a script did not expect.
std::wstring DescribeDialogs();

// The row of a list view, list box or combo box (0 for the first), nothing if there is none with exactly this
// text.
std::optional<int> FindRow(HWND list, const std::wstring& text);
// The middle of the row's text in client coordinates.
std::optional<POINT> RowPoint(HWND list, int row);

// `path` is the items' texts from the root on, separated by '\'. Items on the way are expanded. Null if there
// is none.
ARX_PORT HTREEITEM FindTreeItem(HWND tree, const std::wstring& path);
std::optional<POINT> TreeItemPoint(HWND tree, HTREEITEM item);

// The place of a menu item by its text without '&' and without what follows a tab.
std::optional<int> FindMenuItem(HMENU menu, const std::wstring& text);

std::vector<std::wstring> SplitPath(const std::wstring& path);

}  // namespace frame
