#include "drawing_manager/button_rules.h"

#include <algorithm>

#include "resources/resource.h"

CButtonStates GetButtonStates(unsigned uKind, int nId, RowSelection rows, const std::wstring& strLocation) {
    CButtonStates states;
    states.bOpenStandard = uKind == kItemProject && nId > 0;
    states.bCopyRenameDelete = rows != RowSelection::kNone;
    states.bOpen = rows == RowSelection::kSomeDrawing;
    states.bNewAndExplore = !strLocation.empty();
    return states;
}

std::vector<int> GetGreyedFolderCommands(unsigned uHitKind, int nProjectId) {
    std::vector<int> anGreyed;
    if (uHitKind == kItemNone || nProjectId < 1) anGreyed.push_back(ID_PROJECTS_OPEN);
    if (uHitKind == kItemNone) anGreyed.push_back(ID_PROJECTS_NEWFOLDER);
    if (uHitKind != kItemFolder) {
        anGreyed.push_back(ID_PROJECTS_RENAME);
        anGreyed.push_back(ID_PROJECTS_DELETE);
    }
    return anGreyed;
}

std::vector<int> GetGreyedDrawingCommands(int nSelectedRows, int nProjectId, bool bHasFolder) {
    std::vector<int> anGreyed;
    const auto grey = [&anGreyed](int nCommand) {
        if (std::find(anGreyed.begin(), anGreyed.end(), nCommand) == anGreyed.end())
            anGreyed.push_back(nCommand);
    };
    if (nSelectedRows != 1) grey(ID_DRAWINGS_RENAME);
    if (nProjectId < 1) {
        grey(ID_DRAWINGS_NEW);
        grey(ID_DRAWINGS_REFRESHLIST);
    }
    if (nSelectedRows == 0) {
        grey(ID_DRAWINGS_OPEN);
        grey(ID_DRAWINGS_OPENREADONLY);
        grey(ID_DRAWINGS_COPY);
        grey(ID_DRAWINGS_DELETE);
    }
    if (!bHasFolder) grey(ID_DRAWINGS_NEW);
    return anGreyed;
}
