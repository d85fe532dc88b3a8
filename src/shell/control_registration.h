// Makes the two ActiveX controls known to the system at load: copies their files to the local folder, looks
// for them in the registry, and runs the system's registrar for one that is not known. Set-up is not relied
// on.
#pragma once

#include <string>

#include "platform/platform.h"

// Copies every "*.ocx" of the common files folder to the local controls folder. Files that are there already
// stay, whatever their age.
void CopyOcxFiles();

// Copies each file that matches `szPattern` to a folder (a backslash is added to it when needed) under the
// file's own name. Folders are skipped. True if all copies worked; a failed one does not stop the others.
bool CopyFiles(const wchar_t* szPattern, const wchar_t* szDestinationFolder, bool bFailIfExists);

// The default value of a key; empty if the key or the value cannot be read.
std::wstring ReadDefaultRegValue(platform::Hive hive, const std::wstring& strKey);

// Copies the files, and registers the tabbed menu control unless its type library is known. A missing file
// and a registration that failed are told in a box over the host's main window.
void RegisterMenuControl();

// Copies the files, and registers the drawing thumbnail control unless the three keys that are looked at
// first hold exactly what they should. A missing file is told in a box without owner. True if all four keys
// are right afterwards, whether the registrar ran or not.
bool RegisterThumbnailControl();
