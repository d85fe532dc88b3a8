// Keeps the entries of a list apart.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

// Adds to a list what it does not hold yet; the case of letters counts. What the list holds already stays,
// also twice.
//
// A large drawing asks some ten thousand times. The table is of eight bytes a slot, so that it stays in the
// processor's cache, and a text is compared with one of the list only if their hashes are the same.
class CDistinctTexts {
  public:
    // The list outlives this, and nobody else changes it meanwhile.
    explicit CDistinctTexts(std::vector<std::wstring>& astrTexts) : m_astrTexts(astrTexts) {
        Resize(kFirstSize);
        for (size_t i = 0; i < astrTexts.size(); ++i) {
            const std::uint32_t nHash = HashOf(astrTexts[i]);
            Slot& slot = SlotOf(astrTexts[i], nHash);
            if (slot.nPlace == 0) Fill(slot, nHash, i);
        }
    }

    void Add(std::wstring strText) {
        const std::uint32_t nHash = HashOf(strText);
        Slot& slot = SlotOf(strText, nHash);
        if (slot.nPlace != 0) return;
        m_astrTexts.push_back(std::move(strText));
        Fill(slot, nHash, m_astrTexts.size() - 1);
    }

  private:
    struct Slot {
        std::uint32_t nHash = 0;
        std::uint32_t nPlace = 0;  // in the list, counted from 1; 0 for a free slot
    };

    static constexpr size_t kFirstSize = 64;  // a power of two, as every size

    static std::uint32_t HashOf(const std::wstring& strText) {
        return static_cast<std::uint32_t>(std::hash<std::wstring>()(strText));
    }

    // The slot of a text of the list, or the free one that it would take.
    Slot& SlotOf(const std::wstring& strText, std::uint32_t nHash) {
        for (size_t i = nHash;; ++i) {
            Slot& slot = m_aSlots[i & (m_aSlots.size() - 1)];
            if (slot.nPlace == 0) return slot;
            if (slot.nHash == nHash && m_astrTexts[slot.nPlace - 1] == strText) return slot;
        }
    }

    void Fill(Slot& slot, std::uint32_t nHash, size_t nIndex) {
        slot = {nHash, static_cast<std::uint32_t>(nIndex + 1)};
        if (++m_nTexts * 4 > m_aSlots.size() * 3) Resize(m_aSlots.size() * 2);
    }

    void Resize(size_t nSize) {
        std::vector<Slot> aOld(nSize);
        aOld.swap(m_aSlots);
        for (const Slot& old : aOld) {
            if (old.nPlace == 0) continue;
            size_t i = old.nHash;
            while (m_aSlots[i & (nSize - 1)].nPlace != 0)
                ++i;
            m_aSlots[i & (nSize - 1)] = old;
        }
    }

    std::vector<std::wstring>& m_astrTexts;
    std::vector<Slot> m_aSlots;
    size_t m_nTexts = 0;
};
