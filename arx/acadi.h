// The host's automation interfaces.
//
// Their members are called by name (IDispatch::GetIDsOfNames, then Invoke): so a client does not depend on
// the order of the slots, which changes between releases of the host, and the interfaces add none here.
#pragma once

#include <oaidl.h>

// The application. Property `Documents`; also `Name`, `Version`, `ActiveDocument`, `Visible`, method `Quit`.
// Reached from CWinApp::GetIDispatch by QueryInterface.
using IAcadApplication = IDispatch;
inline constexpr IID IID_IAcadApplication = {
    0x52EE1CD2, 0xA793, 0x4DEC, {0x9D, 0xF9, 0x71, 0xCE, 0x75, 0x88, 0x1F, 0x05}};

// The open documents. Methods, each of which returns the document it opened:
//   Open(Name as BSTR, ReadOnly as VARIANT (optional, VT_BOOL), Password as VARIANT (optional, ignored))
//   Add(TemplateName as VARIANT (optional, VT_BSTR)): a new unnamed drawing with the template's content
//   Item(Index as VARIANT): by position from 0 or by file name
// property `Count`. A drawing that cannot be opened fails with DISP_E_EXCEPTION and a description.
using IAcadDocuments = IDispatch;

// One open document. Properties `Name`, `FullName`, `ReadOnly`, `Saved`; methods `Activate`,
// `Close(SaveChanges as VARIANT (optional))`, `Save`.
using IAcadDocument = IDispatch;
