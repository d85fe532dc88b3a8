#include "shell/lisp_arguments.h"

#include <optional>

#include "adscodes.h"
#include "adsdef.h"

namespace {

// The second of exactly two arguments; null for any other number.
const resbuf* SecondOfTwo(const resbuf* pArguments) {
    const resbuf* pSecond = pArguments ? pArguments->rbnext : nullptr;
    return pSecond && !pSecond->rbnext ? pSecond : nullptr;
}

bool IsText(const resbuf* pArgument) {
    return pArgument->restype == RTSTR && pArgument->resval.rstring;
}

std::optional<bool> ReadTruth(const resbuf* pArgument) {
    if (pArgument->restype == RTT) return true;
    if (pArgument->restype == RTNIL) return false;
    return std::nullopt;
}

}  // namespace

bool TakeNoArguments(const resbuf* pArguments) {
    return !pArguments;
}

bool TakeInitArguments(const resbuf* pArguments, int& nApp, bool& bUseStoredState) {
    const resbuf* pSecond = SecondOfTwo(pArguments);
    if (!pSecond) return false;
    const std::optional<bool> bTruth = ReadTruth(pSecond);
    if (!bTruth) return false;
    if (pArguments->restype == RTSHORT)
        nApp = pArguments->resval.rint;
    else if (pArguments->restype == RTLONG)
        nApp = pArguments->resval.rlong;
    else
        return false;
    bUseStoredState = *bTruth;
    return true;
}

bool TakeMenuArguments(const resbuf* pArguments, std::wstring& strMenu) {
    if (!pArguments || pArguments->rbnext || !IsText(pArguments)) return false;
    strMenu = pArguments->resval.rstring;
    return true;
}

bool TakeToggleArguments(const resbuf* pArguments, std::wstring& strName, bool& bState) {
    const resbuf* pSecond = SecondOfTwo(pArguments);
    if (!pSecond || !IsText(pArguments)) return false;
    if (const std::optional<bool> bTruth = ReadTruth(pSecond))
        bState = *bTruth;
    else if (pSecond->restype == RTSHORT)
        bState = pSecond->resval.rint != 0;
    else
        return false;
    strName = pArguments->resval.rstring;
    return true;
}
