// Details of the Drawing Manager that a user meets one by one: tooltips, what puts a balloon away and where
// each balloon stands, the look of its boxes, the help, a folder that another program makes in between.
#include <gmock/gmock.h>

#include <map>

#include "dm_fixture.h"
#include "drawing_manager/manager_registry.h"
#include "resources/resource.h"
#include "storage/install_paths.h"
#include "storage/registry_settings.h"

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

namespace {

std::vector<std::wstring> g_topics;

class DrawingManagerDetails : public DrawingManagerTest {
  protected:
    // The tooltip texts of the dialog's buttons, by control id.
    static std::map<int, std::wstring> Tooltips(const ManagerDriver& driver) {
        std::map<int, std::wstring> texts;
        for (int id : {IDC_OPEN_STANDARD, IDC_SHOW_HIDE, IDC_OPEN_DRAWING, IDC_NEW_DRAWING, IDC_COPY_DRAWING,
                       IDC_RENAME_DRAWING, IDC_DELETE_DRAWING, IDC_EXPLORE}) {
            texts[id] = TooltipOf(windows::Control(driver.Dialog(), id));
        }
        return texts;
    }
    static std::wstring TooltipOf(HWND button) {
        struct Search {
            HWND button;
            std::wstring text;
        } search{button, {}};
        EnumThreadWindows(
            GetCurrentThreadId(),
            [](HWND window, LPARAM found) -> BOOL {
                auto* result = reinterpret_cast<Search*>(found);
                if (windows::ClassOf(window) != TOOLTIPS_CLASSW) return TRUE;
                wchar_t text[200] = L"";
                TOOLINFOW tool{};
                tool.cbSize = sizeof tool;
                tool.lpszText = text;
                if (!SendMessageW(window, TTM_ENUMTOOLSW, 0, reinterpret_cast<LPARAM>(&tool))) return TRUE;
                const bool isButtons =
                    tool.hwnd == result->button || tool.uId == reinterpret_cast<UINT_PTR>(result->button);
                if (isButtons) result->text = text;
                return !isButtons;
            },
            reinterpret_cast<LPARAM>(&search));
        return search.text;
    }
    static CRect ScreenRectOf(HWND window) {
        CRect rect;
        GetWindowRect(window, rect);
        return rect;
    }
    // Where the corner of a balloon `width` wide that hangs from a point is.
    static CPoint CornerBelow(CPoint point, int width) {
        return {std::max(0L, point.x - width / 2), point.y - GetSystemMetrics(SM_CYSIZEFRAME)};
    }
};

// The files of the test, with a look at each question for attributes.
class WatchedFiles : public platform::Files {
  public:
    WatchedFiles()
        : m_real(platform::GetFiles()),
          m_services{*this,
                     platform::GetRegistry(),
                     platform::GetEnvironment(),
                     platform::GetClock(),
                     platform::GetGuids(),
                     platform::GetProcesses(),
                     platform::GetBoxes(),
                     platform::GetText()},
          m_previous(platform::Install(&m_services)) {}
    ~WatchedFiles() override { platform::Install(m_previous); }

    std::function<void(const std::wstring&)> m_asked;  // after the answer is known

    std::uint32_t GetAttributes(const std::wstring& path) override {
        const std::uint32_t attributes = m_real.GetAttributes(path);
        if (m_asked) m_asked(path);
        return attributes;
    }
    platform::ErrorCode ReadBytes(const std::wstring& path, platform::Sharing sharing,
                                  std::string& bytes) override {
        return m_real.ReadBytes(path, sharing, bytes);
    }
    platform::WriteResult WriteBytes(const std::wstring& path, std::string_view bytes) override {
        return m_real.WriteBytes(path, bytes);
    }
    platform::ErrorCode SetAttributes(const std::wstring& path, std::uint32_t attributes) override {
        return m_real.SetAttributes(path, attributes);
    }
    platform::ErrorCode GetStatus(const std::wstring& path, platform::FileStatus& status) override {
        return m_real.GetStatus(path, status);
    }
    std::vector<platform::FoundEntry> Find(const std::wstring& pattern) override {
        return m_real.Find(pattern);
    }
    platform::ErrorCode Move(const std::wstring& from, const std::wstring& to) override {
        return m_real.Move(from, to);
    }
    platform::ErrorCode Copy(const std::wstring& from, const std::wstring& to, bool failIfExists) override {
        return m_real.Copy(from, to, failIfExists);
    }
    platform::ErrorCode Remove(const std::wstring& path) override { return m_real.Remove(path); }
    platform::ErrorCode MakeFolder(const std::wstring& path) override { return m_real.MakeFolder(path); }
    platform::ErrorCode RemoveFolder(const std::wstring& path) override { return m_real.RemoveFolder(path); }

  private:
    platform::Files& m_real;
    platform::Platform m_services;
    platform::Platform* m_previous;
};

}  // namespace

// Stands in for the system's help viewer: the registry of the help test names this program as its library.
extern "C" __declspec(dllexport) HWND WINAPI
    HtmlHelpW(HWND caller, LPCWSTR file, UINT command, DWORD_PTR data) {
    EXPECT_EQ(caller, nullptr);
    EXPECT_EQ(command, 0u);
    EXPECT_EQ(data, 0u);
    g_topics.emplace_back(file);
    return nullptr;
}

TEST_F(DrawingManagerDetails, Tooltips_NameEachButton) {
    UseUsualDatabase();
    Run([](ManagerDriver& driver) {
        const std::map<int, std::wstring> shown = {
            {IDC_OPEN_STANDARD, L"Open Standard"}, {IDC_SHOW_HIDE, L"Hide Drawings"},
            {IDC_OPEN_DRAWING, L"Open Drawing"},   {IDC_NEW_DRAWING, L"New"},
            {IDC_COPY_DRAWING, L"Copy"},           {IDC_RENAME_DRAWING, L"Rename"},
            {IDC_DELETE_DRAWING, L"Delete"},       {IDC_EXPLORE, L"Open folder in Windows Explorer"}};
        EXPECT_EQ(Tooltips(driver), shown);
        windows::Click(driver.Dialog(), IDC_SHOW_HIDE);
        EXPECT_EQ(Tooltips(driver)[IDC_SHOW_HIDE], L"Show Drawings");
        windows::Click(driver.Dialog(), IDC_SHOW_HIDE);
        EXPECT_EQ(Tooltips(driver)[IDC_SHOW_HIDE], L"Hide Drawings");
    });
}

TEST_F(DrawingManagerDetails, ButtonIcons_Are24PixelsLarge) {
    UseUsualDatabase();
    Run([](ManagerDriver& driver) {
        CWnd* button = CWnd::FromHandle(windows::Control(driver.Dialog(), IDC_SHOW_HIDE));
        button->RedrawWindow();
        CClientDC shown(button);
        CDC expected;
        CBitmap bitmap;
        expected.CreateCompatibleDC(&shown);
        bitmap.CreateCompatibleBitmap(&shown, 30, 30);
        CBitmap* before = expected.SelectObject(&bitmap);
        CBrush ground(GetSysColor(COLOR_BTNFACE));
        expected.FillRect(CRect(0, 0, 30, 30), &ground);
        const LPCTSTR name = MAKEINTRESOURCE(IDI_SHOW_HIDE);
        const auto icon = static_cast<HICON>(
            LoadImageW(AfxFindResourceHandle(name, RT_GROUP_ICON), name, IMAGE_ICON, 24, 24, 0));
        DrawIconEx(expected, 3, 3, icon, 24, 24, 0, nullptr, DI_NORMAL);
        int differences = 0;
        for (int y = 2; y < 28; ++y) {
            for (int x = 2; x < 28; ++x)
                differences += shown.GetPixel(x, y) != expected.GetPixel(x, y) ? 1 : 0;
        }
        EXPECT_EQ(differences, 0);
        expected.SelectObject(before);
        DestroyIcon(icon);
    });
}

// --- balloons

TEST_F(DrawingManagerDetails, Commands_PutTheBalloonAwayFirst) {
    UseUsualDatabase();
    AddStandardWithoutLocation(7, "Yard");
    Run([](ManagerDriver& driver) {
        for (int id :
             {IDC_OPEN_DRAWING, ID_DRAWINGS_OPEN, ID_DRAWINGS_OPENREADONLY, IDC_NEW_DRAWING, ID_DRAWINGS_NEW,
              IDC_COPY_DRAWING, ID_DRAWINGS_COPY, IDC_RENAME_DRAWING, ID_DRAWINGS_RENAME, IDC_DELETE_DRAWING,
              ID_DRAWINGS_DELETE, ID_DRAWINGS_SHOWBACKUPS, ID_DRAWINGS_REFRESHLIST, IDOK, IDC_SHOW_HIDE}) {
            driver.SelectItem({L"Acme"});
            driver.SelectItem({L"Yard"});
            const HWND balloon = FindBalloon();
            ASSERT_NE(balloon, nullptr) << id;
            driver.Command(id);
            EXPECT_FALSE(IsWindow(balloon)) << id;
        }
    });
}

TEST_F(DrawingManagerDetails, Escape_PutsTheBalloonAwayBeforeItAsks) {
    UseUsualDatabase();
    AddStandardWithoutLocation(7, "Yard");
    SetValue(kProjectIdValue, 0);
    windows::BoxAnswers boxes({IDNO, IDYES});
    Run([](ManagerDriver& driver) {
        driver.SelectItem({L"Yard"});
        const HWND balloon = FindBalloon();
        ASSERT_NE(balloon, nullptr);
        driver.Escape();
        EXPECT_TRUE(IsWindowVisible(driver.Dialog()));
        EXPECT_FALSE(IsWindow(balloon));
    });
}

TEST_F(DrawingManagerDetails, SingleDoc_LeavesTheBalloon) {
    UseUsualDatabase();
    AddStandardWithoutLocation(7, "Yard");
    Run([](ManagerDriver& driver) {
        driver.SelectItem({L"Yard"});
        const HWND balloon = FindBalloon();
        ASSERT_NE(balloon, nullptr);
        driver.Command(IDC_SINGLE_DOC);
        EXPECT_TRUE(IsWindow(balloon));
    });
}

TEST_F(DrawingManagerDetails, PopupMenus_PutTheBalloonAway) {
    UseUsualDatabase();
    AddStandardWithoutLocation(7, "Yard");
    Run([](ManagerDriver& driver) {
        driver.SelectItem({L"Yard"});
        HWND balloon = FindBalloon();
        ASSERT_NE(balloon, nullptr);
        driver.PopupAt(driver.List(), driver.PointOnList());
        EXPECT_FALSE(IsWindow(balloon));
        driver.SelectItem({L"Acme"});
        driver.SelectItem({L"Yard"});
        balloon = FindBalloon();
        ASSERT_NE(balloon, nullptr);
        driver.PopupAt(driver.Tree(), driver.PointOnEmptyTree());
        EXPECT_FALSE(IsWindow(balloon));
    });
}

TEST_F(DrawingManagerDetails, NoteAboutTheDefaultDrawing_HangsFromTheMiddleOfTheList) {
    UseUsualDatabase();
    PutFile(InRoot(L"Tanks\\Drawing1.dwg"), "x");
    Run([](ManagerDriver& driver) {
        driver.ResizeTo(1000, 600);
        driver.SelectItem({L"Tank Farm"});
        const HWND balloon = FindBalloon();
        ASSERT_NE(balloon, nullptr);
        CRect list = ScreenRectOf(driver.List());
        list.DeflateRect(20, 0);
        EXPECT_EQ(ScreenRectOf(balloon).TopLeft(), CornerBelow(list.CenterPoint(), list.Width()));
    });
}

TEST_F(DrawingManagerDetails, NoteAboutALock_IsAsWideAsTheListAndHangsFromTheLabel) {
    UseUsualDatabase();
    PutDrawings({L"A.dwg", L"B.dwg"});
    PutFile(InDrawings(L"B.dwl"), Lines({"anna", "WS7", "2026-11-20 10:00"}));
    Run([](ManagerDriver& driver) {
        driver.ClickRow(L"B");
        ASSERT_TRUE(windows::WaitFor([] { return FindBalloon() != nullptr; }));
        RECT label{LVIR_LABEL, 0, 0, 0};
        SendMessageW(driver.List(), LVM_GETITEMRECT, 1, reinterpret_cast<LPARAM>(&label));
        const CRect list = ScreenRectOf(driver.List());
        EXPECT_EQ(ScreenRectOf(FindBalloon()).TopLeft(),
                  CornerBelow(CPoint(list.left + label.right, list.top + label.bottom), list.Width() - 40));
    });
}

TEST_F(DrawingManagerDetails, ClickWithTwoRowsSelected_ShowsNoNote) {
    UseUsualDatabase();
    PutDrawings({L"A.dwg", L"B.dwg"});
    SetReadOnly(InDrawings(L"A.dwg"));
    SetReadOnly(InDrawings(L"B.dwg"));
    Run([](ManagerDriver& driver) {
        driver.SelectRows({L"A", L"B"});
        NMHDR click{driver.List(), IDC_DRAWING_LIST, static_cast<UINT>(NM_CLICK)};
        SendMessageW(driver.Dialog(), WM_NOTIFY, IDC_DRAWING_LIST, reinterpret_cast<LPARAM>(&click));
        EXPECT_EQ(FindBalloon(), nullptr);
        driver.SelectRows({L"A"});
        SendMessageW(driver.Dialog(), WM_NOTIFY, IDC_DRAWING_LIST, reinterpret_cast<LPARAM>(&click));
        EXPECT_NE(FindBalloon(), nullptr);
    });
    SetReadOnly(InDrawings(L"A.dwg"), false);
    SetReadOnly(InDrawings(L"B.dwg"), false);
}

// --- boxes

TEST_F(DrawingManagerDetails, Boxes_CarryTheirIcons) {
    UseUsualDatabase();
    SetValue(kProjectIdValue, 0);
    PutFile(InDrawings(L"A\\x.txt"), "x");
    PutDrawings({L"P-1.dwg"});
    const auto shown = RunAndAnswer({IDNO, IDNO, IDOK, IDOK, IDYES}, [](ManagerDriver& driver) {
        driver.Escape();
        driver.SelectItem({L"Acme", L"Pump House"});
        driver.SelectRows({L"P-1"});
        windows::Click(driver.Dialog(), IDC_DELETE_DRAWING);
        driver.SelectItem({L"Acme", L"Pump House", L"A"});
        driver.Command(ID_PROJECTS_DELETE);
        windows::Click(driver.Dialog(), IDC_HELP_BUTTON);
    });
    ASSERT_THAT(shown, SizeIs(5));
    const auto iconOf = [](LPCWSTR name) { return LoadIconW(nullptr, name); };
    EXPECT_EQ(shown[0].icon, iconOf(IDI_QUESTION));
    EXPECT_EQ(shown[1].icon, iconOf(IDI_EXCLAMATION));
    EXPECT_EQ(shown[2].icon, iconOf(IDI_HAND));
    EXPECT_EQ(shown[3].icon, iconOf(IDI_HAND));
    EXPECT_EQ(shown[3].text, L"Couldn't find help file: \n" + GetHelpFilePath(g_nPaletteDiscipline) +
                                 L"\n\nPlease check software installation.");
    EXPECT_NE(shown[3].caption, L"Drawing Manager");
}

// --- help

TEST_F(DrawingManagerDetails, Help_ShowsTheDisciplinesFirstTopic) {
    UseUsualDatabase();
    SetMachineValue(L"LocalAppPath", InRoot(L"Local"));
    wchar_t program[MAX_PATH];
    GetModuleFileNameW(nullptr, program, MAX_PATH);
    platform::GetRegistry().WriteString(platform::Hive::kClassesRoot,
                                        L"CLSID\\{ADB880A6-D8FF-11CF-9377-00AA003B7A11}\\InprocServer32", L"",
                                        program);
    const std::wstring file = GetHelpFilePath(g_nPaletteDiscipline);
    PutFile(file, "help");
    const auto shown = RunAndAnswer({}, [](ManagerDriver& driver) {
        windows::Click(driver.Dialog(), IDC_HELP_BUTTON);
        windows::Click(driver.Dialog(), IDC_HELP_BUTTON);
    });
    EXPECT_THAT(shown, IsEmpty());
    const std::wstring topic = file + L"::/Starting_PID.htm";
    EXPECT_THAT(g_topics, ElementsAre(topic, topic));
}

// --- the shell

TEST_F(DrawingManagerDetails, Explore_HandsTheLocationToTheShell) {
    UseUsualDatabase();
    const std::wstring note = InRoot(L"explored.txt");
    platform::GetRegistry().WriteString(platform::Hive::kClassesRoot, L"Folder\\shell\\explore\\command", L"",
                                        L"cmd.exe /c echo %1>" + note);
    Run([&](ManagerDriver& driver) {
        windows::Click(driver.Dialog(), IDC_EXPLORE);
        EXPECT_TRUE(windows::WaitFor([&] { return HasFile(note) && !GetBytes(note).empty(); },
                                     std::chrono::seconds(60)));
    });
    EXPECT_NE(GetBytes(note).find(platform::GetText().Narrow(InRoot(L"Drawings"))), std::string::npos)
        << GetBytes(note);
}

// --- folders that others make

TEST_F(DrawingManagerDetails, NewFolderThatAnotherProgramMakesInBetween_IsSelectedForItsName) {
    UseUsualDatabase();
    PutFolder(InDrawings(L"A"));
    PutFolder(InDrawings(L"New Folder (1)"));
    const std::wstring second = InDrawings(L"New Folder (2)");
    Run([&](ManagerDriver& driver) {
        WatchedFiles files;
        files.m_asked = [&](const std::wstring& path) {
            if (path == second) CreateDirectoryW(path.c_str(), nullptr);
        };
        driver.Command(ID_PROJECTS_NEWFOLDER);
        EXPECT_EQ(driver.SelectedLabel(), L"New Folder (2)");
        EXPECT_EQ(driver.Location(), second + L"\\");
        ASSERT_NE(driver.TreeEdit(), nullptr);
        EXPECT_EQ(windows::TextOf(driver.TreeEdit()), L"New Folder (2)");
        windows::EndLabelEdit(driver.TreeEdit(), L"Mine");
        EXPECT_TRUE(HasFolder(InDrawings(L"Mine")));
    });
}

TEST_F(DrawingManagerDetails, NewFolderOnAClient_LooksForItsNameInTheProcessesFolder) {
    UseUsualDatabase();
    std::vector<std::wstring> asked;
    Run([&](ManagerDriver& driver) {
        driver.SelectItem({L"Acme"});
        WatchedFiles files;
        files.m_asked = [&](const std::wstring& path) { asked.push_back(path); };
        driver.Command(ID_PROJECTS_NEWFOLDER);
        asked.resize(std::min<size_t>(asked.size(), 1));
    });
    EXPECT_THAT(asked, ElementsAre(L"New Folder (1)"));
}

TEST_F(DrawingManagerDetails, DeletedFolder_LeavesTheLocationOfWhatIsSelectedThen) {
    UseUsualDatabase();
    PutFile(InDrawings(L"B\\P-1.dwg"), "x");
    PutFolder(InDrawings(L"A"));
    Run([&](ManagerDriver& driver) {
        driver.SelectItem({L"Acme", L"Pump House", L"A"});
        driver.Command(ID_PROJECTS_DELETE);
        const std::wstring label = driver.SelectedLabel();
        const std::wstring expected =
            label == L"Pump House" ? InRoot(L"Drawings\\") : InDrawings(label + L"\\");
        EXPECT_EQ(driver.Location(), expected);
    });
}

// --- the list

TEST_F(DrawingManagerDetails, DrawingAndBackup_HaveTheirOwnDates) {
    UseUsualDatabase();
    PutDrawings({L"A.dwg", L"A.bak"});
    SetValue(kBackupStateValue, 8);
    constexpr platform::FileTime day = 24LL * 3600 * 10'000'000;
    SetModified(InDrawings(L"A.bak"), GetModified(InDrawings(L"A.dwg")) - 40 * day);
    Run([](ManagerDriver& driver) {
        EXPECT_THAT(driver.Cell(L"A.bak", 2), SizeIs(19));
        EXPECT_LT(driver.Cell(L"A.bak", 2), driver.Cell(L"A", 2));
    });
}

TEST_F(DrawingManagerDetails, ReturnDuringAnEditInTheList_EndsTheEditAndNotTheDialog) {
    UseUsualDatabase();
    PutDrawings({L"A.dwg"});
    Run([&](ManagerDriver& driver) {
        const HWND edit = driver.EditRow(L"A");
        ASSERT_NE(edit, nullptr);
        SetWindowTextW(edit, L"B");
        EXPECT_TRUE(driver.PressInLabelEdit(edit, VK_RETURN));
        EXPECT_TRUE(IsWindowVisible(driver.Dialog()));
        EXPECT_THAT(driver.Rows(), ElementsAre(L"B"));
    });
}
