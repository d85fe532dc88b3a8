// An in-process COM server for one control: class factory, registration, the four exported functions.
#pragma once

#include <windows.h>

#include <ocidl.h>

#include <string>

namespace controls {

// What a control's library says of itself.
struct ServerDescription {
    CLSID classId;
    const wchar_t* description;  // default value of the class key
    const wchar_t* programId;    // null for none
    GUID libraryId;              // of the type library in the file's resources
    IOleObject* (*create)();     // a new control with one reference
};

// Each control's library defines it.
extern const ServerDescription kServer;

HINSTANCE GetServerInstance();
std::wstring GetServerPath();

}  // namespace controls
