#include "drawing_manager/tree_rules.h"

#include <algorithm>

namespace {

bool SortsAsProject(unsigned uKind) {
    return uKind == kItemProject || uKind == kItemLocked;
}

bool SortsAsClient(unsigned uKind) {
    return uKind == kItemClient || uKind == kItemClientLike;
}

std::uint32_t GetEditBit(unsigned uKind) {
    switch (uKind) {
        case kItemClient:
            return kEditClients;
        case kItemProject:
            return kEditProjects;
        case kItemClientLike:
            return kEditClientLike;
        case kItemReserved6:
            return kEditReserved6;
        case kItemFolder:
            return kEditFolders;
        default:
            return 0;
    }
}

}  // namespace

int CompareTreeItems(unsigned uKindA, const std::wstring& strLabelA, unsigned uKindB,
                     const std::wstring& strLabelB) {
    if (SortsAsProject(uKindA) && SortsAsClient(uKindB)) return 1;
    if (SortsAsClient(uKindA) && SortsAsProject(uKindB)) return -1;
    return strLabelA.compare(strLabelB);
}

bool CanEditLabel(std::uint32_t uEditableKinds, unsigned uKind,
                  const std::vector<unsigned>& auAncestorKinds) {
    const auto isLocked = [](unsigned uAncestor) { return uAncestor == kItemLocked; };
    // An item of the locked kind itself reads as a standard, and yet it locks its own label too.
    if (uKind == kItemLocked || std::any_of(auAncestorKinds.begin(), auAncestorKinds.end(), isLocked)) {
        return false;
    }
    return (uEditableKinds & GetEditBit(uKind)) != 0;
}
