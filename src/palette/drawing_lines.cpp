#include "palette/drawing_lines.h"

#include <memory>
#include <unordered_set>

#include "acutmem.h"
#include "dbents.h"
#include "dbobjptr.h"
#include "dbsymtb.h"
#include "dbxrecrd.h"
#include "document/block_name_test.h"
#include "document/doc_xdata.h"
#include "document/drawing_queries.h"
#include "palette/element_xdata.h"

namespace {

struct ResbufDeleter {
    void operator()(resbuf* pItems) const { acutRelRb(pItems); }
};
using ResbufList = std::unique_ptr<resbuf, ResbufDeleter>;

int GetLineIdOfElement(const AcDbObjectId& entityId, CBlockNameTest& pipingBlocks) {
    AcDbObjectPointer<AcDbBlockReference> pReference(entityId, AcDb::kForRead);
    if (pReference.openStatus() != Acad::eOk || !pipingBlocks.Passes(pReference->blockTableRecord()))
        return 0;
    const ResbufList pItems(pReference->xData(kDocXDataAppName));
    return ReadElementXData(pItems.get()).m_nLineId;
}

}  // namespace

void CollectUsedLineIds(AcDbDatabase* pDatabase, std::vector<int>& out) {
    out.clear();
    std::unique_ptr<AcDbBlockTableRecordIterator> pEntities;
    {
        AcDbObjectPointer<AcDbBlockTableRecord> pModelSpace(GetModelSpaceId(pDatabase), AcDb::kForRead);
        AcDbBlockTableRecordIterator* pIterator = nullptr;
        if (pModelSpace.openStatus() != Acad::eOk || pModelSpace->newIterator(pIterator) != Acad::eOk) return;
        pEntities.reset(pIterator);
    }
    CBlockNameTest pipingBlocks(IsPipingElementBlock);
    std::unordered_set<int> known;
    for (; !pEntities->done(); pEntities->step()) {
        AcDbObjectId entityId;
        if (pEntities->getEntityId(entityId) != Acad::eOk) continue;
        const int nLineId = GetLineIdOfElement(entityId, pipingBlocks);
        if (nLineId > 0 && known.insert(nLineId).second) out.push_back(nLineId);
    }
}

Acad::ErrorStatus ReadFilteredLineIds(std::vector<int>& out) {
    out.clear();
    AcDbObjectId id;
    Acad::ErrorStatus status = FindOrCreateXrecord(L"FilteredLineIds", kDocXDataAppName, id, true, nullptr);
    if (status != Acad::eOk) return status;
    AcDbObjectPointer<AcDbXrecord> pRecord(id, AcDb::kForRead);
    if (pRecord.openStatus() != Acad::eOk) return pRecord.openStatus();
    resbuf* pChain = nullptr;
    status = pRecord->rbChain(&pChain);
    const ResbufList pItems(pChain);
    for (const resbuf* pItem = pItems.get(); pItem; pItem = pItem->rbnext)
        out.push_back(pItem->resval.rlong);
    return status;
}
