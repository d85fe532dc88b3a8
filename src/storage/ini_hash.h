// A fast hash of short texts, in the manner of multiply and fold.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>

// A hash, well mixed in all 32 bits, and whether the text is ASCII: both come from one pass.
struct CIniHash {
    std::uint32_t m_uHash;
    bool m_bAscii;
};

namespace ini_hash {

inline constexpr std::uint64_t kMultiplier = 0x9E3779B97F4A7C15;
inline constexpr std::uint64_t kHighBits = 0x8080808080808080;

inline std::uint64_t LoadWord(const char* pBytes) {
    std::uint64_t uWord;
    std::memcpy(&uWord, pBytes, sizeof uWord);
    return uWord;
}

// The last zero to seven bytes, behind at least eight that were loaded before or alone.
inline std::uint64_t LoadRest(const char* pBytes, size_t nSize) {
    std::uint64_t uWord = 0;
    if (nSize >= 4) {
        std::uint32_t uFirst;
        std::uint32_t uLast;
        std::memcpy(&uFirst, pBytes, sizeof uFirst);
        std::memcpy(&uLast, pBytes + nSize - sizeof uLast, sizeof uLast);
        return static_cast<std::uint64_t>(uLast) << 32 | uFirst;
    }
    for (size_t i = 0; i < nSize; ++i)
        uWord |= static_cast<std::uint64_t>(static_cast<unsigned char>(pBytes[i])) << (8 * i);
    return uWord;
}

inline std::uint64_t Mix(std::uint64_t uHash, std::uint64_t uWord) {
    uHash = (uHash ^ uWord) * kMultiplier;
    return uHash ^ (uHash >> 32);
}

}  // namespace ini_hash

inline CIniHash HashText(const char* pBytes, size_t nSize, std::uint64_t uSeed) {
    std::uint64_t uHash = (uSeed + nSize) * ini_hash::kMultiplier;
    std::uint64_t uAll = 0;
    const char* pRest = pBytes;
    size_t nRest = nSize;
    for (; nRest >= 8; pRest += 8, nRest -= 8) {
        const std::uint64_t uWord = ini_hash::LoadWord(pRest);
        uAll |= uWord;
        uHash = ini_hash::Mix(uHash, uWord);
    }
    if (nRest > 0) {
        // With eight bytes or more, the last word overlaps the one ahead of it.
        const std::uint64_t uWord =
            nSize >= 8 ? ini_hash::LoadWord(pBytes + nSize - 8) : ini_hash::LoadRest(pRest, nRest);
        uAll |= uWord;
        uHash = ini_hash::Mix(uHash, uWord);
    }
    uHash *= ini_hash::kMultiplier;
    return {static_cast<std::uint32_t>(uHash >> 32), (uAll & ini_hash::kHighBits) == 0};
}
