// Where the installation put its files: folders and files from the machine-wide registry values and the
// environment. Nothing is cached. A folder ends in a backslash; the empty string means not available.
#pragma once

#include <string>

std::wstring GetDatafilesPath();
std::wstring GetDatafilePath(const std::wstring& strName);
std::wstring GetLibrariesPath();
std::wstring GetPipingStandardPath(const std::wstring& strStandard);
std::wstring GetCommonFilesPath();
std::wstring GetCommonProgramFilesPath();
std::wstring GetNetworkApplicationPath(int nApp, const std::wstring& strSubfolder);
std::wstring GetHelpFilePath(int nApp);
std::wstring GetUserSettingsPath();

// "MenuSize" of the user's settings file; 16 if it is not there. Read anew on every call.
int GetMenuIconSize();
