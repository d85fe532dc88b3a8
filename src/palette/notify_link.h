// The palette's way to the shell, which lies above it: asks, by a message to the notification window, for the
// Drawing Manager. It opens outside the reactor or command in progress. Defined beside the notification
// window.
#pragma once

// Answered by the notification window and by the palette's dialog, each with codes of its own.
inline constexpr unsigned int kNotifyMessage = 1924;

void PostDrawingManagerRequest();
