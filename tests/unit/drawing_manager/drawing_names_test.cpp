#include "drawing_manager/drawing_names.h"

#include <gtest/gtest.h>

#include <set>

namespace {

std::wstring Normalized(std::wstring strName) {
    NormalizeDrawingName(strName);
    return strName;
}

PathExists TakenPaths(std::set<std::wstring> taken) {
    return [taken](const std::wstring& strPath) { return taken.count(strPath) != 0; };
}

const PathExists kNothingTaken = TakenPaths({});

}  // namespace

TEST(NormalizeDrawingName, KnownEndings_BecomeLowerCase) {
    EXPECT_EQ(Normalized(L"A.DWG"), L"A.dwg");
    EXPECT_EQ(Normalized(L"A.BAK"), L"A.bak");
    EXPECT_EQ(Normalized(L"Pump.DwG"), L"Pump.dwg");
}

TEST(NormalizeDrawingName, OtherNames_GetDrawingEnding) {
    EXPECT_EQ(Normalized(L"A"), L"A.dwg");
    EXPECT_EQ(Normalized(L"A.old"), L"A.old.dwg");
    EXPECT_EQ(Normalized(L"dwg"), L"dwg.dwg");
    EXPECT_EQ(Normalized(L""), L".dwg");
    EXPECT_EQ(Normalized(L"A.dwg "), L"A.dwg .dwg");
}

TEST(NormalizeDrawingName, NameThatIsOnlyAnEnding_Stays) {
    EXPECT_EQ(Normalized(L".DWG"), L".dwg");
    EXPECT_EQ(Normalized(L".bak"), L".bak");
}

TEST(NormalizeDrawingName, CaseOfTheNameItself_Stays) {
    EXPECT_EQ(Normalized(L"C:\\PLANT.DWG\\\u00C4\u00D6.DWG"), L"C:\\PLANT.DWG\\\u00C4\u00D6.dwg");
}

TEST(IsBackupName, OnlyLastFourCharactersCount) {
    EXPECT_TRUE(IsBackupName(L"a.BAK"));
    EXPECT_TRUE(IsBackupName(L".bak"));
    EXPECT_FALSE(IsBackupName(L"bak"));
    EXPECT_FALSE(IsBackupName(L"a.bak.dwg"));
    EXPECT_FALSE(IsBackupName(L""));
}

TEST(FileParts, TitleAndExtension_SplitAtLastDotOfTheName) {
    EXPECT_EQ(GetFileTitleOnly(L"C:\\v1.2\\Plan.A.DWG"), L"Plan.A");
    EXPECT_EQ(GetFileExtensionLower(L"C:\\v1.2\\Plan.A.DWG"), L".dwg");
}

TEST(FileParts, DotInFolder_IsNoExtension) {
    EXPECT_EQ(GetFileTitleOnly(L"C:\\v1.2\\Plan"), L"Plan");
    EXPECT_EQ(GetFileExtensionLower(L"C:\\v1.2\\Plan"), L"");
}

TEST(FileParts, WithoutFolder_WholeTextIsTheName) {
    EXPECT_EQ(GetFileTitleOnly(L"Plan.dwg"), L"Plan");
    EXPECT_EQ(GetFileTitleOnly(L""), L"");
    EXPECT_EQ(GetFileExtensionLower(L"."), L".");
}

TEST(MakeCopyName, FirstCopy_IsNumberOne) {
    EXPECT_EQ(MakeCopyName(L"C:\\D\\A.dwg", kNothingTaken), L"C:\\D\\A (Copy 1).dwg");
}

TEST(MakeCopyName, CopyOfCopy_RepeatsTheWord) {
    EXPECT_EQ(MakeCopyName(L"C:\\D\\A (Copy 1).dwg", kNothingTaken), L"C:\\D\\A (Copy 1) (Copy 1).dwg");
}

TEST(MakeCopyName, TakenNumbers_ArePassedOver) {
    const PathExists exists = TakenPaths({L"D\\A (Copy 1).bak", L"D\\A (Copy 2).bak", L"D\\A (Copy 4).bak"});
    EXPECT_EQ(MakeCopyName(L"D\\A.bak", exists), L"D\\A (Copy 3).bak");
}

TEST(MakeCopyName, PercentSigns_AreText) {
    EXPECT_EQ(MakeCopyName(L"C:\\100%\\%s%d.dwg", kNothingTaken), L"C:\\100%\\%s%d (Copy 1).dwg");
}

TEST(NewDrawing, FirstGap_IsTaken) {
    const PathExists exists = TakenPaths({L"D\\Drawing1.dwg", L"D\\Drawing3.dwg", L"D\\Drawing2.bak"});
    EXPECT_EQ(FindFreeDrawingNumber(L"D\\", exists), 2);
    EXPECT_EQ(MakeDrawingTitle(2), L"Drawing2");
}

TEST(NewFolder, FirstFreeNumber_IsTaken) {
    EXPECT_EQ(MakeNewFolderName(L"D\\", TakenPaths({L"D\\New Folder (1)"})), L"New Folder (2)");
    EXPECT_EQ(MakeNewFolderName(L"", kNothingTaken), L"New Folder (1)");
}

TEST(RenamedFolder, OnlyLastComponent_IsReplaced) {
    EXPECT_EQ(MakeRenamedFolder(L"C:\\Plant\\Old\\", L"New"), L"C:\\Plant\\New");
    EXPECT_EQ(MakeRenamedFolder(L"C:\\Plant\\Old\\\\", L"50%s"), L"C:\\Plant\\50%s");
    EXPECT_EQ(MakeRenamedFolder(L"Old", L"New"), L"New");
    EXPECT_EQ(MakeRenamedFolder(L"", L"New"), L"New");
}

TEST(TrimTrailingBackslashes, OnlyTheEnd_IsTrimmed) {
    EXPECT_EQ(TrimTrailingBackslashes(L"\\\\server\\share\\\\"), L"\\\\server\\share");
    EXPECT_EQ(TrimTrailingBackslashes(L"\\"), L"");
}

TEST(DeleteQuestion, NamesEachFileWithItsEnding) {
    EXPECT_EQ(MakeDeleteQuestion({L"A", L"A.bak", L"50%d"}),
              L"Are you sure you want to delete these drawings?\n\nA.dwg\nA.bak\n50%d.dwg\n");
}

TEST(OnlyDefaultDrawing, SpellingCounts) {
    EXPECT_TRUE(IsOnlyDefaultDrawing({L"Drawing1"}));
    EXPECT_FALSE(IsOnlyDefaultDrawing({L"drawing1"}));
    EXPECT_FALSE(IsOnlyDefaultDrawing({L"Drawing1", L"Drawing2"}));
    EXPECT_FALSE(IsOnlyDefaultDrawing({}));
}
