#include "palette/element_xdata.h"

#include <algorithm>
#include <iterator>

#include "adsdef.h"
#include "platform/letter_case.h"

namespace {

constexpr short kApplicationCode = 1001;
constexpr short kTextCode = 1000;
constexpr short kShortCode = 1070;
constexpr short kLongCode = 1071;
constexpr int kTextVersion = 2;
constexpr size_t kBlockNameLength = 7;

constexpr const wchar_t* kPipingBlocks[] = {L"BLT_BLK", L"FLG_BLK", L"FTG_BLK", L"GSK_BLK",
                                            L"INS_BLK", L"MIS_BLK", L"NIP_BLK", L"PIP_BLK",
                                            L"SCR_BLK", L"SUP_BLK", L"VAL_BLK"};

// Takes items one after the other as long as they are of the expected kind.
class CItemCursor {
  public:
    explicit CItemCursor(const resbuf* pItem) : m_pItem(pItem) {}

    bool Skip(short nCode) { return Take(nCode) != nullptr; }
    bool TakeLong(std::int32_t& nValue) {
        const resbuf* pItem = Take(kLongCode);
        if (pItem) nValue = pItem->resval.rlong;
        return pItem;
    }
    bool TakeShort(std::int16_t& nValue) {
        const resbuf* pItem = Take(kShortCode);
        if (pItem) nValue = pItem->resval.rint;
        return pItem;
    }
    // The text is the item's own, and never null.
    bool TakeText(const wchar_t*& szValue) {
        const resbuf* pItem = Take(kTextCode);
        if (pItem) szValue = pItem->resval.rstring ? pItem->resval.rstring : L"";
        return pItem;
    }

  private:
    const resbuf* Take(short nCode) {
        if (!m_pItem || m_pItem->restype != nCode) return nullptr;
        const resbuf* pTaken = m_pItem;
        m_pItem = m_pItem->rbnext;
        return pTaken;
    }

    const resbuf* m_pItem;
};

}  // namespace

CElementXData ReadElementXData(const resbuf* pItems) {
    CElementXData data;
    CItemCursor cursor(pItems);
    cursor.Skip(kApplicationCode);
    const wchar_t* szWord = L"";
    if (!cursor.TakeLong(data.m_nElement) || !cursor.TakeShort(data.m_nShort1) ||
        !cursor.TakeShort(data.m_nShort2) || !cursor.TakeText(szWord))
        return data;
    for (size_t i = 0; i < data.m_aBlockWord.size() && szWord[i]; ++i)
        data.m_aBlockWord[i] = static_cast<std::uint8_t>(szWord[i]);
    if (!cursor.TakeLong(data.m_nField) || !cursor.TakeLong(data.m_nLineId)) return data;
    const wchar_t* szText = L"";
    if (cursor.TakeShort(data.m_nVersion) && data.m_nVersion >= kTextVersion && cursor.TakeText(szText))
        data.m_strText = szText;
    return data;
}

bool IsPipingElementBlock(const std::wstring& strBlockName) {
    if (strBlockName.size() != kBlockNameLength) return false;
    const std::wstring strUpper = platform::ToUpper(strBlockName);
    return std::find(std::begin(kPipingBlocks), std::end(kPipingBlocks), strUpper) != std::end(kPipingBlocks);
}
