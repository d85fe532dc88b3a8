// A workbench frame without the workbench behind it, and a palette set that writes down what it hears.
#pragma once

#include <adui.h>
#include <gtest/gtest.h>
#include <objbase.h>
#include <rxmfcapi.h>

#include <memory>
#include <string>
#include <vector>

#include "frame/host_windows.h"
#include "frame/main_frame.h"
#include "support/windows_driver.h"

namespace frame_test {

class RecordingPalette : public CAdUiPalette {
  public:
    CSize m_size;
    bool m_bTakeFocus = true;
    int m_nActivated = 0;
    int m_nLoaded = 0;
    int m_nSaved = 0;

    BOOL Load(IUnknown* pUnk) override {
        ++m_nLoaded;
        return CAdUiPalette::Load(pUnk);
    }
    BOOL Save(IUnknown* pUnk) override {
        ++m_nSaved;
        return CAdUiPalette::Save(pUnk);
    }
    void OnSetActive() override { ++m_nActivated; }
    bool CanFrameworkTakeFocus() override { return m_bTakeFocus; }

  protected:
    afx_msg void OnSize(UINT nType, int cx, int cy) {
        CAdUiPalette::OnSize(nType, cx, cy);
        m_size = CSize(cx, cy);
    }
    DECLARE_MESSAGE_MAP()
};

class RecordingSet : public CAdUiPaletteSet {
  public:
    RecordingSet() : CAdUiPaletteSet(0) {}
    int m_nHidden = 0;  // WM_WINDOWPOSCHANGED with SWP_HIDEWINDOW
    int m_nPlaced = 0;  // and without

  protected:
    afx_msg void OnWindowPosChanged(WINDOWPOS* lpwndpos) {
        CAdUiPaletteSet::OnWindowPosChanged(lpwndpos);
        ++((lpwndpos->flags & SWP_HIDEWINDOW) != 0 ? m_nHidden : m_nPlaced);
    }
    DECLARE_MESSAGE_MAP()
};

// The set with its palette, in the order of destruction that a module uses: the palette first.
struct SetWithPalette {
    RecordingSet set;
    RecordingPalette palette;
};

class FrameTest : public testing::Test {
  protected:
    void SetUp() override {
        frame::MainFrame::Events events;
        events.command = [this](UINT id) { m_commands.push_back(id); };
        events.activate = [this](std::size_t index) { m_activated.push_back(index); };
        events.entered = [this](const std::wstring& line) { m_entered.push_back(line); };
        events.cancelled = [this] { ++m_cancelled; };
        events.inputArrived = [this] { ++m_inputArrived; };
        events.mayClose = [] { return true; };
        m_frame = new frame::MainFrame(events);  // deletes itself with its window
        ASSERT_TRUE(m_frame->CreateFrame());
        frame::SetHostFrame(m_frame);
        m_frame->SetWindowPos(nullptr, 0, 0, 1000, 700, SWP_NOZORDER);
        m_frame->ShowWindow(SW_SHOW);
        m_frame->SetForegroundWindow();
        windows::PumpWaiting();
    }
    void TearDown() override {
        frame::SetHostFrame(nullptr);
        if (m_frame != nullptr) m_frame->DestroyWindow();
        windows::PumpWaiting();
    }

    static GUID FreshToolId() {
        GUID id{};
        CoCreateGuid(&id);
        return id;
    }

    // As a module makes it: created, filled, named, restored. Hidden at first.
    std::unique_ptr<SetWithPalette> MakeSet(GUID toolId, const wchar_t* name = L"PID") {
        auto made = std::make_unique<SetWithPalette>();
        EXPECT_TRUE(made->set.Create(name, 0x400000, CRect(0, 0, 125, 250), acedGetAcadFrame(), 30));
        EXPECT_TRUE(made->palette.Create(WS_CHILD | WS_VISIBLE, name, &made->set, 1));
        EXPECT_EQ(0, made->set.AddPalette(&made->palette));
        made->set.EnableDocking(CBRS_ALIGN_ANY);
        made->set.SetToolID(&toolId);
        made->set.EnableDocking(CBRS_ALIGN_LEFT | CBRS_ALIGN_RIGHT);
        CRect floating(10, 10, 135, 505);
        made->set.InitFloatingPosition(&floating);
        made->set.RestoreControlBar(AFX_IDW_DOCKBAR_LEFT, nullptr);
        return made;
    }
    std::unique_ptr<SetWithPalette> MakeShownSet() {
        auto made = MakeSet(FreshToolId());
        Show(*made, true);
        return made;
    }
    void Show(SetWithPalette& made, bool show) {
        m_frame->ShowControlBar(&made.set, show, FALSE);
        windows::PumpWaiting();
    }

    // A window's rectangle in the frame's client coordinates.
    CRect InFrame(const CWnd& window) const {
        CRect rect;
        window.GetWindowRect(&rect);
        m_frame->ScreenToClient(&rect);
        return rect;
    }

    frame::MainFrame* m_frame = nullptr;
    std::vector<UINT> m_commands;
    std::vector<std::size_t> m_activated;
    std::vector<std::wstring> m_entered;
    int m_cancelled = 0;
    int m_inputArrived = 0;
};

}  // namespace frame_test
