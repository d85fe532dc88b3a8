#include "linked_palette.h"

#include <afxwin.h>

#include "controls/module_resources.h"
#include "palette/menu_palette.h"
#include "palette/menu_palette_set.h"
#include "palette/notify_link.h"
#include "support/windows_driver.h"

int g_nDrawingManagerRequests = 0;

void PostDrawingManagerRequest() {
    ++g_nDrawingManagerRequests;
}

namespace {

CWinApp g_app(L"Palette");

constexpr CLSID kMenuClass = {0xBC137D8F, 0x1378, 0x43CE, {0x98, 0xAF, 0xE2, 0x63, 0x57, 0x33, 0xFE, 0xC7}};

}  // namespace

LinkedPalette::LinkedPalette(TestSystem& system)
    : m_control(kMenuClass), m_documents(false), m_variables(false) {
    test_control::Seen().loadsAll = true;
    system.SetMachineValue(L"NetworkAppPath", system.InRoot(L"App"));
    system.SetMachineValue(L"Installation", L"User Settings Path", system.GetRoot());
    system.PutFile(system.InRoot(L"UserSettings.ini"), Lines({"[AutoCAD Settings]", "MenuSize = 16"}));
    g_nDrawingManagerRequests = 0;
    SetModuleInstance(GetModuleHandleW(nullptr));
    frame::Options options;
    options.withoutModule = true;
    m_session.Start(options);
    m_documents.Attach();
    m_variables.Attach();
    windows::PumpWaiting();
}

LinkedPalette::~LinkedPalette() {
    CMenuPaletteSet::Destroy();
    m_variables.Detach();
    m_documents.Detach();
}

CMenuPaletteChildDlg& LinkedPalette::Make(int app) {
    CMenuPaletteSet::GetInstance(app);
    windows::PumpWaiting();
    return *CMenuPalette::GetPalette()->m_pChildDlg;
}
