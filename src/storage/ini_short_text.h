// Steps over short texts, eight characters at a time. A look-up is made of these, so they are written for it:
// the last step of a text that is no multiple of eight overlaps the step ahead of it.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>

#ifdef __SSE2__
#include <emmintrin.h>
#endif

namespace short_text {

inline constexpr size_t kStep = 8;

// Runs `step` at 0, 8, 16 ... and last at nSize - 8.
template <typename Step>
inline void ForEachStep(size_t nSize, Step step) {
    size_t i = 0;
    for (; i + kStep <= nSize; i += kStep)
        step(i);
    if (i < nSize) step(nSize - kStep);
}

inline bool AreEqual(const void* pLeft, const void* pRight, size_t nBytes) {
    const auto* pL = static_cast<const char*>(pLeft);
    const auto* pR = static_cast<const char*>(pRight);
    if (nBytes < kStep) {
        for (size_t i = 0; i < nBytes; ++i) {
            if (pL[i] != pR[i]) return false;
        }
        return true;
    }
    std::uint64_t uDifferent = 0;
    ForEachStep(nBytes, [&](size_t i) {
        std::uint64_t uLeft;
        std::uint64_t uRight;
        std::memcpy(&uLeft, pL + i, kStep);
        std::memcpy(&uRight, pR + i, kStep);
        uDifferent |= uLeft ^ uRight;
    });
    return uDifferent == 0;
}

#ifdef __SSE2__

// Eight characters to eight bytes; the characters are gathered in `all`.
inline void NarrowStep(const wchar_t* pText, char* pBytes, __m128i& all) {
    const __m128i first = _mm_loadu_si128(reinterpret_cast<const __m128i*>(pText));
    __m128i units = first;
    if constexpr (sizeof(wchar_t) == 4) {
        const __m128i second = _mm_loadu_si128(reinterpret_cast<const __m128i*>(pText + 4));
        all = _mm_or_si128(all, second);
        units = _mm_packs_epi32(first, second);
    }
    all = _mm_or_si128(all, first);
    _mm_storel_epi64(reinterpret_cast<__m128i*>(pBytes), _mm_packus_epi16(units, units));
}

inline bool AreAscii(__m128i all) {
    const __m128i others = sizeof(wchar_t) == 4 ? _mm_set1_epi32(~0x7F) : _mm_set1_epi16(~0x7F);
    const __m128i zero = _mm_cmpeq_epi8(_mm_and_si128(all, others), _mm_setzero_si128());
    return _mm_movemask_epi8(zero) == 0xFFFF;
}

// Eight bytes to eight characters; the bytes are gathered in `all`.
inline void WidenStep(const char* pBytes, wchar_t* pText, __m128i& all) {
    const __m128i bytes = _mm_loadl_epi64(reinterpret_cast<const __m128i*>(pBytes));
    all = _mm_or_si128(all, bytes);
    const __m128i units = _mm_unpacklo_epi8(bytes, _mm_setzero_si128());
    if constexpr (sizeof(wchar_t) == 4) {
        _mm_storeu_si128(reinterpret_cast<__m128i*>(pText), _mm_unpacklo_epi16(units, _mm_setzero_si128()));
        _mm_storeu_si128(reinterpret_cast<__m128i*>(pText + 4),
                         _mm_unpackhi_epi16(units, _mm_setzero_si128()));
    } else {
        _mm_storeu_si128(reinterpret_cast<__m128i*>(pText), units);
    }
}

#endif

// Copies characters to bytes; false if one of them is not ASCII, and what was copied means nothing then.
inline bool NarrowAscii(const wchar_t* pText, size_t nSize, char* pBytes) {
#ifdef __SSE2__
    if (nSize >= kStep) {
        __m128i all = _mm_setzero_si128();
        ForEachStep(nSize, [&](size_t i) { NarrowStep(pText + i, pBytes + i, all); });
        return AreAscii(all);
    }
#endif
    std::uint32_t uAll = 0;
    for (size_t i = 0; i < nSize; ++i) {
        uAll |= static_cast<std::uint32_t>(pText[i]);
        pBytes[i] = static_cast<char>(pText[i]);
    }
    return uAll < 0x80;
}

// Copies bytes to characters; false if one of them is not ASCII.
inline bool WidenAscii(const char* pBytes, size_t nSize, wchar_t* pText) {
#ifdef __SSE2__
    if (nSize >= kStep) {
        __m128i all = _mm_setzero_si128();
        ForEachStep(nSize, [&](size_t i) { WidenStep(pBytes + i, pText + i, all); });
        return _mm_movemask_epi8(all) == 0;
    }
#endif
    unsigned char uAll = 0;
    for (size_t i = 0; i < nSize; ++i) {
        const auto uByte = static_cast<unsigned char>(pBytes[i]);
        uAll |= uByte;
        pText[i] = static_cast<wchar_t>(uByte);
    }
    return uAll < 0x80;
}

}  // namespace short_text
