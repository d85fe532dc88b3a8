// The palette's way to the shell, which lies above it: asks, by a message to the notification window, for the
// Drawing Manager. It opens outside the reactor or command in progress. Defined beside the notification
// window.
#pragma once

void PostDrawingManagerRequest();
