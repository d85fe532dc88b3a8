// What the tree of clients, standards and folders knows about its items: kinds, order, which labels may be
// edited.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

// The kind of an item is its image index. The kinds between standard and folder are reserved: no item of them
// is inserted, but order and editing know some of them.
enum ItemKind : unsigned {
    kItemClient = 0,
    kItemProject = 1,
    kItemLocked = 2,      // reserved: nothing in its subtree may be edited; sorts beside standards
    kItemClientLike = 3,  // reserved: sorts beside clients
    kItemReserved6 = 6,
    kItemFolder = 11,
    kItemNone = 12,  // no item, or the root
};
inline constexpr int kItemKindCount = 12;

// Bits of the mask of kinds whose labels may be edited.
inline constexpr std::uint32_t kEditClients = 1;
inline constexpr std::uint32_t kEditProjects = 2;
inline constexpr std::uint32_t kEditClientLike = 4;
inline constexpr std::uint32_t kEditReserved6 = 32;
inline constexpr std::uint32_t kEditFolders = 64;

// Below, equal or above zero as item a stands before, beside or behind item b. Clients stand before
// standards; everything else is ordered by label, with capitals ahead of small letters.
int CompareTreeItems(unsigned uKindA, const std::wstring& strLabelA, unsigned uKindB,
                     const std::wstring& strLabelB);

// Whether a label may be edited. `auAncestorKinds` holds the kinds of the item's parents, in any order.
bool CanEditLabel(std::uint32_t uEditableKinds, unsigned uKind, const std::vector<unsigned>& auAncestorKinds);

// Item data as ids: the control hands the value back as 32 bits without sign, and no id is below 1.
inline int ItemDataToId(std::uint64_t uData) {
    return static_cast<std::int32_t>(static_cast<std::uint32_t>(uData));
}
