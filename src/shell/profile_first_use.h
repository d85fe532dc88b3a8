// Tells whether a profile of the host is used for the first time.
#pragma once

#include <string>

// True only if the profile has never stored whether it hides the host's warning dialogs: a stored 0 is not a
// first use. `strRootKey` is the host's product key below HKEY_CURRENT_USER, with or without a backslash at
// its end. An empty text gives false.
bool IsProfileFirstUse(const std::wstring& strRootKey, const std::wstring& strProfile);
