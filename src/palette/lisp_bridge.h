// The palette's way to the LISP programs: texts for the current drawing's command line.
#pragma once

#include <string>

// Cancels what runs in the current drawing, queues the text, and gives the drawing the focus so that the text
// runs at once. The application id is not used: a menu item's text is complete.
void SendLispString(int nApplicationId, const std::wstring& strText);

// Tells the LISP side that a toggle of the menu was switched.
void SendToggleSelChange(int nApplicationId, const std::wstring& strText, bool bState);

// Tells the LISP side that a spec was chosen; not shown on the command line.
void SendSpecClick();
