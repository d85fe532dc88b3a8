// Which buttons of the Drawing Manager and which items of its two popup menus can be used.
#pragma once

#include <string>
#include <vector>

#include "drawing_manager/tree_rules.h"

struct CButtonStates {
    bool bOpenStandard = false;
    bool bCopyRenameDelete = false;
    bool bOpen = false;
    bool bNewAndExplore = false;
    bool operator==(const CButtonStates&) const = default;
};

// What is selected in the list.
enum class RowSelection {
    kNone,
    kOnlyBackups,
    kSomeDrawing,  // at least one row that is no backup
};

// `uKind` and `nId` are those of the selected tree item (kItemNone without one), `strLocation` is the text of
// the location box.
CButtonStates GetButtonStates(unsigned uKind, int nId, RowSelection rows, const std::wstring& strLocation);

// The command ids to be greyed in the popup of the tree, for the item under the cursor (kItemNone if there is
// none) and the id of the standard that it belongs to (0 if to none).
std::vector<int> GetGreyedFolderCommands(unsigned uHitKind, int nProjectId);

// The command ids to be greyed in the popup of the list.
std::vector<int> GetGreyedDrawingCommands(int nSelectedRows, int nProjectId, bool bHasFolder);
