// The accessors through which modules reach the workbench's windows.
#include "frame/host_windows.h"

#include <rxmfcapi.h>

#include "frame/main_frame.h"

namespace frame {

namespace {
MainFrame* g_frame = nullptr;
}

void SetHostFrame(MainFrame* frame) {
    g_frame = frame;
}

}  // namespace frame

CMDIFrameWnd* acedGetAcadFrame() {
    return frame::g_frame;
}

CView* acedGetAcadDwgView() {
    return frame::g_frame == nullptr ? nullptr : &frame::g_frame->View();
}

CWinApp* acedGetAcadWinApp() {
    return AfxGetApp();
}

HINSTANCE acedGetAcadResourceInstance() {
    return AfxGetInstanceHandle();
}

HWND adsw_acadMainWnd() {
    return frame::g_frame == nullptr ? nullptr : frame::g_frame->GetSafeHwnd();
}
