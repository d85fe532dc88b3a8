// What only the memory platform has: scripts, records and faults.
#include "platform/memory_platform.h"

#include "support/test_platform.h"

namespace {

using platform::WriteResult;

class MemoryPlatformTest : public MemorySystemTest {
  protected:
    platform::MemoryFiles& Files() { return GetMemory().files; }
    std::wstring File() const { return InRoot(L"Lines.ini"); }
};

TEST_F(MemoryPlatformTest, RefuseOpen_FailsReadsOfThatFileOnly) {
    PutFile(File(), "text");
    PutFile(InRoot(L"Other.ini"), "text");
    Files().RefuseOpen(InRoot(L"LINES.INI"));
    std::string bytes;
    EXPECT_EQ(Files().ReadBytes(File(), platform::Sharing::kReadOnly, bytes), platform::kAccessDenied);
    EXPECT_EQ(Files().ReadBytes(InRoot(L"Other.ini"), platform::Sharing::kReadOnly, bytes), platform::kDone);
    Files().ClearFaults();
    EXPECT_EQ(Files().ReadBytes(File(), platform::Sharing::kReadOnly, bytes), platform::kDone);
}

TEST_F(MemoryPlatformTest, RefuseOpen_OfFolder_MakesItUnreadable) {
    PutFile(InRoot(L"Folder\\a.dwg"), "");
    Files().RefuseOpen(InRoot(L"Folder\\"));
    EXPECT_TRUE(Files().Find(InRoot(L"Folder\\*")).empty());
}

TEST_F(MemoryPlatformTest, RefuseCreate_LeavesTheFile) {
    PutFile(File(), "old");
    Files().RefuseCreate(L"");
    EXPECT_EQ(Files().WriteBytes(File(), "new"), WriteResult::kCannotCreate);
    EXPECT_EQ(GetBytes(File()), "old");
}

TEST_F(MemoryPlatformTest, FailWriteAt_LeavesTheBytesAheadOfIt) {
    PutFile(File(), "old text");
    Files().FailWriteAt(File(), 2);
    EXPECT_EQ(Files().WriteBytes(File(), "new"), WriteResult::kWriteFailed);
    EXPECT_EQ(GetBytes(File()), "ne");
    EXPECT_EQ(Files().WriteBytes(File(), "ok"), WriteResult::kWritten);
}

TEST_F(MemoryPlatformTest, BreakOffFailingWrite_LeavesTheBytesAheadOfItOnce) {
    PutFile(File(), "old text");
    Files().BreakOffFailingWrite(2);
    GetMemory().log.FailCall(2);
    EXPECT_EQ(Files().WriteBytes(File(), "one"), WriteResult::kWritten);
    EXPECT_EQ(Files().WriteBytes(File(), "two"), WriteResult::kWriteFailed);
    EXPECT_EQ(GetBytes(File()), "tw");
    EXPECT_EQ(Files().WriteBytes(File(), "three"), WriteResult::kWritten);
    Files().ClearFaults();
    GetMemory().log.FailCall(1);
    EXPECT_EQ(Files().WriteBytes(File(), "four"), WriteResult::kCannotCreate);
    EXPECT_EQ(GetBytes(File()), "three");
}

TEST_F(MemoryPlatformTest, RefuseMove_KeepsTheFolder) {
    PutFolder(InRoot(L"Old"));
    Files().RefuseMove(InRoot(L"Old"), platform::kSharingViolation);
    EXPECT_EQ(Files().Move(InRoot(L"Old"), InRoot(L"New")), platform::kSharingViolation);
    EXPECT_TRUE(HasFolder(InRoot(L"Old")));
}

TEST_F(MemoryPlatformTest, RefuseRemoveAndMakeFolder_Fail) {
    PutFile(File(), "");
    Files().RefuseRemove(L"");
    Files().RefuseMakeFolder(L"", platform::kDiskFull);
    EXPECT_EQ(Files().Remove(File()), platform::kAccessDenied);
    EXPECT_EQ(Files().MakeFolder(InRoot(L"a")), platform::kDiskFull);
}

TEST_F(MemoryPlatformTest, RefusedRegistryKey_FailsWithKeysBelow) {
    auto& registry = GetMemory().registry;
    registry.WriteDword(platform::Hive::kCurrentUser, L"A\\B", L"Id", 1);
    registry.RefuseReads(platform::Hive::kCurrentUser, L"a");
    registry.RefuseWrites(platform::Hive::kCurrentUser, L"A\\B");
    std::uint32_t value = 0;
    EXPECT_FALSE(registry.ReadDword(platform::Hive::kCurrentUser, L"A\\B", L"Id", value));
    EXPECT_FALSE(registry.WriteDword(platform::Hive::kCurrentUser, L"A\\B", L"Id", 2));
    EXPECT_TRUE(registry.WriteDword(platform::Hive::kCurrentUser, L"A\\BB", L"Id", 2));
    registry.ClearFaults();
    EXPECT_TRUE(registry.ReadDword(platform::Hive::kCurrentUser, L"A\\B", L"Id", value));
    EXPECT_EQ(value, 1u);
}

TEST_F(MemoryPlatformTest, FailCall_FailsExactlyThatCall) {
    PutFile(File(), "text");
    GetMemory().log.FailCall(2);
    std::string bytes;
    EXPECT_EQ(Files().ReadBytes(File(), platform::Sharing::kReadOnly, bytes), platform::kDone);
    EXPECT_FALSE(GetMemory().log.HasFailed());
    EXPECT_NE(Files().ReadBytes(File(), platform::Sharing::kReadOnly, bytes), platform::kDone);
    EXPECT_TRUE(GetMemory().log.HasFailed());
    EXPECT_EQ(Files().ReadBytes(File(), platform::Sharing::kReadOnly, bytes), platform::kDone);
    EXPECT_EQ(GetMemory().log.GetCount(L"ReadBytes"), 3u);
    EXPECT_EQ(GetMemory().log.GetCalls()[0].path, File());
}

TEST_F(MemoryPlatformTest, ForEachFailingCall_RunsOnceMoreThanThereAreCalls) {
    const size_t runs = ForEachFailingCall([](TestSystem& system) { system.UseDatabase(); },
                                           [](TestSystem& system) {
                                               platform::GetFiles().MakeFolder(system.InRoot(L"a"));
                                               platform::GetFiles().MakeFolder(system.InRoot(L"b"));
                                           });
    EXPECT_EQ(runs, 3u);
}

TEST_F(MemoryPlatformTest, Boxes_AreRecordedAndAnswered) {
    Answer(platform::kAnswerYes);
    const unsigned yesNo = 4;
    EXPECT_EQ(platform::GetBoxes().Show(platform::BoxOwner::kHostMainWindow, L"Delete?", L"Tessarc", yesNo),
              platform::kAnswerYes);
    EXPECT_EQ(platform::GetBoxes().Show(platform::BoxOwner::kNone, L"Done.", L"Tessarc", 0),
              platform::kAnswerOk);
    ASSERT_EQ(GetBoxes().size(), 2u);
    EXPECT_EQ(GetBoxes()[0].text, L"Delete?");
    EXPECT_EQ(GetBoxes()[0].flags, yesNo);
    EXPECT_EQ(GetBoxes()[0].owner, platform::BoxOwner::kHostMainWindow);
}

TEST_F(MemoryPlatformTest, QuestionWithoutAnswer_CountsAndIsDeclined) {
    platform::MemoryBoxes boxes;
    EXPECT_EQ(boxes.Show(platform::BoxOwner::kNone, L"?", L"", 4), platform::kAnswerNo);
    EXPECT_EQ(boxes.Show(platform::BoxOwner::kNone, L"?", L"", 1), platform::kAnswerCancel);
    EXPECT_EQ(boxes.GetUnansweredCount(), 2u);
}

TEST_F(MemoryPlatformTest, Processes_AreRecorded) {
    GetMemory().processes.SetExitStatus(3);
    EXPECT_EQ(platform::GetProcesses().RunAndWait(L"REGSVR32.EXE", {L"REGSVR32.EXE", L"/s", L"\"a.ocx\""}),
              3);
    ASSERT_EQ(GetRuns().size(), 1u);
    EXPECT_EQ(GetRuns()[0].arguments[2], L"\"a.ocx\"");
}

TEST_F(MemoryPlatformTest, Clock_ToldTime_ComesBack) {
    SetNow({2024, 2, 29, 23, 59, 58});
    platform::CalendarTime local;
    ASSERT_TRUE(platform::GetClock().ToLocal(platform::GetClock().Now(), local));
    EXPECT_EQ(local.year, 2024);
    EXPECT_EQ(local.month, 2);
    EXPECT_EQ(local.day, 29);
    EXPECT_EQ(local.hour, 23);
    EXPECT_EQ(local.minute, 59);
    EXPECT_EQ(local.second, 58);
}

TEST_F(MemoryPlatformTest, WritesAtOneMoment_StillHaveDifferentTimes) {
    Files().WriteBytes(File(), "1");
    const platform::FileTime first = GetModified(File());
    Files().WriteBytes(File(), "1");
    EXPECT_GT(GetModified(File()), first);
}

TEST_F(MemoryPlatformTest, NetworkShare_IsAPlaceOfItsOwn) {
    Files().AddFile(L"\\\\server\\share\\Data\\Lines.ini", "text");
    EXPECT_TRUE(HasFile(L"\\\\SERVER\\Share\\data\\lines.ini"));
    EXPECT_EQ(Files().MakeFolder(L"\\\\server"), platform::kBadNetworkPath);
    EXPECT_EQ(Files().MakeFolder(L"\\\\server\\share"), platform::kAccessDenied);
    EXPECT_EQ(Files().MakeFolder(L"\\\\server\\share\\New"), platform::kDone);
}

TEST_F(MemoryPlatformTest, MissingDrive_IsPathNotFound) {
    std::string bytes;
    EXPECT_EQ(Files().ReadBytes(L"Q:\\a", platform::Sharing::kReadOnly, bytes), platform::kPathNotFound);
}

// The next three differ on systems that only stand in for Windows, so no contract test asserts them.

TEST_F(MemoryPlatformTest, WriteBytes_OverReadOnlyOrHiddenFile_CannotCreate) {
    PutFile(File(), "old");
    SetReadOnly(File());
    EXPECT_EQ(Files().WriteBytes(File(), "new"), WriteResult::kCannotCreate);
    SetReadOnly(File(), false);
    SetHidden(File());
    EXPECT_EQ(Files().WriteBytes(File(), "new"), WriteResult::kCannotCreate);
    EXPECT_EQ(GetBytes(File()), "old");
}

TEST_F(MemoryPlatformTest, Move_OfFolderWithOpenFile_IsAccessDenied) {
    PutFile(InRoot(L"a\\b\\file"), "");
    const auto held = HoldFile(InRoot(L"a\\b\\file"), platform::Hold::kReading);
    EXPECT_EQ(Files().Move(InRoot(L"a"), InRoot(L"c")), platform::kAccessDenied);
}

TEST_F(MemoryPlatformTest, Move_ThatChangesOnlyTheCase_IsDone) {
    PutFile(InRoot(L"lines.ini"), "");
    EXPECT_EQ(Files().Move(InRoot(L"lines.ini"), InRoot(L"Lines.ini")), platform::kDone);
    EXPECT_EQ(Files().Find(InRoot(L"*"))[0].name, L"Lines.ini");
}

TEST_F(MemoryPlatformTest, Move_OfFolderIntoItself_IsRefused) {
    PutFolder(InRoot(L"a\\b"));
    EXPECT_NE(Files().Move(InRoot(L"a"), InRoot(L"A\\b\\c")), platform::kDone);
    EXPECT_TRUE(HasFolder(InRoot(L"a\\b")));
}

}  // namespace
