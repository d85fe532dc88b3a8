// The state of a drawing, and the lock files beside drawings.
#include "drawing_manager/drawing_state.h"

#include <gtest/gtest.h>

#include "drawing_manager/lock_files.h"
#include "support/test_platform.h"

namespace {

class LockFiles : public SystemTest {};
class LockFilesCalls : public MemorySystemTest {};

}  // namespace

TEST(DrawingState, LockComesBeforeReadOnly) {
    EXPECT_EQ(GetStateOfDrawing(false, 0x20), kDrawingNormal);
    EXPECT_EQ(GetStateOfDrawing(false, 0x21), kDrawingReadOnly);
    EXPECT_EQ(GetStateOfDrawing(true, 0x21), kDrawingLocked);
    EXPECT_EQ(GetStateOfDrawing(true, 0x20), kDrawingLocked);
}

TEST(DrawingState, MissingFile_ShowsAsReadOnly) {
    EXPECT_EQ(GetStateOfDrawing(false, platform::kInvalidAttributes), kDrawingReadOnly);
}

TEST(DrawingState, OnlyLockedAndReadOnlyRows_HaveANote) {
    EXPECT_FALSE(HasStateNote(kDrawingNormal));
    EXPECT_FALSE(HasStateNote(kDrawingBackup));
    EXPECT_TRUE(HasStateNote(kDrawingLocked));
    EXPECT_TRUE(HasStateNote(kDrawingReadOnly));
}

TEST_F(LockFiles, AreFoundByTheDrawingsTitle_InAnyCase) {
    PutFile(InRoot(L"P-1.dwl"), "");
    PutFile(InRoot(L"\u00C4rmel 50%s.DWL"), "");
    PutFile(InRoot(L"v1.2.dwl"), "");
    const CLockFiles locks(GetRoot());
    EXPECT_TRUE(locks.Has(L"P-1"));
    EXPECT_TRUE(locks.Has(L"p-1"));
    EXPECT_TRUE(locks.Has(L"\u00E4RMEL 50%S"));
    EXPECT_TRUE(locks.Has(L"v1.2"));
    EXPECT_FALSE(locks.Has(L"v1"));
    EXPECT_FALSE(locks.Has(L"P-10"));
    EXPECT_FALSE(locks.Has(L""));
}

TEST_F(LockFiles, LongerExtensionIsNoLock) {
    PutFile(InRoot(L"P-1.dwl2"), "");
    PutFile(InRoot(L"P-1.dwlx"), "");
    EXPECT_FALSE(CLockFiles(GetRoot()).Has(L"P-1"));
    EXPECT_FALSE(CLockFiles(GetRoot()).Has(L"P-1.dwl2"));
}

TEST_F(LockFiles, FolderThatIsNotThere_HasNone) {
    EXPECT_FALSE(CLockFiles(InRoot(L"Gone\\")).Has(L"P-1"));
}

TEST_F(LockFilesCalls, ManyQuestions_ListTheFolderOnce) {
    GetMemory().files.AddFile(L"C:\\D\\P-7.dwl", "");
    GetMemory().log.Clear();
    const CLockFiles locks(L"C:\\D\\");
    int nFound = 0;
    for (int i = 0; i < 100; ++i)
        nFound += locks.Has(L"P-" + std::to_wstring(i)) ? 1 : 0;
    EXPECT_EQ(nFound, 1);
    EXPECT_EQ(GetMemory().log.GetCount(L"Find"), 1u);
    EXPECT_EQ(GetMemory().log.GetCount(L"ReadBytes"), 0u);
}
