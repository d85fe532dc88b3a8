#include "frame/workbench_app.h"

#include "frame/main_frame.h"

namespace frame {

namespace {

std::vector<std::wstring> Arguments() {
    int count = 0;
    LPWSTR* words = CommandLineToArgvW(GetCommandLineW(), &count);
    std::vector<std::wstring> arguments;
    for (int i = 1; i < count; ++i)
        arguments.emplace_back(words[i]);
    LocalFree(words);
    return arguments;
}

}  // namespace

BOOL WorkbenchApp::InitInstance() {
    if (FAILED(OleInitialize(nullptr))) return FALSE;
    const INITCOMMONCONTROLSEX controls{sizeof controls, ICC_WIN95_CLASSES | ICC_BAR_CLASSES};
    InitCommonControlsEx(&controls);
    m_session = std::make_unique<Session>();
    const bool started = m_session->Start(ParseOptions(Arguments()));
    m_pMainWnd = m_session->Frame();
    return started && m_pMainWnd != nullptr;
}

BOOL WorkbenchApp::OnIdle(LONG lCount) {
    const BOOL more = CWinApp::OnIdle(lCount);
    return m_session->OnIdle() || more;
}

int WorkbenchApp::ExitInstance() {
    const int status = m_session == nullptr ? 2 : m_session->ExitStatus();
    m_session.reset();
    OleUninitialize();
    return status;
}

LPDISPATCH WorkbenchApp::GetIDispatch(BOOL bAddRef) {
    IDispatch* object = m_session == nullptr ? nullptr : m_session->Automation();
    if (object != nullptr && bAddRef) object->AddRef();
    return object;
}

}  // namespace frame
