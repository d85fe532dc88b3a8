// DwgThumbnail.ocx: the server of the drawing thumbnail control.
#include "controls/server.h"
#include "controls/thumbnail_control.h"
#include "controls/thumbnail_ids.h"

namespace controls {

// The program id and the description are what programs look for in the registry.
const ServerDescription kServer = {kThumbnailClassId, L"AutoCAD DwgThumbnail Control 2013",
                                   L"AUTOCAD.DwgThumbnailCtrl.4", kThumbnailLibraryId,
                                   [] { return static_cast<IOleObject*>(new ThumbnailControl); }};

}  // namespace controls
