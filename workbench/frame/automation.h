// The workbench's automation objects (acadi.h): the application and its documents.
#pragma once

#include <acadi.h>
#include <arx_port.h>

#include <functional>
#include <string>

class AcApDocument;

namespace frame {

// What the objects do through the workbench. `error` is a text for the client.
struct AutomationActions {
    std::function<AcApDocument*(const std::wstring& path, bool readOnly, std::wstring& error)> open;
    std::function<AcApDocument*(const std::wstring& templatePath, std::wstring& error)>
        add;  // template may be empty
    std::function<bool(AcApDocument*, bool saveChanges, std::wstring& error)> close;
    std::function<bool(AcApDocument*, std::wstring& error)> save;
    std::function<void()> quit;
};

// The application object, with one reference that belongs to the caller. Its actions must stay valid until
// its last reference is gone; a document object whose document has been closed fails every call.
ARX_PORT IDispatch* CreateAutomationApplication(AutomationActions actions);

}  // namespace frame
