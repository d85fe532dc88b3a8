// The dialog for new line numbers: what it refuses, what it writes, and how it is used.
#include <gmock/gmock.h>

#include "palette_fixture.h"

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;

namespace {

constexpr wchar_t kTitle[] = L"TESSARC - Create New Line Number";
constexpr wchar_t kInvalid[] = L"Please enter a valid line number to create.";
constexpr wchar_t kExists[] =
    L"The line number already exists.\n\nPlease enter a different line number to create.";
constexpr wchar_t kUnchecked[] =
    L"The line number has been unchecked in the Standards Manager.\n\nPlease enter a different line number "
    L"to "
    L"create or use\nthe Standards Manager to check on the line number for use.";

class NewLine : public PaletteTest {
  protected:
    // A flow diagram of the standard 5, which keeps its lines itself.
    void StartWithDrawing() { PaletteTest::StartWithDrawing(kAppPid); }
    // A flow diagram of the standard 6, which keeps the lines of each drawing in a file of its own.
    void StartWithLocalLines() {
        UseUsualDatabase();
        m_database.WithLocalLines(6, InRoot(L"Local"));
        PutFile(LocalFile(),
                Lines({"[LineList]", "KV2D_LINE_1 = L-1", "", "[DeletedLines]", "KV2D_LINE_2 = L-2"}));
        PutFile(InRoot(L"Local\\LineDatafile.ini"), Lines({"[General]", "LastLineId = 2"}));
        StartPalette(kAppPid);
        const std::wstring path = InRoot(L"KV2D_PRJ_6\\Plant.dwg");
        PutDrawing(path,
                   [this](AcDbDatabase&) { Store([](CKV2D_DocXData& data) { data.m_appId = kAppPid; }); });
        Open(path);
    }
    std::wstring LocalFile() { return InRoot(L"Local\\PID_6_Plantline.ini"); }

    // Opens the dialog by the palette's button; `action` works in it. A dialog that is still there then is
    // cancelled.
    void Use(const std::function<void(HWND)>& action) {
        const windows::WhenDialogOpens opened([&](HWND dialog) {
            action(dialog);
            windows::PumpWaiting();
            if (IsWindow(dialog)) windows::PostClick(dialog, IDCANCEL);
        });
        windows::Click(Palette().Dialog(), IDC_PALETTE_NEW_LINE);
        windows::PumpWaiting();
    }
    void Create(const std::wstring& name) {
        Use([&](HWND dialog) {
            windows::SetText(dialog, IDC_NEW_LINE_NUMBER, name);
            windows::Click(dialog, IDOK);
        });
    }
    // Types into the dialog and presses keys, which go through its own message loop and must end it.
    void UseKeys(const std::wstring& text, const std::vector<WPARAM>& keys) {
        const windows::WhenDialogOpens opened([&](HWND dialog) {
            const HWND edit = GetDlgItem(dialog, IDC_NEW_LINE_NUMBER);
            EXPECT_EQ(GetFocus(), edit) << "it can be typed into at once";
            windows::Type(edit, text);
            for (const WPARAM key : keys)
                windows::PostKey(edit, key);
        });
        windows::Click(Palette().Dialog(), IDC_PALETTE_NEW_LINE);
        windows::PumpWaiting();
    }
    // The boxes that come when `name` is entered, and what the edit shows behind them.
    std::vector<windows::Box> Refusal(const std::wstring& name, std::wstring* editText = nullptr) {
        const windows::BoxAnswers boxes({IDOK});
        Use([&](HWND dialog) {
            windows::SetText(dialog, IDC_NEW_LINE_NUMBER, name);
            windows::Click(dialog, IDOK);
            EXPECT_TRUE(IsWindowVisible(dialog)) << "it stays open";
            if (editText) *editText = windows::TextOf(dialog, IDC_NEW_LINE_NUMBER);
        });
        for (const windows::Box& box : boxes.Shown()) {
            EXPECT_EQ(box.caption, kTitle);
            EXPECT_EQ(box.buttons.size(), 1u);
            EXPECT_NE(box.icon, nullptr);
        }
        return boxes.Shown();
    }
    void ExpectRefusal(const std::wstring& name, const std::wstring& text) {
        const std::vector<windows::Box> boxes = Refusal(name);
        ASSERT_EQ(boxes.size(), 1u);
        EXPECT_EQ(boxes[0].text, text);
    }
    std::string LinesFile() { return GetBytes(m_database.GetProjectFolder(5) + L"Lines.ini"); }
};

}  // namespace

TEST_F(NewLine, Dialog_LooksAsItsTemplateSays) {
    StartWithDrawing();
    Use([](HWND dialog) {
        EXPECT_EQ(windows::TextOf(dialog), L"New Line Number");
        EXPECT_EQ(windows::TextOf(dialog, IDOK), L"OK");
        EXPECT_EQ(windows::TextOf(dialog, IDCANCEL), L"Cancel");
        EXPECT_EQ(windows::TextOf(dialog, IDC_NEW_LINE_NUMBER), L"");
        const HWND label = FindWindowExW(dialog, nullptr, L"Static", nullptr);
        EXPECT_EQ(windows::TextOf(label), L"Enter a line number to create:");
        EXPECT_EQ(GetWindowLongPtrW(label, GWL_STYLE) & SS_TYPEMASK, SS_LEFTNOWORDWRAP)
            << "a wrapped last word would be out of sight";
        RECT edit{12, 24, 12 + 102, 24 + 14}, ok{126, 6, 126 + 50, 6 + 14}, is{};
        MapDialogRect(dialog, &edit);
        MapDialogRect(dialog, &ok);
        GetWindowRect(GetDlgItem(dialog, IDC_NEW_LINE_NUMBER), &is);
        MapWindowPoints(nullptr, dialog, reinterpret_cast<POINT*>(&is), 2);
        EXPECT_TRUE(EqualRect(&is, &edit));
        GetWindowRect(GetDlgItem(dialog, IDOK), &is);
        MapWindowPoints(nullptr, dialog, reinterpret_cast<POINT*>(&is), 2);
        EXPECT_TRUE(EqualRect(&is, &ok));
    });
}

TEST_F(NewLine, FreeName_JoinsTheProjectAndBecomesTheDrawingsLine) {
    StartWithDrawing();
    Create(L"  8\"-CW  ");
    EXPECT_THAT(LinesFile(), HasSubstr("KV2D_LINE_15 = 8\"-CW\r\n"));
    EXPECT_EQ(Stored(&CKV2D_DocXData::m_lineId), 15);
    EXPECT_THAT(Palette().Items(kPidLineRow), Contains(L"8\"-CW"));
    EXPECT_EQ(Palette().Choice(kPidLineRow), L"8\"-CW");
    EXPECT_THAT(GetBytes(InData(L"LineDatafile.ini")), HasSubstr("LastLineId = 15"));
}

TEST_F(NewLine, Command_OpensTheSameDialog) {
    StartWithDrawing();
    {
        const windows::WhenDialogOpens opened([](HWND dialog) {
            windows::SetText(dialog, IDC_NEW_LINE_NUMBER, L"By command");
            windows::Click(dialog, IDOK);
        });
        Enter(L"kv2dNewLineNumber");
    }
    EXPECT_THAT(LinesFile(), HasSubstr("= By command\r\n"));
    EXPECT_EQ(Palette().Choice(kPidLineRow), L"By command");
}

TEST_F(NewLine, EmptyOrDash_IsNoName) {
    StartWithDrawing();
    for (const wchar_t* name : {L"", L"   ", L"-", L"  - "})
        ExpectRefusal(name, kInvalid);
}

TEST_F(NewLine, TrimmedName_StandsInTheEditBehindTheBox) {
    StartWithDrawing();
    std::wstring shown;
    Refusal(L"   p-12  ", &shown);
    EXPECT_EQ(shown, L"p-12");
}

TEST_F(NewLine, NameOfALine_InAnyCase_IsTaken) {
    StartWithDrawing();
    const std::string before = LinesFile();
    ExpectRefusal(L"P-12", kExists);
    ExpectRefusal(L"p-12", kExists);
    EXPECT_EQ(LinesFile(), before);
    EXPECT_EQ(Stored(&CKV2D_DocXData::m_lineId), 0);
}

TEST_F(NewLine, NameOfADeletedLine_IsLeftToTheStandardsManager) {
    StartWithDrawing();
    ExpectRefusal(L"p-14", kUnchecked);
}

TEST_F(NewLine, FilteredLine_IsStillTaken) {
    StartWithDrawing();
    FilterLines({11});
    Refill();
    EXPECT_THAT(Palette().Items(kPidLineRow), Not(Contains(L"P-11")));
    ExpectRefusal(L"P-11", kExists);
}

TEST_F(NewLine, AfterARefusal_AnotherNameCanBeEntered) {
    StartWithDrawing();
    const windows::BoxAnswers boxes({IDOK});
    Use([](HWND dialog) {
        windows::SetText(dialog, IDC_NEW_LINE_NUMBER, L"P-12");
        windows::Click(dialog, IDOK);
        windows::SetText(dialog, IDC_NEW_LINE_NUMBER, L"P-99");
        windows::Click(dialog, IDOK);
    });
    EXPECT_EQ(Palette().Choice(kPidLineRow), L"P-99");
}

TEST_F(NewLine, AfterARefusal_TheKeyboardIsItsOwnAndTheMainWindowStaysDisabled) {
    StartWithDrawing();
    const windows::BoxAnswers boxes({IDOK});
    Use([](HWND dialog) {
        windows::SetText(dialog, IDC_NEW_LINE_NUMBER, L"P-12");
        windows::Click(dialog, IDOK);
        EXPECT_EQ(GetFocus(), GetDlgItem(dialog, IDC_NEW_LINE_NUMBER));
        EXPECT_FALSE(IsWindowEnabled(GetWindow(dialog, GW_OWNER)));
        windows::Click(dialog, IDCANCEL);
    });
    EXPECT_EQ(boxes.Shown().size(), 1u);
}

TEST_F(NewLine, Cancel_WritesNothing) {
    StartWithDrawing();
    const std::string before = LinesFile();
    Use([](HWND dialog) {
        windows::SetText(dialog, IDC_NEW_LINE_NUMBER, L"P-99");
        windows::Click(dialog, IDCANCEL);
    });
    EXPECT_EQ(LinesFile(), before);
    EXPECT_THAT(GetBytes(InData(L"LineDatafile.ini")), HasSubstr("LastLineId = 14"));
    EXPECT_EQ(Stored(&CKV2D_DocXData::m_lineId), 0);
}

TEST_F(NewLine, LineThatCannotBeRenamed_IsToldAndTheDialogCloses) {
    StartWithDrawing();
    // Somebody reads the file, so that the new line does not get into it.
    const auto held = HoldFile(m_database.GetProjectFolder(5) + L"Lines.ini", platform::Hold::kReading);
    const windows::BoxAnswers boxes({IDOK});
    Create(L"P-99");
    ASSERT_EQ(boxes.Shown().size(), 1u);
    EXPECT_EQ(boxes.Shown()[0].text, L"Error renaming new line.\n\nCan't find line");
    EXPECT_EQ(Stored(&CKV2D_DocXData::m_lineId), 15);
}

TEST_F(NewLine, DrawingWithoutAProject_CannotCreate_AndTellsTheListsError) {
    UseUsualDatabase();
    StartPalette(kAppPid);
    NewDrawing(0);
    const windows::BoxAnswers boxes({IDOK});
    {
        const windows::WhenDialogOpens opened([](HWND dialog) {
            windows::SetText(dialog, IDC_NEW_LINE_NUMBER, L"P-99");
            windows::Click(dialog, IDOK);
            EXPECT_TRUE(IsWindowVisible(dialog));
            windows::PostClick(dialog, IDCANCEL);
        });
        Enter(L"kv2dNewLineNumber");
    }
    ASSERT_EQ(boxes.Shown().size(), 1u);
    EXPECT_EQ(boxes.Shown()[0].text,
              L"Error creating new line.\n\n" + GetLineErrorText(kLineInvalidProjectId));
}

TEST_F(NewLine, WithoutAPalette_TheCommandStillCreates) {
    UseUsualDatabase();
    Start();
    EXPECT_EQ(acDocManager->appContextNewDocument(nullptr), Acad::eOk);
    Store([](CKV2D_DocXData& data) { data.m_projectId = 5; });
    {
        const windows::WhenDialogOpens opened([](HWND dialog) {
            windows::SetText(dialog, IDC_NEW_LINE_NUMBER, L"P-99");
            windows::Click(dialog, IDOK);
        });
        Enter(L"kv2dNewLineNumber");
    }
    EXPECT_EQ(Stored(&CKV2D_DocXData::m_lineId), 15);
}

// --- lines per drawing

TEST_F(NewLine, LocalLines_JoinTheDrawingsOwnFile) {
    StartWithLocalLines();
    Create(L"L-3");
    EXPECT_THAT(GetBytes(LocalFile()), HasSubstr("KV2D_LINE_3 = L-3\r\n"));
    EXPECT_THAT(LinesFile(), Not(HasSubstr("L-3")));
    EXPECT_EQ(Stored(&CKV2D_DocXData::m_lineId), 3);
    EXPECT_EQ(Palette().Choice(kPidLineRow), L"L-3");
}

TEST_F(NewLine, LocalLines_RefuseLiveAndDeletedNames) {
    StartWithLocalLines();
    ExpectRefusal(L"", kInvalid);
    ExpectRefusal(L"-", kInvalid);
    ExpectRefusal(L"l-1", kExists);
    ExpectRefusal(L"l-2", kUnchecked);
}

TEST_F(NewLine, LocalLines_LineThatCannotBeRenamed_IsToldAndTheDialogCloses) {
    StartWithLocalLines();
    const auto held = HoldFile(LocalFile(), platform::Hold::kReading);
    const windows::BoxAnswers boxes({IDOK});
    Create(L"L-3");
    ASSERT_EQ(boxes.Shown().size(), 1u);
    EXPECT_EQ(boxes.Shown()[0].text, L"Error renaming new line.\n\nCan't find line");
    EXPECT_EQ(Stored(&CKV2D_DocXData::m_lineId), 3);
}

TEST_F(NewLine, LocalLines_NameOfTheProjectsLine_IsFree) {
    StartWithLocalLines();
    Create(L"P-11");
    EXPECT_EQ(Palette().Choice(kPidLineRow), L"P-11");
}

// --- keys

TEST_F(NewLine, TypingAndEnter_CreatesTheLine) {
    StartWithDrawing();
    UseKeys(L"P-77", {VK_RETURN});
    EXPECT_EQ(Palette().Choice(kPidLineRow), L"P-77");
}

TEST_F(NewLine, Escape_Cancels) {
    StartWithDrawing();
    UseKeys(L"P-77", {VK_ESCAPE});
    EXPECT_THAT(LinesFile(), Not(HasSubstr("P-77")));
}

TEST_F(NewLine, Tab_GoesFromTheEditToOkToCancelAndRound) {
    StartWithDrawing();
    UseKeys(L"to OK", {VK_TAB, VK_RETURN});
    EXPECT_EQ(Palette().Choice(kPidLineRow), L"to OK");
    UseKeys(L"to Cancel", {VK_TAB, VK_TAB, VK_RETURN});
    EXPECT_THAT(LinesFile(), Not(HasSubstr("to Cancel")));
    UseKeys(L"round", {VK_TAB, VK_TAB, VK_TAB, VK_RETURN});
    EXPECT_EQ(Palette().Choice(kPidLineRow), L"round");
}
