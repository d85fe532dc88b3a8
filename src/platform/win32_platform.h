// The platform of the product: the services of Windows. Only the Windows build has it.
#pragma once

#include "platform/platform.h"

namespace platform {

// The one instance. Its message boxes use the owner of SetHostMainWindow.
Platform& GetWin32Platform();

// Installs it as the platform in use. Called once, when the module is attached.
void InstallWin32Platform();

// Tells how to find the window that owns boxes with BoxOwner::kHostMainWindow: the result is an HWND. Without
// it such a box has no owner.
void SetHostMainWindow(void* (*getWindow)());

}  // namespace platform
