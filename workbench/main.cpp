// The workbench: a small drawing host. docs/workbench.md tells how to start it.
#include "frame/workbench_app.h"

namespace {
frame::WorkbenchApp theApp;
}

int WINAPI WinMain(HINSTANCE, HINSTANCE, LPSTR, int) {
    return AfxWinMain();
}
