// The host's user interface classes: dockable palette sets, the palettes in them, and dialogs that behave
// well beside the drawing view.
#pragma once

#include "aduiDialog.h"
#include "aduiDock.h"
#include "aduiMessage.h"
#include "aduiPalette.h"
#include "aduiPaletteSet.h"
