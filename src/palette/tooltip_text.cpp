#include "palette/tooltip_text.h"

#include <cstdint>

#include "database/client_list.h"
#include "database/project_list.h"
#include "drawing_manager/manager_registry.h"
#include "storage/registry_settings.h"

namespace {

// "client \ standard", or the standard alone if no client lists it.
std::wstring GetClientAndStandard(int nProjectId, const std::wstring& strStandard) {
    int nClientId = 0;
    std::wstring strClient;
    GetClientOfProject(nProjectId, nClientId, strClient);
    return strClient.empty() ? strStandard : strClient + L" \\ " + strStandard;
}

}  // namespace

std::wstring GetDrawingManagerTip(int nProjectId, int nApp) {
    const CKV2D_ProjectRef project(nProjectId);
    if (!project.m_strName.empty()) return L"Current: " + GetClientAndStandard(nProjectId, project.m_strName);

    const auto nDefault =
        static_cast<std::int32_t>(ReadDisciplineDword(nApp, kManagerSubkey, kProjectIdValue, 0));
    if (nDefault < 1) return L"Use the Drawing Manager to open a drawing";
    return L"Default: " + GetClientAndStandard(nDefault, CKV2D_ProjectRef(nDefault).m_strName);
}
