// Makes the main window known to the accessors that modules call (rxmfcapi.h).
#pragma once

#include <arx_port.h>

namespace frame {

class MainFrame;

// Null while there is no main window.
ARX_PORT void SetHostFrame(MainFrame* frame);

}  // namespace frame
