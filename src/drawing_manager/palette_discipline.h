// What the Drawing Manager asks of the palette, which lies in a folder above and may not be included here.
#pragma once

// The discipline of the one palette (an eApp), 0 while there is none. The palette defines it beside
// CMenuPalette::GetPalette.
int GetPaletteDiscipline();
