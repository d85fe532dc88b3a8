// Typed and queued input, commands, LISP at the command line.
#include "host_fixture.h"

namespace workbench::test {
namespace {

class CommandLineTest : public HostTest {
  protected:
    static inline int s_runs = 0;
    static inline std::function<void()> s_body;
    static void Body() {
        ++s_runs;
        if (s_body) {
            s_body();
        }
    }

    CommandLineTest() {
        s_runs = 0;
        s_body = nullptr;
    }
    ~CommandLineTest() override { s_body = nullptr; }

    Acad::ErrorStatus Add(const wchar_t* globalName, const wchar_t* localName, int flags = ACRX_CMD_MODAL) {
        return acedRegCmds->addCommand(L"group", globalName, localName, flags, &Body);
    }
};

TEST_F(CommandLineTest, AddCommand_RefusesWhatIsMissingOrTaken) {
    EXPECT_EQ(acedRegCmds->addCommand(L"g", L"a", L"a", 0, nullptr), Acad::eInvalidInput);
    EXPECT_EQ(acedRegCmds->addCommand(nullptr, L"a", L"a", 0, &Body), Acad::eInvalidInput);
    EXPECT_EQ(acedRegCmds->addCommand(L"g", L"", L"a", 0, &Body), Acad::eInvalidInput);
    EXPECT_EQ(Add(L"_a", L"a"), Acad::eOk);
    EXPECT_EQ(Add(L"_A", L"b"), Acad::eDuplicateKey);
    EXPECT_EQ(Add(L"_b", L"A"), Acad::eDuplicateKey);
    EXPECT_EQ(acedRegCmds->addCommand(L"other", L"_a", L"a", 0, &Body), Acad::eOk);
}

TEST_F(CommandLineTest, RemoveCmd_FindsGroupAndGlobalName) {
    Add(L"_a", L"a");
    EXPECT_EQ(acedRegCmds->removeCmd(L"other", L"_a"), Acad::eKeyNotFound);
    EXPECT_EQ(acedRegCmds->removeCmd(L"group", L"a"), Acad::eKeyNotFound);
    EXPECT_EQ(acedRegCmds->removeCmd(L"GROUP", L"_A"), Acad::eOk);
    EXPECT_EQ(acedRegCmds->removeCmd(L"group", L"_a"), Acad::eKeyNotFound);
    EXPECT_EQ(acedRegCmds->removeGroup(L"group"), Acad::eKeyNotFound);
}

TEST_F(CommandLineTest, Command_RunsByLocalName_AndByGlobalNameAfterAnUnderscore) {
    ADocument();
    Add(L"_kv2dDrawingManager", L"kv2dDrawingManager");
    Type(L"KV2DDRAWINGMANAGER\n");
    Type(L"_kv2dDrawingManager\n");
    Type(L"__kv2dDrawingManager\n");
    EXPECT_EQ(s_runs, 3);
    Add(L"global", L"local");
    EXPECT_EQ(Type(L"global\n"), L"Command: global\nUnknown command \"GLOBAL\".\n");
    Type(L"_global\n");
    EXPECT_EQ(s_runs, 4);
}

TEST_F(CommandLineTest, Command_NeedsABlankOrEnterToRun) {
    ADocument();
    Add(L"_a", L"a");
    Type(L"a");
    EXPECT_EQ(s_runs, 0);
    EXPECT_EQ(m_host->Line().Typed(), L"a");
    Type(L" ");
    EXPECT_EQ(s_runs, 1);
}

TEST_F(CommandLineTest, Command_HasTheLockOfItsDocument) {
    host::Document& document = ADocument();
    Add(L"_a", L"a");
    Acad::ErrorStatus status = Acad::eLockViolation;
    AcAp::DocLockMode mode = AcAp::kNone;
    bool application = true;
    s_body = [&] {
        status = TryWrite(document);
        mode = document.lockMode();
        application = acDocManager->isApplicationContext();
    };
    DocumentEvents events;
    Type(L"a\n");
    EXPECT_EQ(status, Acad::eOk);
    EXPECT_EQ(mode, AcAp::kAutoWrite);
    EXPECT_FALSE(application);
    EXPECT_EQ(TryWrite(document), Acad::eLockViolation);
    EXPECT_EQ(events.locks, (Events{L"will 2>1 _a", L"did 2>1 _a", L"will 1>2 #_a", L"did 1>2 #_a"}));
}

TEST_F(CommandLineTest, Command_DoesNotLockAnotherDocument) {
    host::Document& other = ADocument();
    ADocument();
    Add(L"_a", L"a");
    Acad::ErrorStatus status = Acad::eOk;
    s_body = [&] { status = TryWrite(other); };
    Type(L"a\n");
    EXPECT_EQ(status, Acad::eLockViolation);
}

TEST_F(CommandLineTest, SessionCommand_RunsInApplicationContextWithoutALock) {
    host::Document& document = ADocument();
    Add(L"_a", L"a", ACRX_CMD_SESSION);
    Acad::ErrorStatus status = Acad::eOk;
    s_body = [&] { status = TryWrite(document); };
    Type(L"a\n");
    EXPECT_EQ(status, Acad::eLockViolation);
}

TEST_F(CommandLineTest, InputQueuedInASessionCommand_WaitsUntilItHasEnded) {
    ADocument();
    Add(L"_a", L"a", ACRX_CMD_SESSION);
    bool ran = true;
    int runsThen = 0;
    s_body = [&] {
        if (s_runs > 1) return;
        acDocManager->sendStringToExecute(acDocManager->curDocument(), L"a\n");
        ran = m_host->RunQueuedInput();  // as the message loop of a dialog does
        runsThen = s_runs;
    };
    Type(L"a\n");
    EXPECT_FALSE(ran);
    EXPECT_EQ(runsThen, 1);
    EXPECT_EQ(s_runs, 2);
}

TEST_F(CommandLineTest, Command_EventsAndNames) {
    ADocument();
    Add(L"_a", L"a");
    EditorEvents events;
    std::wstring names;
    s_body = [&] { names = Variable(L"CMDNAMES") + L" " + Variable(L"CMDACTIVE"); };
    Type(L"a\nnothing\n");
    EXPECT_EQ(events.events, (Events{L"start _a", L"end _a", L"unknown nothing"}));
    EXPECT_EQ(names, L"_a 1");
}

TEST_F(CommandLineTest, Command_WithoutADocument_IsRefused) {
    Add(L"_a", L"a");
    EXPECT_EQ(Type(L"a\n"), L"Command: a\nThere is no drawing to work on.\n");
    EXPECT_EQ(Type(L"(+ 1 2)\n"), L"Command: (+ 1 2)\nThere is no drawing to work on.\n");
    EXPECT_EQ(Type(L"LINE\n"), L"Command: LINE\nThere is no drawing to work on.\n");
    EXPECT_EQ(s_runs, 0);
    Type(L"NEW .\n");
    EXPECT_EQ(acDocManager->documentCount(), 1);
}

TEST_F(CommandLineTest, Command_RemovingItselfWhileItRuns_Works) {
    ADocument();
    Add(L"_a", L"a");
    s_body = [] { acedRegCmds->removeCmd(L"group", L"_a"); };
    Type(L"a\n");
    EXPECT_EQ(s_runs, 1);
    EXPECT_EQ(m_host->Commands().Count(), 0u);
}

TEST_F(CommandLineTest, SendString_OnlyQueues) {
    host::Document& document = ADocument();
    Add(L"_a", L"a");
    EXPECT_EQ(acDocManager->sendStringToExecute(&document, L"a "), Acad::eOk);
    EXPECT_EQ(s_runs, 0);
    EXPECT_TRUE(m_host->RunQueuedInput());
    EXPECT_EQ(s_runs, 1);
    EXPECT_FALSE(m_host->RunQueuedInput());
}

TEST_F(CommandLineTest, SendString_FromACommand_RunsAfterIt) {
    host::Document& document = ADocument();
    Add(L"_a", L"a");
    int runsWithin = 0;
    bool ranWithin = true;
    s_body = [&] {
        if (s_runs == 1) {
            acDocManager->sendStringToExecute(&document, L"a ");
            ranWithin = m_host->RunQueuedInput();
            runsWithin = s_runs;
        }
    };
    Type(L"a\n");
    EXPECT_FALSE(ranWithin);
    EXPECT_EQ(runsWithin, 1);
    EXPECT_EQ(s_runs, 2);
}

TEST_F(CommandLineTest, SendString_RunsInDocumentContextWithTheLock) {
    host::Document& document = ADocument();
    Add(L"_a", L"a");
    Acad::ErrorStatus status = Acad::eLockViolation;
    s_body = [&] { status = TryWrite(document); };
    acDocManager->sendStringToExecute(&document, L"a ");
    m_host->RunQueuedInput();
    EXPECT_EQ(status, Acad::eOk);
}

TEST_F(CommandLineTest, SendString_ToAnInactiveDocument_WaitsUntilItIsActive) {
    host::Document& first = ADocument();
    ADocument();
    Add(L"_a", L"a");
    acDocManager->sendStringToExecute(&first, L"a ", false);
    m_host->RunQueuedInput();
    EXPECT_EQ(s_runs, 0);
    acDocManager->activateDocument(&first);
    m_host->RunQueuedInput();
    EXPECT_EQ(s_runs, 1);
}

TEST_F(CommandLineTest, SendString_WithActivate_ActivatesTheDocument) {
    host::Document& first = ADocument();
    ADocument();
    Add(L"_a", L"a");
    acDocManager->sendStringToExecute(&first, L"a ", true);
    EXPECT_NE(acDocManager->mdiActiveDocument(), &first);
    m_host->RunQueuedInput();
    EXPECT_EQ(acDocManager->mdiActiveDocument(), &first);
    EXPECT_EQ(s_runs, 1);
}

TEST_F(CommandLineTest, SendString_WithoutEcho_PrintsOnlyTheResult) {
    host::Document& document = ADocument();
    m_surface.transcript.clear();
    acDocManager->sendStringToExecute(&document, L"(+ 1 2) ", false, true, false);
    acDocManager->sendStringToExecute(&document, L"(+ 3 4) ", false, true, true);
    m_host->RunQueuedInput();
    EXPECT_EQ(m_surface.transcript, L"3\nCommand: (+ 3 4)\n7\n");
}

TEST_F(CommandLineTest, SendString_Nothing) {
    EXPECT_EQ(acDocManager->sendStringToExecute(nullptr, L"a "), Acad::eNullObjectPointer);
    host::Document& document = ADocument();
    EXPECT_EQ(acDocManager->sendStringToExecute(&document, nullptr), Acad::eNullObjectPointer);
    ADocument();
    acDocManager->closeDocument(&document);
    EXPECT_EQ(acDocManager->sendStringToExecute(&document, L"a "), Acad::eNoDocument);
}

TEST_F(CommandLineTest, Escapes_CancelWhatWaits_ThenTheRestRuns) {
    host::Document& document = ADocument();
    Type(L"LINE 0,0 ");
    EditorEvents events;
    acDocManager->sendStringToExecute(&document, L"\x1b\x1b\x1b", false, true, true);
    acDocManager->sendStringToExecute(&document, L"(setq a 5) ", false, true, true);
    m_surface.transcript.clear();
    m_host->RunQueuedInput();
    EXPECT_EQ(events.events, (Events{L"cancel LINE", L"lisp", L"lispEnded"}));
    EXPECT_EQ(m_surface.transcript, L"*Cancel*\nCommand: (setq a 5)\n5\n");
}

TEST_F(CommandLineTest, Escapes_DropWhatWasTyped) {
    ADocument();
    Type(L"(setq a");
    Type(L"\x1b");
    EXPECT_EQ(m_host->Line().Typed(), L"");
    EXPECT_EQ(Type(L"(+ 1 1)\n"), L"Command: (+ 1 1)\n2\n");
}

TEST_F(CommandLineTest, Lisp_NeedsABlankOrEnterBehindIt) {
    ADocument();
    EXPECT_EQ(Type(L"(+ 1 2)"), L"");
    EXPECT_EQ(Type(L" "), L"Command: (+ 1 2)\n3\n");
}

TEST_F(CommandLineTest, Lisp_GoesOnUntilItIsClosed) {
    ADocument();
    EXPECT_EQ(Type(L"(strcat \"a) b\"\n"), L"");
    EXPECT_EQ(Type(L"\"c\")\n"), L"Command: (strcat \"a) b\"\n\"c\")\n\"a) bc\"\n");
}

TEST_F(CommandLineTest, Lisp_ErrorsAreText) {
    ADocument();
    EXPECT_EQ(Type(L"(nothing)\n"), L"Command: (nothing)\n; error: no function definition: NOTHING\n");
    EXPECT_EQ(Type(L")\n"), L"Command: )\nUnknown command \")\".\n");
}

TEST_F(CommandLineTest, Lisp_VoidPrintsNothing) {
    ADocument();
    EXPECT_EQ(Type(L"(princ)\n"), L"Command: (princ)\n");
}

TEST_F(CommandLineTest, Lisp_OutputStartsResultsOnAFreshLine) {
    ADocument();
    EXPECT_EQ(Type(L"(princ \"x\")\n"), L"Command: (princ \"x\")\nx\n\"x\"\n");
}

TEST_F(CommandLineTest, Lisp_HasTheLock) {
    host::Document& document = ADocument();
    Type(L"(command \"LINE\" \"0,0\" \"1,1\" \"\")\n");
    EXPECT_EQ(database::DataOf(*document.database()).ModelSpace()->entities.size(), 1u);
}

TEST_F(CommandLineTest, Lisp_IsEachDocumentsOwn) {
    host::Document& first = ADocument();
    Type(L"(setq a 1)\n");
    ADocument();
    EXPECT_EQ(Type(L"!a\n"), L"Command: !a\nnil\n");
    acDocManager->activateDocument(&first);
    EXPECT_EQ(Type(L"!a\n"), L"Command: !a\n1\n");
}

TEST_F(CommandLineTest, Lisp_CommandFunctions) {
    ADocument();
    Type(L"(defun c:hello () (princ \"hi\") (princ))\n");
    EXPECT_EQ(Type(L"hello\n"), L"Command: hello\nhi");
}

TEST_F(CommandLineTest, Lisp_CannotCloseItsOwnDocument) {
    ADocument();
    const std::wstring printed = Type(L"(command \"CLOSE\")\n");
    EXPECT_NE(printed.find(L"eLockConflict"), std::wstring::npos);
    EXPECT_EQ(acDocManager->documentCount(), 1);
}

TEST_F(CommandLineTest, Line_DrawsOnTheCurrentLayer) {
    host::Document& document = ADocument();
    Type(L"LINE 0,0 1,1 2,2\n\n");
    const auto& entities = database::DataOf(*document.database()).ModelSpace()->entities;
    ASSERT_EQ(entities.size(), 2u);
    const auto* second = database::DataAs<database::LineData>(entities[1]);
    EXPECT_EQ(second->start, AcGePoint3d(1, 1, 0));
    EXPECT_EQ(second->end, AcGePoint3d(2, 2, 0));
    EXPECT_EQ(Variable(L"DBMOD"), L"1");
    EXPECT_EQ(database::OpenObjects(*document.database()), 0);
}

TEST_F(CommandLineTest, Line_BadPoint_Fails) {
    host::Document& document = ADocument();
    EditorEvents events;
    Type(L"LINE 0,0 x 1,1\n\n");
    EXPECT_EQ(events.events, (Events{L"start LINE", L"fail LINE"}));
    EXPECT_TRUE(database::DataOf(*document.database()).ModelSpace()->entities.empty());
}

TEST_F(CommandLineTest, Open_TakesAPathWithBlanks_InQuotesOrNot) {
    m_files.texts[L"C:\\My Drawings\\a b.dwg"] = L"1";
    m_files.texts[L"C:\\My Drawings\\c d.dwg"] = L"1";
    Type(L"OPEN \"C:\\My Drawings\\a b.dwg\"\n");
    Type(L"OPEN\nC:\\My Drawings\\c d.dwg\n");
    EXPECT_EQ(acDocManager->documentCount(), 2);
}

TEST_F(CommandLineTest, Open_Fails_WithTheStatus) {
    EXPECT_EQ(Type(L"OPEN C:\\none.dwg\n"),
              L"Command: OPEN\nEnter name of drawing to open: C:\\none.dwg\nC:\\none.dwg: there is no such "
              L"file\neFileNotFound\n");
}

TEST_F(CommandLineTest, Close_InTheMiddleOfInput_DropsTheRest) {
    ADocument();
    Add(L"_a", L"a");
    Type(L"CLOSE a a\n");
    EXPECT_EQ(acDocManager->documentCount(), 0);
    EXPECT_EQ(s_runs, 0);
}

TEST_F(CommandLineTest, SaveAndQuit) {
    ADocument();
    Type(L"LINE 0,0 1,1\n\n");
    Type(L"SAVEAS C:\\P\\n.dwg\n");
    EXPECT_EQ(m_files.texts[L"C:\\P\\n.dwg"], L"1");
    Type(L"LINE 0,0 1,1\n\n");
    Type(L"QSAVE\n");
    EXPECT_EQ(m_files.texts[L"C:\\P\\n.dwg"], L"2");
    Type(L"QUIT\n");
    EXPECT_TRUE(m_surface.quit);
}

TEST_F(CommandLineTest, Setvar_AsksForTheValue) {
    ADocument();
    EXPECT_EQ(Type(L"SETVAR SNAPSTYL 1\n"),
              L"Command: SETVAR\nEnter variable name: SNAPSTYL\nEnter new value for SNAPSTYL <0>: 1\n");
    EXPECT_EQ(Variable(L"SNAPSTYL"), L"1");
}

TEST_F(CommandLineTest, VariableName_IsACommand) {
    ADocument();
    Type(L"snapisopair 2\n");
    EXPECT_EQ(Variable(L"SNAPISOPAIR"), L"2");
    Type(L"SNAPISOPAIR\n\n");  // Enter keeps it
    EXPECT_EQ(Variable(L"SNAPISOPAIR"), L"2");
    EXPECT_NE(Type(L"SNAPISOPAIR 9\n").find(L"does not take"), std::wstring::npos);
    EXPECT_NE(Type(L"SNAPISOPAIR x\n").find(L"does not take"), std::wstring::npos);
    EXPECT_EQ(Variable(L"SNAPISOPAIR"), L"2");
}

TEST_F(CommandLineTest, LispValue_AnswersAQuestion) {
    ADocument();
    Type(L"(setq n 1)\nSNAPSTYL !n\n");
    EXPECT_EQ(Variable(L"SNAPSTYL"), L"1");
}

TEST_F(CommandLineTest, CommandFunction_WhileACommandWaits_Fails) {
    ADocument();
    Type(L"LINE 0,0 ");
    EXPECT_NE(Type(L"(command \"LINE\")\n").find(L"; error: Function cancelled"), std::wstring::npos);
}

TEST_F(CommandLineTest, BuiltIn_AddedLater_ReplacesTheEarlierOne) {
    bool ran = false;
    m_host->Commands().AddBuiltIn(
        {L"QUIT", true, [](host::Host&, const host::Answers&) { return std::optional<host::Prompt>(); },
         [&](host::Host&, host::Document*, const host::Answers&) { return ran = true; }});
    Type(L"QUIT\n");
    EXPECT_TRUE(ran);
    EXPECT_FALSE(m_surface.quit);
}

TEST_F(CommandLineTest, BlankLines_DoNothing) {
    ADocument();
    EXPECT_EQ(Type(L"\n\n  \r\n"), L"");
}

TEST_F(CommandLineTest, Transparent_RunsBehindAnApostrophe) {
    ADocument();
    Add(L"_a", L"a", ACRX_CMD_TRANSPARENT);
    Type(L"'a\n");
    EXPECT_EQ(s_runs, 1);
}

TEST_F(CommandLineTest, HostileInput_IsSurvived) {
    ADocument();
    Type(std::wstring(100000, L'(') + L"\n");
    Type(L"\x1b");
    Type(std::wstring(100000, L'x') + L"\n");
    Type(L"(defun f () (f)) (f)\n");
    EXPECT_NE(Type(L"(f)\n").find(L"stack limit"), std::wstring::npos);
    EXPECT_EQ(Type(L"(+ 1 1)\n"), L"Command: (+ 1 1)\n2\n");
}

}  // namespace
}  // namespace workbench::test
