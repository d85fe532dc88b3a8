// KalvorMenu.ocx: the server of the tabbed menu control.
#include "controls/menu_control.h"
#include "controls/menu_ids.h"
#include "controls/server.h"

namespace controls {

const ServerDescription kServer = {kMenuClassId, L"Kalvor Menu Control", nullptr, kMenuLibraryId,
                                   [] { return static_cast<IOleObject*>(new MenuControl); }};

}  // namespace controls
