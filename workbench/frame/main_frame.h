// The workbench's main window: menu, document tabs, drawing view between the dock sites, command line, status
// bar. It knows windows only; what its commands do is told to it.
#pragma once

#include <arx_port.h>

#include <afxwin.h>

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "frame/command_window.h"
#include "frame/dock_manager.h"
#include "frame/drawing_view.h"

namespace frame {

// Menu commands. Scripts name them by their menu texts.
enum CommandId : UINT {
    kCommandNew = 40001,
    kCommandOpen,
    kCommandSave,
    kCommandSaveAs,
    kCommandClose,
    kCommandExit,
    kCommandZoomExtents,
    kCommandZoomIn,
    kCommandZoomOut,
    kCommandRegenerate,
    kCommandLightBackground,
    kCommandNextDocument,
    kCommandAbout,
    kCommandFirstPalette = 41000,  // one for each palette set, in the order of their making
    kCommandLastPalette = 41099,
    kCommandFirstDocument = 42000,  // one for each document
    kCommandLastDocument = 42999,
};

class ARX_PORT MainFrame : public CMDIFrameWnd {
  public:
    // Each may be empty; without `mayClose` the window closes.
    struct Events {
        std::function<void(UINT)> command;          // a menu command that the frame does not do itself
        std::function<void(std::size_t)> activate;  // the user chose a document, by its place in the list
        std::function<void(const std::wstring&)> entered;
        std::function<void()> cancelled;
        std::function<void()> inputArrived;  // there may be queued work to do
        std::function<bool()> mayClose;      // the user closes the window; false keeps it
        std::function<void()> destroyed;     // the window is going
    };

    explicit MainFrame(Events events);
    ~MainFrame() override;
    // With `ownPlace` the window comes back where the user left it, and remembers where the user leaves it.
    bool CreateFrame(bool ownPlace = true);

    DrawingView& View() { return *m_view; }
    CommandWindow& CommandLine() { return m_commandLine; }
    DockManager& Docks() { return *m_docks; }

    // The open documents by title; `current` is -1 while none is open.
    void SetDocuments(const std::vector<std::wstring>& titles, int current);
    // The caption: "Workbench - <drawing>", or "Workbench" for an empty text.
    void SetDrawingTitle(const std::wstring& title);
    void SetStatus(const std::wstring& text);
    void ShowCoordinates(WorldPoint point);

    // Takes the focus from a palette or modeless dialog back to the command line, unless it wants to keep it.
    void OfferFocusToCommandLine();
    // Another drawing came up: what the user types is meant for it, whatever a palette did with the focus
    // meanwhile. Not while a dialog is up or another program is in front.
    void FocusDrawing();
    // Has `inputArrived` called once the message in progress is done.
    void RequestWork();

    void RecalcLayout(BOOL notify = TRUE) override;
    BOOL PreTranslateMessage(MSG* message) override;

  protected:
    BOOL OnCommand(WPARAM wParam, LPARAM lParam) override;
    BOOL OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* result) override;
    afx_msg int OnCreate(LPCREATESTRUCT create);
    afx_msg void OnDestroy();
    afx_msg void OnClose();
    afx_msg void OnSetFocus(CWnd* before);
    afx_msg void OnEnable(BOOL enable);
    afx_msg BOOL OnEraseBkgnd(CDC* dc);
    afx_msg void OnInitMenuPopup(CMenu* menu, UINT index, BOOL systemMenu);
    afx_msg void OnGetMinMaxInfo(MINMAXINFO* limits);
    afx_msg LRESULT OnWorkRequested(WPARAM, LPARAM);
    afx_msg LRESULT OnKeepFocus(WPARAM, LPARAM);
    DECLARE_MESSAGE_MAP()

  private:
    void StorePlace() const;
    void CreateMenus();
    void CreateChildren();
    bool DoOwnCommand(UINT id);
    bool IsOwned(HWND window) const;
    void FocusCommandLine(HWND activeBefore);
    void FillPaletteMenu(CMenu& menu);
    void FillWindowMenu(CMenu& menu);

    Events m_events;
    DrawingView* m_view = nullptr;  // deletes itself with its window
    CommandWindow m_commandLine;
    CWnd m_tabs;
    CWnd m_statusBar;
    std::unique_ptr<DockManager> m_docks;
    HACCEL m_accelerators = nullptr;
    HMENU m_paletteMenu = nullptr;  // parts of the menu bar
    HMENU m_windowMenu = nullptr;
    std::vector<std::wstring> m_titles;
    int m_current = -1;
    bool m_workRequested = false;
    bool m_ownPlace = true;
};

}  // namespace frame
