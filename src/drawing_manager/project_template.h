// The template from which a project's drawings are started.
#pragma once

#include <string>

// The template file: the project's template folder, the name that the settings of the discipline give, and
// ".dwt". A project without a template folder gives the bare file name. Empty for an id below 1 and for an
// application that is no discipline. On disk: reading the settings may complete and save their file.
std::wstring GetProjectTemplateFile(int nApp, int nProjectId);

// The template folder with a backslash behind it, empty if the project has none. Empty as well in the cases
// in which GetProjectTemplateFile is.
std::wstring GetProjectTemplateFolder(int nApp, int nProjectId);
