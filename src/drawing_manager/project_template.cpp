#include "drawing_manager/project_template.h"

#include "database/project_general.h"
#include "database/project_template.h"
#include "storage/applications.h"
#include "storage/path_text.h"

namespace {

constexpr wchar_t kTemplateExtension[] = L".dwt";

}  // namespace

std::wstring GetProjectTemplateFile(int nApp, int nProjectId) {
    if (nProjectId < 1 || !IsDiscipline(nApp)) return {};
    return GetProjectTemplateFolder(nApp, nProjectId) + GetProjectTemplateName(nProjectId, nApp) +
           kTemplateExtension;
}

std::wstring GetProjectTemplateFolder(int nApp, int nProjectId) {
    if (nProjectId < 1 || !IsDiscipline(nApp)) return {};
    return EnsureBackslash(CKV2D_ProjectGeneral(nProjectId).m_strTemplatesLocation);
}
