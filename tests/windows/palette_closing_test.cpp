// Documents that another program closes in the middle of an event, while the module's reactors and its
// palette are at work: nothing falls over, the palette shows the drawing that is current then, and no drawing
// gets what was meant for another.
//
// The other program hears of each event before the module or behind it.
#include <aced.h>
#include <gmock/gmock.h>

#include <optional>

#include "document/drawing_queries.h"
#include "palette_fixture.h"

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

enum class Turn { kBeforeModule, kBehindModule };

// What a new drawing goes through on its way in.
constexpr const wchar_t* kArrivalEvents[] = {L"created", L"toBeActivated", L"becameCurrent", L"activated"};
// What the palette sets off when it stores and shows an isoplane, as far as the drawing can be closed in it.
constexpr const wchar_t* kIsoplaneEvents[] = {L"lockWillChange", L"unlockChanged", L"sysVarWillChange",
                                              L"sysVarChanged"};

// Closes a document in the first event of a name: the one that the event tells of, else the current one.
class Closer : public AcApDocManagerReactor {
  public:
    Closer() : m_editor(*this) {
        acDocManager->addReactor(this);
        acedEditor->addReactor(&m_editor);
    }
    ~Closer() override {
        if (!acDocManager) return;
        acDocManager->removeReactor(this);
        acedEditor->removeReactor(&m_editor);
    }

    void CloseIn(const std::wstring& event, AcApDocument* document = nullptr) {
        m_event = event;
        m_document = document;
        m_result.reset();
    }
    // What the host said to the closing; nothing if the event never came.
    std::optional<Acad::ErrorStatus> Result() const { return m_result; }

    void documentCreateStarted(AcApDocument* d) override { Hear(L"createStarted", d); }
    void documentCreated(AcApDocument* d) override { Hear(L"created", d); }
    void documentToBeDestroyed(AcApDocument* d) override { Hear(L"toBeDestroyed", d); }
    void documentDestroyed(const ACHAR*) override { Hear(L"destroyed", nullptr); }
    void documentLockModeWillChange(AcApDocument* d, AcAp::DocLockMode, AcAp::DocLockMode to,
                                    AcAp::DocLockMode, const ACHAR*) override {
        Hear(to == AcAp::kNotLocked ? L"unlockWillChange" : L"lockWillChange", d);
    }
    void documentLockModeChanged(AcApDocument* d, AcAp::DocLockMode, AcAp::DocLockMode to, AcAp::DocLockMode,
                                 const ACHAR*) override {
        Hear(to == AcAp::kNotLocked ? L"unlockChanged" : L"lockChanged", d);
    }
    void documentBecameCurrent(AcApDocument* d) override { Hear(L"becameCurrent", d); }
    void documentToBeActivated(AcApDocument* d) override { Hear(L"toBeActivated", d); }
    void documentToBeDeactivated(AcApDocument* d) override { Hear(L"toBeDeactivated", d); }
    void documentActivated(AcApDocument* d) override { Hear(L"activated", d); }
    void documentTitleUpdated(AcApDocument* d) override { Hear(L"titleUpdated", d); }

  private:
    class Editor : public AcEditorReactor {
      public:
        explicit Editor(Closer& closer) : m_closer(closer) {}
        void commandWillStart(const ACHAR*) override { m_closer.Hear(L"commandWillStart", nullptr); }
        void commandEnded(const ACHAR*) override { m_closer.Hear(L"commandEnded", nullptr); }
        void commandCancelled(const ACHAR*) override { m_closer.Hear(L"commandCancelled", nullptr); }
        void commandFailed(const ACHAR*) override { m_closer.Hear(L"commandFailed", nullptr); }
        void lispWillStart(const ACHAR*) override { m_closer.Hear(L"lispWillStart", nullptr); }
        void lispEnded() override { m_closer.Hear(L"lispEnded", nullptr); }
        void lispCancelled() override { m_closer.Hear(L"lispCancelled", nullptr); }
        void unknownCommand(const ACHAR*) override { m_closer.Hear(L"unknownCommand", nullptr); }
        void sysVarWillChange(const ACHAR*) override { m_closer.Hear(L"sysVarWillChange", nullptr); }
        void sysVarChanged(const ACHAR*, bool) override { m_closer.Hear(L"sysVarChanged", nullptr); }

      private:
        Closer& m_closer;
    };

    void Hear(const wchar_t* event, AcApDocument* document) {
        if (m_event != event) return;
        m_event.clear();
        AcApDocument* closing = m_document ? m_document : document ? document : acDocManager->curDocument();
        m_result = acDocManager->appContextCloseDocument(closing);
    }

    Editor m_editor;
    std::wstring m_event;
    AcApDocument* m_document = nullptr;
    std::optional<Acad::ErrorStatus> m_result;
};

// Two drawings of isometrics, of different standards and with different choices; the second is current.
class PaletteClosing : public PaletteTest, public testing::WithParamInterface<Turn> {
  protected:
    ~PaletteClosing() override { EndWithCloser(); }

    // A new session with them; one that runs is ended.
    void StartWithTwoDrawings(int app = kAppIsometric) {
        EndWithCloser();
        UseUsualDatabase();
        m_database.WithEnabledSpec(6, "KV2D_SPEC_3").WithLine(6, 21, "T-21").WithLine(6, 22, "T-22");
        StartWithCloser();
        Init(app);
        m_first = NewDrawing(5);
        Fill({.spec = 7, .mainSize = 4, .branchSize = 2, .line = 13, .isoPlane = 4});
        m_second = NewDrawing(6);
        Fill({.spec = 3, .mainSize = 7, .branchSize = 5, .line = 22, .isoPlane = 3});
    }
    void StartWithCloser() {
        Start({}, When::kLater);
        if (GetParam() == Turn::kBeforeModule) m_closer = std::make_unique<Closer>();
        LoadModule();
        if (GetParam() == Turn::kBehindModule) m_closer = std::make_unique<Closer>();
    }
    void EndWithCloser() {
        m_closer.reset();
        End();
    }

    struct Choices {
        int spec, mainSize, branchSize, line, isoPlane;
    };
    void Fill(const Choices& choices) {
        Store([&](CKV2D_DocXData& data) {
            data.m_specId = choices.spec;
            data.m_mainSize = choices.mainSize;
            data.m_branchSize = choices.branchSize;
            data.m_lineId = choices.line;
            data.m_isoPlane = choices.isoPlane;
        });
        ShowChoices();
    }

    // Project, spec, sizes, line and isoplane of the current drawing's record.
    static std::vector<int> Record() {
        const CKV2D_DocXData data(kDocXDataAppName);
        return {data.m_projectId,  data.m_specId, data.m_mainSize,
                data.m_branchSize, data.m_lineId, data.m_isoPlane};
    }
    void ExpectRowsOfFirst() {
        const PaletteWindow palette = Palette();
        EXPECT_TRUE(palette.Enabled(IDC_PALETTE_COMBO_1));
        EXPECT_THAT(palette.Items(kSpecRow), ElementsAre(L"CS150", L"SS300"));
        EXPECT_EQ(palette.Choice(kSpecRow), L"SS300");
        EXPECT_EQ(palette.ChosenIndex(kMainSizeRow), 4);
        EXPECT_EQ(palette.ChosenIndex(kBranchSizeRow), 2);
        EXPECT_THAT(palette.Items(kLineRow), ElementsAre(L"P-11", L"P-12", L"P-13"));
        EXPECT_EQ(palette.Choice(kLineRow), L"P-13");
    }
    // The first drawing is the current one, as it was, and the palette shows it and stores what is chosen.
    void ExpectFirst() {
        windows::PumpWaiting();
        ASSERT_EQ(acDocManager->curDocument(), m_first);
        EXPECT_THAT(Record(), ElementsAre(5, 7, 4, 2, 13, 4));
        EXPECT_EQ(Variable(L"SNAPSTYL"), 1);
        EXPECT_EQ(Variable(L"SNAPISOPAIR"), 0);
        ExpectRowsOfFirst();
        Choose(kSpecRow, L"CS150");
        EXPECT_EQ(Stored(&CKV2D_DocXData::m_specId), 3);
    }
    // The same of the second.
    void ExpectSecond(int mainSize = 7) {
        windows::PumpWaiting();
        ASSERT_EQ(acDocManager->curDocument(), m_second);
        EXPECT_THAT(Record(), ElementsAre(6, 3, mainSize, 5, 22, 3));
        EXPECT_EQ(Variable(L"SNAPSTYL"), 1);
        EXPECT_EQ(Variable(L"SNAPISOPAIR"), 1);
        const PaletteWindow palette = Palette();
        EXPECT_TRUE(palette.Enabled(IDC_PALETTE_COMBO_1));
        EXPECT_THAT(palette.Items(kSpecRow), ElementsAre(L"CS150"));
        EXPECT_EQ(palette.Choice(kSpecRow), L"CS150");
        EXPECT_EQ(palette.ChosenIndex(kMainSizeRow), mainSize);
        EXPECT_EQ(palette.ChosenIndex(kBranchSizeRow), 5);
        EXPECT_THAT(palette.Items(kLineRow), ElementsAre(L"T-21", L"T-22"));
        EXPECT_EQ(palette.Choice(kLineRow), L"T-22");
        Choose(kLineRow, L"T-21");
        EXPECT_EQ(Stored(&CKV2D_DocXData::m_lineId), 21);
    }
    void ExpectNoDrawing() {
        windows::PumpWaiting();
        EXPECT_EQ(acDocManager->curDocument(), nullptr);
        EXPECT_FALSE(Palette().Enabled(IDC_PALETTE_COMBO_1));
        EXPECT_TRUE(Palette().Enabled(IDC_PALETTE_DRAWING_MANAGER));
    }
    void ClickIsoplane() {
        windows::Click(Palette().Dialog(), IDC_PALETTE_ISOPLANE);
        windows::PumpWaiting();
    }
    void CloseAllBut(AcApDocument* kept) {
        const std::unique_ptr<AcApDocumentIterator> documents(acDocManager->newAcApDocumentIterator());
        for (; !documents->done(); documents->step()) {
            if (documents->document() == kept) continue;
            ASSERT_EQ(acDocManager->appContextCloseDocument(documents->document()), Acad::eOk);
        }
        windows::PumpWaiting();
    }

    std::unique_ptr<Closer> m_closer;
    AcApDocument* m_first = nullptr;
    AcApDocument* m_second = nullptr;
};

}  // namespace

INSTANTIATE_TEST_SUITE_P(EachTurn, PaletteClosing, testing::Values(Turn::kBeforeModule, Turn::kBehindModule),
                         [](const testing::TestParamInfo<Turn>& turn) {
                             return turn.param == Turn::kBeforeModule ? "BeforeTheModule" : "BehindTheModule";
                         });

// --- Changes from one drawing to another.

TEST_P(PaletteClosing, DrawingThatIsClosedAsItIsToBeActivated_LeavesTheOneBefore) {
    StartWithTwoDrawings();
    m_closer->CloseIn(L"toBeActivated");
    acDocManager->activateDocument(m_first);
    EXPECT_EQ(m_closer->Result(), Acad::eOk);
    ExpectSecond();
}

TEST_P(PaletteClosing, DrawingThatIsClosedAsItBecomesCurrent_MakesRoomForAnother) {
    StartWithTwoDrawings();
    m_closer->CloseIn(L"becameCurrent");
    acDocManager->activateDocument(m_first);
    EXPECT_EQ(m_closer->Result(), Acad::eOk);
    ExpectSecond();
}

TEST_P(PaletteClosing, DrawingThatIsClosedAsItIsActivated_MakesRoomForAnother) {
    StartWithTwoDrawings();
    m_closer->CloseIn(L"activated");
    acDocManager->activateDocument(m_first);
    EXPECT_EQ(m_closer->Result(), Acad::eOk);
    ExpectSecond();
}

TEST_P(PaletteClosing, DrawingThatIsClosedAsItIsLeft_LetsTheNextOneIn) {
    StartWithTwoDrawings();
    m_closer->CloseIn(L"toBeDeactivated");
    acDocManager->activateDocument(m_first);
    EXPECT_EQ(m_closer->Result(), Acad::eOk);
    ExpectFirst();
}

TEST_P(PaletteClosing, OtherDrawingThatIsClosedAsOneBecomesCurrent_IsNotMissed) {
    StartWithTwoDrawings();
    m_closer->CloseIn(L"becameCurrent", m_second);
    acDocManager->activateDocument(m_first);
    EXPECT_EQ(m_closer->Result(), Acad::eOk);
    ExpectFirst();
}

// --- Opening and closing.

TEST_P(PaletteClosing, NewDrawingThatIsClosedOnItsWayIn_LeavesTheOneBefore) {
    for (const wchar_t* event : kArrivalEvents) {
        StartWithTwoDrawings();
        m_closer->CloseIn(event);
        acDocManager->appContextNewDocument(nullptr);
        EXPECT_EQ(m_closer->Result(), Acad::eOk);
        ExpectSecond();
    }
}

TEST_P(PaletteClosing, DrawingThatIsOnlyBegun_CannotBeClosed) {
    StartWithTwoDrawings();
    m_closer->CloseIn(L"createStarted");
    acDocManager->appContextNewDocument(nullptr);
    EXPECT_EQ(m_closer->Result(), Acad::eNoDocument);
    EXPECT_FALSE(Palette().Enabled(IDC_PALETTE_COMBO_1)) << "the new drawing has no project";
    Activate(m_second);
    ExpectSecond();
}

TEST_P(PaletteClosing, WhileADrawingGoes_AnotherStays) {
    for (const wchar_t* event : {L"toBeDestroyed", L"destroyed"}) {
        StartWithTwoDrawings();
        m_closer->CloseIn(event, m_first);
        EXPECT_EQ(acDocManager->appContextCloseDocument(m_second), Acad::eOk);
        EXPECT_EQ(m_closer->Result(), Acad::eInvalidContext);
        ExpectFirst();
    }
}

TEST_P(PaletteClosing, DrawingThatIsClosedAsItGetsItsName_IsSaved) {
    StartWithTwoDrawings();
    m_closer->CloseIn(L"titleUpdated");
    const std::wstring path = InRoot(L"named.dwg");
    Enter(L"SAVEAS");
    Enter(path);
    EXPECT_EQ(m_closer->Result(), Acad::eOk);
    ExpectFirst();
    m_second = Open(path);
    ExpectSecond();
}

TEST_P(PaletteClosing, LastDrawingThatIsClosedOnItsWayIn_DisablesThePaletteAndBringsTheDrawingManager) {
    for (const wchar_t* event : kArrivalEvents) {
        StartWithTwoDrawings();
        CloseAllDrawings();
        windows::PumpWaiting();  // the first request for the Drawing Manager finds nothing to make room for
        {
            const windows::BoxAnswers boxes({IDYES});  // closed without a drawing
            const windows::WhenDialogOpens manager(
                [](HWND dialog) { PostMessageW(dialog, WM_COMMAND, IDCANCEL, 0); });
            m_closer->CloseIn(event);
            acDocManager->appContextNewDocument(nullptr);
            EXPECT_EQ(m_closer->Result(), Acad::eOk);
            ExpectNoDrawing();
        }
        NewDrawing(5);
        EXPECT_TRUE(Palette().Enabled(IDC_PALETTE_COMBO_1));
    }
}

// --- What the palette itself sets off: the record's lock, the snap variables.

TEST_P(PaletteClosing, DrawingThatIsClosedAsAChoiceTakesItsLock_TakesTheChoiceWithIt) {
    StartWithTwoDrawings();
    m_closer->CloseIn(L"lockWillChange");
    ChooseIndex(kMainSizeRow, 11);
    EXPECT_EQ(m_closer->Result(), Acad::eOk);
    ExpectFirst();
}

TEST_P(PaletteClosing, DrawingThatIsLockedForAChoice_CannotBeClosed) {
    for (const wchar_t* event : {L"lockChanged", L"unlockWillChange"}) {
        StartWithTwoDrawings();
        m_closer->CloseIn(event);
        ChooseIndex(kMainSizeRow, 11);
        EXPECT_EQ(m_closer->Result(), Acad::eLockConflict);
        ExpectSecond(11);
    }
}

TEST_P(PaletteClosing, DrawingThatIsClosedBehindAChoice_MakesRoomForAnother) {
    StartWithTwoDrawings();
    m_closer->CloseIn(L"unlockChanged");
    ChooseIndex(kMainSizeRow, 11);
    EXPECT_EQ(m_closer->Result(), Acad::eOk);
    ExpectFirst();
}

TEST_P(PaletteClosing, DrawingThatIsClosedAsTheSizesAreSwapped_LeavesTheOthersSizes) {
    StartWithTwoDrawings();
    m_closer->CloseIn(L"lockWillChange");
    windows::Click(Palette().Dialog(), IDC_PALETTE_SWAP_SIZE);
    EXPECT_EQ(m_closer->Result(), Acad::eOk);
    ExpectFirst();
}

TEST_P(PaletteClosing, DrawingThatIsClosedAsItsIsoplaneIsClicked_LeavesTheOthersIsoplane) {
    for (const wchar_t* event : kIsoplaneEvents) {
        StartWithTwoDrawings();
        m_closer->CloseIn(event);
        ClickIsoplane();
        EXPECT_EQ(m_closer->Result(), Acad::eOk);
        ExpectFirst();
    }
}

TEST_P(PaletteClosing, DrawingThatIsClosedAsItsStoredIsoplaneIsSet_LeavesTheOthersRows) {
    for (const wchar_t* event : {L"sysVarWillChange", L"sysVarChanged"}) {
        StartWithTwoDrawings();
        AcApDocument* third = NewDrawing(5);
        Fill({.spec = 3, .mainSize = 1, .branchSize = 1, .line = 11, .isoPlane = 1});
        // No longer what the drawing's snap says: showing the drawing sets the snap.
        Store([](CKV2D_DocXData& data) { data.m_isoPlane = 5; });
        Activate(m_first);
        m_closer->CloseIn(event);
        acDocManager->activateDocument(third);
        EXPECT_EQ(m_closer->Result(), Acad::eOk);
        EXPECT_EQ(acDocManager->documentCount(), 3);
        ExpectSecond();
        Activate(m_first);
        ExpectFirst();
    }
}

TEST_P(PaletteClosing, DrawingThatIsClosedAsItsPathTiesItToAStandard_TiesNoOther) {
    for (const wchar_t* event : kIsoplaneEvents) {
        StartWithTwoDrawings();
        const std::wstring path = InRoot(L"KV2D_PRJ_5\\a.dwg");
        PutDrawing(path, [this](AcDbDatabase&) { Store([](CKV2D_DocXData& data) { data.m_isoPlane = 2; }); });
        m_closer->CloseIn(event);
        EXPECT_EQ(acDocManager->appContextOpenDocument(path.c_str()), Acad::eOk);
        EXPECT_EQ(m_closer->Result(), Acad::eOk);
        ExpectSecond();
    }
}

TEST_P(PaletteClosing, LastDrawingThatIsClosedAsItsIsoplaneIsClicked_DisablesThePalette) {
    for (const wchar_t* event : kIsoplaneEvents) {
        StartWithTwoDrawings();
        CloseAllBut(m_second);
        m_closer->CloseIn(event);
        ClickIsoplane();
        EXPECT_EQ(m_closer->Result(), Acad::eOk);
        ExpectNoDrawing();
    }
}

TEST_P(PaletteClosing, DrawingThatIsClosedAsTheUserSetsItsSnap_LeavesTheOthersIsoplane) {
    StartWithTwoDrawings();
    m_closer->CloseIn(L"sysVarChanged");
    SetSysVarShort(L"SNAPISOPAIR", 0);
    EXPECT_EQ(m_closer->Result(), Acad::eOk);
    ExpectFirst();
}

// --- Commands and expressions.

TEST_P(PaletteClosing, DrawingThatIsClosedAroundInput_MakesRoomForAnother) {
    const std::pair<const wchar_t*, const wchar_t*> cases[] = {
        {L"commandWillStart", L"LINE"},
        {L"lispWillStart", L"(kv2dMenu_DocXRecordHasChanged)"},
        {L"lispEnded", L"(kv2dMenu_DocXRecordHasChanged)"},
        {L"lispCancelled", L"(kv2dMenu_NoSuchFunction)"},
        {L"unknownCommand", L"KV2DNOSUCHCOMMAND"},
    };
    for (const auto& [event, input] : cases) {
        StartWithTwoDrawings();
        m_closer->CloseIn(event);
        Enter(input);
        EXPECT_EQ(m_closer->Result(), Acad::eOk) << std::string(event, event + wcslen(event));
        ExpectFirst();
    }
}

TEST_P(PaletteClosing, DrawingOfACancelledCommand_CanBeClosed) {
    StartWithTwoDrawings();
    Enter(L"LINE");
    m_closer->CloseIn(L"commandCancelled");
    Enter(L"\x1b");
    EXPECT_EQ(m_closer->Result(), Acad::eOk);
    ExpectFirst();
}

TEST_P(PaletteClosing, DrawingOfACommandThatRuns_CannotBeClosed) {
    const std::pair<const wchar_t*, const wchar_t*> cases[] = {{L"commandEnded", L"SETVAR ORTHOMODE 1"},
                                                               {L"lockWillChange", L"SETVAR ORTHOMODE 1"},
                                                               {L"unlockChanged", L"SETVAR ORTHOMODE 1"},
                                                               {L"lockChanged", L"(+ 1 2)"},
                                                               {L"unlockChanged", L"(+ 1 2)"}};
    for (const auto& [event, input] : cases) {
        StartWithTwoDrawings();
        m_closer->CloseIn(event);
        Enter(input);
        EXPECT_EQ(m_closer->Result(), Acad::eInvalidContext) << std::string(event, event + wcslen(event));
        ExpectSecond();
    }
}
