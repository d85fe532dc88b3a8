#include "palette/isoplane.h"

namespace {
constexpr CIsoState kIsoStates[kIsoStateCount] = {
    {239, 1, 2}, {234, 1, 1}, {235, 1, 0}, {236, 1, 1}, {237, 1, 0}, {238, 1, 2}, {233, 0, kIsoPairUnchanged},
};
}

int NormalizeIsoState(int nState) {
    return nState < 0 || nState >= kIsoStateCount ? 0 : nState;
}

const CIsoState& GetIsoState(int nState) {
    return kIsoStates[NormalizeIsoState(nState)];
}

int DeriveIsoState(int nSnapStyle, int nIsoPair) {
    if (nSnapStyle == 0) return kIsoStateRectangular;
    if (nIsoPair == 0) return 2;
    return nIsoPair == 1 ? 1 : 0;
}
