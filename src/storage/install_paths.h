// Where the installation put its files: folders and files from the machine-wide registry values that set-up
// wrote and from the environment. Nothing is cached: every call reads the registry anew. A folder ends in a
// backslash, whether or not the value does; the empty string means not available, and no value stands in for
// another. Nothing here touches a file but GetMenuIconSize.
#pragma once

#include <string>

// The shared database: DatafilesPath.
std::wstring GetDatafilesPath();

// A file or folder of the shared database. Without a database it is empty, never the bare name, which would
// lead to the current folder.
std::wstring GetDatafilePath(const std::wstring& strName);

// "Libraries\" of the shared database.
std::wstring GetLibrariesPath();

// "Standards\Piping\<standard>\" of the shared database; the folder of all standards for the empty name.
std::wstring GetPipingStandardPath(const std::wstring& strStandard);

// "Applications\Common Files\" below NetworkAppPath: shared programs.
std::wstring GetCommonFilesPath();

// "KALVOR\" below the environment variable CommonProgramFiles: shared controls.
std::wstring GetCommonProgramFilesPath();

// "Tessarc\<application>\<subfolder>\" below NetworkAppPath; number 0 and an empty subfolder leave their part
// out. A number that is no application leaves its backslash: 12 gives "...\Tessarc\\".
std::wstring GetNetworkApplicationPath(int nApp, const std::wstring& strSubfolder);

// "Help\PID.chm" below LocalAppPath. Unlike the others never empty: without the value it is the bare file,
// and an application that is no discipline has the file ".chm".
std::wstring GetHelpFilePath(int nApp);

// "UserSettings.ini" in the folder "User Settings Path" of the key Installation; else in
// "KALVOR\Orvex 2023\" below ProgramData, or below "ProgramData" on the system drive. Never empty.
std::wstring GetUserSettingsPath();

// "MenuSize" of the user's settings file; 16 if it is not there, 0 if it is no number. Read anew on every
// call.
int GetMenuIconSize();
