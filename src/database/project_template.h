// The template drawing of a project. The settings lie below the database and cannot look a project up by
// themselves; this is where the two meet.
#pragma once

#include <string>

// The name of the template drawing, without folder and extension, that a discipline's settings of the project
// give: "acad" if they say nothing else, also for a project that cannot be found. Empty for anything but the
// four disciplines; nothing is looked up then.
//
// On disk: what the reading of General.ini and of the settings file writes (CKV2D_ProjectGeneral::Load,
// CKV2D_ProjectSettingsBase::Load).
std::wstring GetProjectTemplateName(int nProjectId, int nApp);
