#include "database/project_template.h"

#include <memory>

#include "database/project_general.h"
#include "database/project_list.h"
#include "settings/project_settings.h"

namespace {

std::unique_ptr<CKV2D_ProjectSettingsBase> MakeSettings(int nApp) {
    switch (nApp) {
        case kAppElectric:
            return std::make_unique<CKV2D_ProjectSettingsElectric>();
        case kAppPid:
            return std::make_unique<CKV2D_ProjectSettingsFlow>();
        case kAppIsometric:
            return std::make_unique<CKV2D_ProjectSettingsIso>();
        case kAppOrtho:
            return std::make_unique<CKV2D_ProjectSettingsOrtho>();
        default:
            return nullptr;
    }
}

}  // namespace

std::wstring GetProjectTemplateName(int nProjectId, int nApp) {
    const std::unique_ptr<CKV2D_ProjectSettingsBase> pSettings = MakeSettings(nApp);
    if (!pSettings) return {};
    const CKV2D_ProjectGeneral general(nProjectId);
    const CKV2D_ProjectRef project(nProjectId);
    pSettings->InitDefaults(general.m_nWorkingUnits);
    pSettings->Load(nProjectId, {project.m_strPath, general.m_nProjectVersion, general.m_nDisplayedUnits});
    return pSettings->GetText(kVarTemplateName);
}
