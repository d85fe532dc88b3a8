// The palette's classes linked into the program, in a workbench without the module: for what can only be
// reached from inside, such as the clock, and for measuring.
#pragma once

#include <memory>

#include "document/doc_reactors.h"
#include "frame/session.h"
#include "palette/menu_palette_child_dlg.h"
#include "support/test_platform.h"
#include "test_control.h"

// How often the palette has asked for the Drawing Manager.
extern int g_nDrawingManagerRequests;

class LinkedPalette {
  public:
    // The host with one empty drawing; no palette yet. The system's menu size is 16.
    explicit LinkedPalette(TestSystem& system);
    ~LinkedPalette();
    LinkedPalette(const LinkedPalette&) = delete;
    LinkedPalette& operator=(const LinkedPalette&) = delete;

    // The palette of a discipline, made if there is none.
    CMenuPaletteChildDlg& Make(int app);
    frame::Session& Session() { return m_session; }

  private:
    test_control::Registration m_control;
    frame::Session m_session;
    kv2dDocManagerReactor m_documents;
    kv2dEditorReactor m_variables;
};
