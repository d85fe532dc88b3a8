#include "palette/project_lines.h"

#include "acdocman.h"
#include "database/line_list.h"
#include "document/drawing_queries.h"
#include "storage/applications.h"

std::wstring GetCurrentDrawingPath() {
    AcApDocument* pDocument = acDocManager->curDocument();
    return pDocument ? pDocument->fileName() : L"";
}

int CProjectLines::Read(int nProjectId, bool bLocalLines, int nAppId, const CProjectLinesOptions& options) {
    if (!bLocalLines)
        return GetLineList(nProjectId, m_anIds, m_astrNames, m_abFlags, true, options.bDeletedToo, false,
                           options.bUseCache);
    const std::wstring strDrawing = GetCurrentDrawingPath();
    std::vector<std::wstring> astrInDrawing;
    CollectLineNumbers(astrInDrawing, strDrawing);
    return GetLocalLineList(nProjectId, GetApplicationName(nAppId), strDrawing, astrInDrawing, m_anIds,
                            m_astrNames, m_abFlags, true, options.bDeletedToo, false, options.bUseCache);
}

void ReloadLineCache(bool bLocalLines, int nAppId) {
    if (bLocalLines)
        ReloadLocalLineCache(GetApplicationName(nAppId), GetCurrentDrawingPath());
    else
        ReloadProjectLineCache();
}
