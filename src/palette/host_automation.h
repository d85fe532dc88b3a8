// The two things that only the host's automation interface can do. Both are told to the user, under the given
// caption, if the interface itself cannot be had; what its methods answer is not looked at.
#pragma once

#include <string>

// False if the interface could not be had; further drawings need not be tried.
bool OpenReadOnly(const std::wstring& strPath, const std::wstring& strTitle);

// Starts a new unnamed drawing on a template.
void StartDrawingFromTemplate(const std::wstring& strTemplate, const std::wstring& strTitle);
