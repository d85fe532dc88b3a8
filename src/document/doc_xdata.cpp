#include "document/doc_xdata.h"

#include "acdbads.h"
#include "acdocman.h"
#include "acestext.h"
#include "acutads.h"
#include "dbapserv.h"
#include "dbobjptr.h"
#include "dbsymtb.h"
#include "document/drawing_queries.h"
#include "platform/platform.h"
#include "storage/message_format.h"

namespace {

// Group codes of xdata.
constexpr short kCodeText = 1000;
constexpr short kCodeAppName = 1001;
constexpr short kCodeBinary = 1004;
constexpr short kCodeHandle = 1005;
constexpr short kCodeShort = 1070;
constexpr short kCodeLong = 1071;

constexpr wchar_t kBoxTitle[] = L"Orvex 2023 DocXData";
constexpr wchar_t kWriteFailedFormat[] = L"Error writing DocXData\n\nAutoCAD Error: %s";

bool HoldsText(const resbuf& item) {
    return item.restype >= kCodeText && item.restype <= kCodeHandle && item.restype != kCodeBinary;
}

// Reads the items of a record one after the other. An item whose code is not the expected one stays for the
// next question: older drawings lack items in the middle.
class CItemReader {
  public:
    explicit CItemReader(const resbuf* pItem) : m_pItem(pItem) {}

    bool SkipAppName() { return Take(kCodeAppName) != nullptr; }

    bool TakeShort(std::int32_t& nValue) {
        const resbuf* pItem = Take(kCodeShort);
        if (pItem) nValue = pItem->resval.rint;
        return pItem != nullptr;
    }

    bool TakeLong(std::int32_t& nValue) {
        const resbuf* pItem = Take(kCodeLong);
        if (pItem) nValue = pItem->resval.rlong;
        return pItem != nullptr;
    }

    // The next item whatever its code is; of a text there is no number to take.
    void TakeAnyAsShort(std::int16_t& nValue) {
        const resbuf* pItem = TakeAny();
        if (pItem && !HoldsText(*pItem)) nValue = pItem->resval.rint;
    }

    // The low bytes of the first eight characters of the next item, zeros where it has none.
    void TakeAnyAsTag(std::array<std::uint8_t, 8>& tag) {
        const resbuf* pItem = TakeAny();
        if (!pItem || !HoldsText(*pItem) || !pItem->resval.rstring) return;
        const wchar_t* pszText = pItem->resval.rstring;
        for (size_t i = 0; i < tag.size() && pszText[i]; ++i)
            tag[i] = static_cast<std::uint8_t>(pszText[i]);
    }

  private:
    const resbuf* Take(short nCode) { return m_pItem && m_pItem->restype == nCode ? TakeAny() : nullptr; }

    const resbuf* TakeAny() {
        const resbuf* pItem = m_pItem;
        if (pItem) m_pItem = pItem->rbnext;
        return pItem;
    }

    const resbuf* m_pItem;
};

// The tag as the other programs of the suite store it: its bytes in pairs, low byte first, are the
// characters.
std::wstring TextOfTag(const std::array<std::uint8_t, 8>& tag) {
    std::wstring strText;
    for (size_t i = 0; i + 1 < tag.size(); i += 2) {
        const auto ch = static_cast<wchar_t>(tag[i] | tag[i + 1] << 8);
        if (!ch) break;
        strText += ch;
    }
    return strText;
}

}  // namespace

CKV2D_DocXData::CKV2D_DocXData(const std::wstring& appName) : m_appName(appName) {
    Read();
}

CKV2D_DocXData::~CKV2D_DocXData() {
    Write();
}

void CKV2D_DocXData::Read() {
    m_pDrawing = acdbHostApplicationServices()->workingDatabase();
    AcDbObjectPointer<AcDbBlockTableRecord> pModelSpace(GetModelSpaceId(nullptr), AcDb::kForRead);
    if (pModelSpace.openStatus() != Acad::eOk) return;
    resbuf* pItems = pModelSpace->xData(m_appName.c_str());
    ReadItems(pItems);
    acutRelRb(pItems);
}

void CKV2D_DocXData::ReadItems(const resbuf* pItems) {
    CItemReader items(pItems);
    items.SkipAppName();
    items.TakeLong(m_specId);
    if (items.TakeShort(m_mainSize) && items.TakeShort(m_branchSize)) items.TakeShort(m_isoPlane);
    items.TakeLong(m_lineId);
    items.TakeShort(m_electricMode);
    if (items.TakeLong(m_projectId) && items.TakeLong(m_extraLong)) {
        items.TakeAnyAsShort(m_extraShort1);
        items.TakeAnyAsShort(m_extraShort2);
        items.TakeAnyAsTag(m_extraTag);
    }
    items.TakeShort(m_appId);
}

resbuf* CKV2D_DocXData::BuildItems() const {
    return acutBuildList(kCodeAppName, m_appName.c_str(),           //
                         kCodeLong, m_specId,                       //
                         kCodeShort, m_mainSize,                    //
                         kCodeShort, m_branchSize,                  //
                         kCodeShort, m_isoPlane,                    //
                         kCodeLong, m_lineId,                       //
                         kCodeShort, m_electricMode,                //
                         kCodeLong, m_projectId,                    //
                         kCodeLong, m_extraLong,                    //
                         kCodeShort, m_extraShort1,                 //
                         kCodeShort, m_extraShort2,                 //
                         kCodeText, TextOfTag(m_extraTag).c_str(),  //
                         kCodeShort, m_appId,                       //
                         RTNONE);
}

// True if an event closed the drawing that the record was read from. The next drawing's record is not ours.
bool CKV2D_DocXData::IsDrawingGone() const {
    return m_pDrawing && m_pDrawing != acdbHostApplicationServices()->workingDatabase() &&
           !acDocManager->document(m_pDrawing);
}

void CKV2D_DocXData::Write() {
    if (!m_dirty || IsDrawingGone()) return;
    AcApDocument* pDoc = acDocManager->curDocument();
    // Events of the palette come without a lock on the document. Opening the record tells, at no other cost.
    const Acad::ErrorStatus probe =
        AcDbObjectPointer<AcDbBlockTableRecord>(GetModelSpaceId(nullptr), AcDb::kForWrite).openStatus();
    const bool bLocked =
        probe == Acad::eLockViolation && acDocManager->lockDocument(pDoc, AcAp::kWrite) == Acad::eOk;
    const AcDbObjectId modelSpaceId = GetModelSpaceId(nullptr);
    if (modelSpaceId.isNull() || IsDrawingGone()) return;
    AcDbObjectPointer<AcDbBlockTableRecord> pModelSpace(modelSpaceId, AcDb::kForWrite);
    if (pModelSpace.openStatus() == Acad::eOk) {
        acdbRegApp(m_appName.c_str());
        resbuf* pItems = BuildItems();
        const Acad::ErrorStatus status = pModelSpace->setXData(pItems);
        if (status != Acad::eOk) {
            platform::GetBoxes().Show(platform::BoxOwner::kHostMainWindow,
                                      FormatMessageText(kWriteFailedFormat, {acadErrorStatusText(status)}),
                                      kBoxTitle, platform::kBoxIconError);
        }
        acutRelRb(pItems);
    }
    if (bLocked) acDocManager->unlockDocument(pDoc);
}
