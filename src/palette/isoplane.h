// The isoplane states of the palette's button and the host's snap variables behind them.
#pragma once

#include <cstdint>

inline constexpr int kIsoStateCount = 7;
inline constexpr int kIsoStateRectangular = 6;
// Value of a state's isometric pair that says: leave the variable alone.
inline constexpr int kIsoPairUnchanged = -1;

// The host's snap variables.
inline constexpr wchar_t kSnapStyle[] = L"SNAPSTYL";
inline constexpr wchar_t kSnapIsoPair[] = L"SNAPISOPAIR";

struct CIsoState {
    std::uint16_t nIcon;
    int nSnapStyle;  // "SNAPSTYL": 1 isometric, 0 rectangular
    int nIsoPair;    // "SNAPISOPAIR": 0 left, 1 top, 2 right; kIsoPairUnchanged for the rectangular snap
};

// A state below 0 or beyond the last one is state 0.
int NormalizeIsoState(int nState);

// `nState` is normalised first.
const CIsoState& GetIsoState(int nState);

// The state that the two variables stand for: 0, 1, 2 or the rectangular one. The states 3, 4 and 5 are
// reached by clicking only.
int DeriveIsoState(int nSnapStyle, int nIsoPair);
