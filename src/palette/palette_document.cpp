// The palette's lists of a drawing: specs, sizes and line numbers of the drawing's project.
#include "acdocman.h"
#include "database/line_list.h"
#include "database/project_general.h"
#include "database/project_list.h"
#include "database/spec_list.h"
#include "document/doc_xdata.h"
#include "document/drawing_queries.h"
#include "palette/drawing_lines.h"
#include "palette/isoplane.h"
#include "palette/line_order.h"
#include "palette/menu_palette_child_dlg.h"
#include "palette/project_lines.h"
#include "storage/applications.h"
#include "storage/trace.h"

void CMenuPaletteChildDlg::UpdateForActiveDocument() {
    UpdateForDocument(acDocManager->curDocument());
}

void CMenuPaletteChildDlg::UpdateForDocument(AcApDocument* pDocument) {
    Trace(L"+ CMenuPaletteChildDlg::UpdateForDocument");
    if (pDocument) {
        CKV2D_DocXData data(kDocXDataAppName);
        if (data.m_projectId == 0) {
            const int nProjectId = ProjectIdFromKey(pDocument->fileName());
            if (nProjectId != data.m_projectId) {
                data.m_projectId = nProjectId;
                data.m_dirty = true;
            }
        }
        EnableCtrls(data.m_projectId != 0);
        if (data.m_projectId == 0) {
            SysVarChanged(kSnapIsoPair, true);
        } else {
            if (m_eApp != kAppElectric && IsDiscipline(m_eApp))
                FillPipingRows(pDocument, data.m_projectId, data.m_appId);
            UpdateCurrentSelections();
        }
    }
    Trace(L"- CMenuPaletteChildDlg::UpdateForDocument");
}

void CMenuPaletteChildDlg::FillPipingRows(AcApDocument* pDocument, int nProjectId, int nAppId) {
    const CPaletteDiscipline& discipline = *FindPaletteDiscipline(m_eApp);
    const CKV2D_ProjectGeneral general(nProjectId);
    std::vector<int> anIds;
    std::vector<std::wstring> astrNames;

    GetProjectSpecs(nProjectId, anIds, astrNames);
    SetComboList(FindPaletteRow(discipline, PaletteRow::kSpec), astrNames, anIds);

    GetSizeList(kSizeStandard, general.m_nDisplayedUnits, anIds, astrNames, false);
    SetComboList(FindPaletteRow(discipline, PaletteRow::kMainSize), astrNames, anIds);
    SetComboList(FindPaletteRow(discipline, PaletteRow::kBranchSize), astrNames, anIds);

    CProjectLines lines;
    lines.Read(nProjectId, general.m_bLocalLineIni, nAppId,
               {.bDeletedToo = general.m_bLocalLineIni, .bUseCache = true});
    std::vector<int> anUsed, anFiltered;
    CollectUsedLineIds(pDocument->database(), anUsed);
    ReadFilteredLineIds(anFiltered);
    RemoveFilteredLines(lines.m_anIds, lines.m_astrNames, lines.m_abFlags, anFiltered);
    OrderLinesByUse(lines.m_astrNames, lines.m_anIds, anUsed);
    SetComboList(FindPaletteRow(discipline, PaletteRow::kLineNumber), lines.m_astrNames, lines.m_anIds);
}

void CMenuPaletteChildDlg::StoreFirstLine(int nProjectId) {
    CKV2D_DocXData data(kDocXDataAppName);
    if (nProjectId < 1 || data.m_lineId != 0) return;
    const CKV2D_ProjectGeneral general(nProjectId);
    CProjectLines lines;
    lines.Read(nProjectId, general.m_bLocalLineIni, data.m_appId,
               {.bDeletedToo = general.m_bLocalLineIni, .bUseCache = general.m_bLocalLineIni});
    std::vector<int> anFiltered;
    ReadFilteredLineIds(anFiltered);
    RemoveFilteredLines(lines.m_anIds, lines.m_astrNames, lines.m_abFlags, anFiltered);
    if (lines.m_anIds.empty()) return;
    data.m_lineId = lines.m_anIds.front();
    data.m_dirty = true;
}

void CMenuPaletteChildDlg::ReloadLines(int nProjectId) {
    const CKV2D_ProjectGeneral general(nProjectId);
    ReloadLineCache(general.m_bLocalLineIni, CKV2D_DocXData(kDocXDataAppName).m_appId);
    UpdateForActiveDocument();
}
