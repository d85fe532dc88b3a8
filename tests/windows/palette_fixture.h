// The module's palette in the workbench: the library itself, loaded by a session as the host loads it, over a
// small database, with a menu control that writes down what is done to it.
//
//     StartPalette(kAppPid);
//     UseUsualDatabase();
//     NewDrawing(5);
//     Choose(kSpecRow, L"CS150");
//     EXPECT_EQ(Stored(&CKV2D_DocXData::m_specId), 3);
#pragma once

#include <acdocman.h>
#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "document/doc_xdata.h"
#include "frame/main_frame.h"
#include "frame/session.h"
#include "host/host.h"
#include "resources/resource.h"
#include "storage/applications.h"
#include "support/test_platform.h"
#include "support/windows_driver.h"
#include "test_control.h"
#include "unit/database/a_database.h"
#include "unit/document/test_drawing.h"

// The window of a palette's dialog: what it shows, by row (0 to 3) and by control id.
class PaletteWindow {
  public:
    explicit PaletteWindow(HWND dialog = nullptr) : m_dialog(dialog) {}
    HWND Dialog() const { return m_dialog; }

    static int ComboId(int row);
    static int TitleId(int row);
    HWND Combo(int row) const { return windows::Control(m_dialog, ComboId(row)); }
    std::wstring Title(int row) const { return windows::TextOf(m_dialog, TitleId(row)); }
    std::vector<std::wstring> Items(int row) const;
    std::vector<int> Data(int row) const;
    std::wstring Choice(int row) const;  // empty for none
    int ChosenIndex(int row) const;

    bool Enabled(int id) const { return IsWindowEnabled(windows::Control(m_dialog, id)) != FALSE; }
    // By its own style, whether or not the palette shows.
    bool Shown(int id) const;
    RECT RectOf(int id) const;  // in client coordinates of the dialog
    int Width() const;
    int Height() const;

  private:
    HWND m_dialog;
};

class PaletteTest : public SystemTest {
  protected:
    PaletteTest();
    ~PaletteTest() override;

    // --- the program
    // "MenuSize" of the user's settings.
    void SetMenuSize(int size);
    // Loads the module into a session with its first, empty drawing; or leaves that to LoadModule. `startUp`
    // is the text of a LISP file that is loaded then.
    enum class When { kAtOnce, kLater };
    void Start(const std::string& startUp = {}, When module = When::kAtOnce);
    void LoadModule();
    // As the discipline's start-up does it: (kv2dMenu_Init app T).
    void Init(int app, bool useStored = true);
    void StartPalette(int app) {
        Start();
        Init(app);
    }
    // A new drawing of the standard 5 in the palette of a discipline.
    void StartWithDrawing(int app) {
        UseUsualDatabase();
        StartPalette(app);
        NewDrawing(5);
    }
    // Ends the session, and the module with it.
    void End();
    void Enter(const std::wstring& line);
    bool Said(const std::wstring& text) const;
    workbench::host::Host& Host() { return m_session->TheHost(); }
    frame::MainFrame& Frame() { return *m_session->Frame(); }
    // The palette set by its name; null if there is none.
    CAdUiDockControlBar* Set(const wchar_t* name) { return Frame().Docks().Find(name); }
    bool SetShows(const wchar_t* name);

    // --- the palette
    PaletteWindow Palette();
    void Choose(int row, const std::wstring& item);
    void ChooseIndex(int row, int index);
    // Gives the set a size, and waits until the layout has followed.
    void ResizeSet(int width, int height);
    // Waits for the layout that is due.
    void WaitForLayout();
    std::uint32_t StoredNumber(int app, const std::wstring& subkey, const std::wstring& name,
                               std::uint32_t missing = 0xDEAD);

    // What `action` sends to the current drawing's command line, which waits meanwhile and forgets it then.
    struct Sent {
        std::wstring text;
        bool echo;
        bool activate;
        bool wrapUpInactive = true;
        bool operator==(const Sent&) const = default;
    };
    std::vector<Sent> SentBy(const std::function<void()>& action);

    // --- database: client "Acme" with the standard 5 "Pump", which has the specs 3 "CS150" and 7 "SS300",
    // the lines 11 "P-11", 12 "P-12", 13 "P-13", the deleted line 14 "P-14", and sixteen sizes. Standard 6
    // "Tank", which no client lists, has neither specs nor lines.
    void UseUsualDatabase();
    // The size table; unit systems differ in the text behind the number.
    void PutSizes(int count = 16);

    // --- drawings
    // A new unnamed drawing, current, of a project (0: none); the palette has been told.
    AcApDocument* NewDrawing(int projectId);
    // A drawing on disk, saved and closed.
    void PutDrawing(const std::wstring& path, const std::function<void(AcDbDatabase&)>& fill = {});
    AcApDocument* Open(const std::wstring& path);
    void Activate(AcApDocument* document);
    void CloseAllDrawings();
    // A piping element of a line at the end of the current drawing's model space.
    void AddElement(int lineId, const wchar_t* block = L"VAL_BLK");
    // The drawing's list of lines that are not offered.
    void FilterLines(const std::vector<int>& lineIds);
    // Changes the current drawing's record.
    void Store(const std::function<void(CKV2D_DocXData&)>& change);
    std::int32_t Stored(std::int32_t CKV2D_DocXData::*field);
    int Variable(const wchar_t* name);
    // Tells the palette that the current drawing's lists or its choices have changed.
    void Refill() { Enter(L"(kv2dMenu_DocXRecordHasChanged)"); }
    void ShowChoices() { Enter(L"(kv2dMenu_DocXDataHasChanged)"); }

    ADatabase m_database;
    std::unique_ptr<test_control::Registration> m_control;
    std::unique_ptr<frame::Session> m_session;

  private:
    std::wstring m_commonFilesBefore;
};

// While it lives, notes the messages of one kind that windows of this thread are sent. Only one may live at a
// time.
class SentMessages {
  public:
    explicit SentMessages(UINT message);
    ~SentMessages();
    SentMessages(const SentMessages&) = delete;
    SentMessages& operator=(const SentMessages&) = delete;
    const std::vector<CWPSTRUCT>& Seen() const;
    // How many of them went to a window.
    int To(HWND window) const;

  private:
    HHOOK m_hook;
};

inline constexpr int kSpecRow = 0;
inline constexpr int kMainSizeRow = 1;
inline constexpr int kBranchSizeRow = 2;  // isometrics and plans
inline constexpr int kPidLineRow = 2;
inline constexpr int kLineRow = 3;  // isometrics and plans
