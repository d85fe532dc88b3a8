// Where the items of result lists come from. Handing one out costs little, for drawings have them by the
// hundred thousand, and one that is freed twice or never was an item is still found out.
#pragma once

#include <memory>
#include <vector>

#include "adsdef.h"

namespace workbench::database {

class ItemPool {
  public:
    // A new item, all zero.
    resbuf* Take();
    // False for what is no item, or is not out.
    bool Contains(const resbuf* item) const;
    // An item that is out.
    void GiveBack(resbuf* item);
    // Items that are out.
    long Count() const { return m_count; }

  private:
    struct Slot {  // an item stands at the start of its slot
        resbuf item{};
        bool isOut = false;
        Slot* nextFree = nullptr;
    };
    static constexpr std::size_t kBlockSize = 256;

    void AddBlock();
    // Null for an address that is no slot's.
    Slot* Find(const resbuf* item) const;

    std::vector<std::unique_ptr<Slot[]>> m_blocks;  // by address
    Slot* m_free = nullptr;
    long m_count = 0;
};

}  // namespace workbench::database
