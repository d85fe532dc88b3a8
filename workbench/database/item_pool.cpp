#include "item_pool.h"

#include <algorithm>
#include <cstddef>
#include <functional>

#ifdef __SANITIZE_ADDRESS__
#include <sanitizer/asan_interface.h>
#else
// What is freed stays in the block, so that only the sanitizer sees it used.
#define ASAN_POISON_MEMORY_REGION(address, size) (static_cast<void>(address), static_cast<void>(size))
#define ASAN_UNPOISON_MEMORY_REGION(address, size) (static_cast<void>(address), static_cast<void>(size))
#endif

namespace workbench::database {

resbuf* ItemPool::Take() {
    if (m_free == nullptr) {
        AddBlock();
    }
    Slot* slot = m_free;
    m_free = slot->nextFree;
    slot->isOut = true;
    ASAN_UNPOISON_MEMORY_REGION(&slot->item, sizeof slot->item);
    slot->item = {};
    ++m_count;
    return &slot->item;
}

bool ItemPool::Contains(const resbuf* item) const {
    const Slot* slot = Find(item);
    return slot != nullptr && slot->isOut;
}

void ItemPool::GiveBack(resbuf* item) {
    Slot* slot = reinterpret_cast<Slot*>(item);
    slot->isOut = false;
    slot->nextFree = m_free;
    m_free = slot;
    ASAN_POISON_MEMORY_REGION(&slot->item, sizeof slot->item);
    --m_count;
}

void ItemPool::AddBlock() {
    auto block = std::make_unique<Slot[]>(kBlockSize);
    for (std::size_t i = kBlockSize; i > 0; --i) {
        Slot& slot = block[i - 1];
        slot.nextFree = m_free;
        m_free = &slot;
        ASAN_POISON_MEMORY_REGION(&slot.item, sizeof slot.item);
    }
    const auto place = std::upper_bound(
        m_blocks.begin(), m_blocks.end(), block,
        [](const auto& one, const auto& other) { return std::less<>()(one.get(), other.get()); });
    m_blocks.insert(place, std::move(block));
}

ItemPool::Slot* ItemPool::Find(const resbuf* item) const {
    const char* address = reinterpret_cast<const char*>(item);
    const auto behind = std::upper_bound(
        m_blocks.begin(), m_blocks.end(), address, [](const char* wanted, const auto& block) {
            return std::less<>()(wanted, reinterpret_cast<const char*>(block.get()));
        });
    if (behind == m_blocks.begin()) {
        return nullptr;
    }
    Slot* first = std::prev(behind)->get();
    const std::size_t offset = static_cast<std::size_t>(address - reinterpret_cast<const char*>(first));
    const bool isSlot = offset % sizeof(Slot) == 0 && offset / sizeof(Slot) < kBlockSize;
    return isSlot ? first + offset / sizeof(Slot) : nullptr;
}

}  // namespace workbench::database
