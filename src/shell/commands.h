// The module's two commands.
#pragma once

// Asks for the Drawing Manager; a profile that is used for the first time sees the palette with it.
void kv2dMenu_kv2dDrawingManager();

// Runs the dialog for a new line number.
void kv2dMenu_kv2dNewLineNumber();
