// The one error box of the module.
#pragma once

#include <string>

#include "acadstrc.h"

// The status that means: there is no error of the host to tell.
inline constexpr Acad::ErrorStatus kNoAcadError = Acad::eNotApplicable;

// Shows a box with an error sign over the host's main window and waits for its OK. The text is the format
// with its "%s" filled by the two arguments, followed, unless `status` is kNoAcadError, by "\n\nAutoCAD
// Error: " and the host's text for the status.
void ShowMessageWithAcadError(const std::wstring& strTitle, const std::wstring& strFormat,
                              Acad::ErrorStatus status, const std::wstring& strArgument1 = {},
                              const std::wstring& strArgument2 = {});
