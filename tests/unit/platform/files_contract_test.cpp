#include <algorithm>

#include "contract_test.h"

namespace {

using platform::ErrorCode;
using platform::FileStatus;
using platform::FoundEntry;
using platform::Hold;
using platform::Sharing;
using platform::WriteResult;

class FilesContract : public ContractTest {
  protected:
    std::wstring File() const { return InRoot(L"Lines.ini"); }

    ErrorCode Read(const std::wstring& path, Sharing sharing = Sharing::kReadOnly) {
        std::string bytes;
        return GetFiles().ReadBytes(path, sharing, bytes);
    }

    std::vector<std::wstring> FindNames(const std::wstring& pattern) {
        std::vector<std::wstring> names;
        for (const FoundEntry& entry : GetFiles().Find(InRoot(pattern)))
            names.push_back(entry.name);
        return names;
    }
};

KV2D_CONTRACT_TESTS(FilesContract);

using Names = std::vector<std::wstring>;

TEST_P(FilesContract, ReadBytes_OfWrittenFile_GivesEveryByte) {
    std::string bytes;
    for (int byte = 0; byte < 256; ++byte)
        bytes += static_cast<char>(byte);
    ASSERT_EQ(GetFiles().WriteBytes(File(), bytes), WriteResult::kWritten);
    std::string read = "rest";
    EXPECT_EQ(GetFiles().ReadBytes(File(), Sharing::kReadOnly, read), platform::kDone);
    EXPECT_EQ(read, bytes);
}

TEST_P(FilesContract, ReadBytes_OfMissingFile_IsFileNotFoundAndEmptiesTheResult) {
    std::string read = "rest";
    EXPECT_EQ(GetFiles().ReadBytes(File(), Sharing::kReadOnly, read), platform::kFileNotFound);
    EXPECT_EQ(read, "");
}

TEST_P(FilesContract, ReadBytes_InMissingFolder_IsPathNotFound) {
    EXPECT_EQ(Read(InRoot(L"No\\Lines.ini")), platform::kPathNotFound);
}

TEST_P(FilesContract, ReadBytes_OfEmptyPath_IsPathNotFound) {
    EXPECT_EQ(Read(L""), platform::kPathNotFound);
}

TEST_P(FilesContract, ReadBytes_OfFolder_IsAccessDenied) {
    PutFolder(InRoot(L"Folder"));
    EXPECT_EQ(Read(InRoot(L"Folder")), platform::kAccessDenied);
}

TEST_P(FilesContract, ReadBytes_OfNameWithWildcard_IsInvalidName) {
    EXPECT_EQ(Read(InRoot(L"Lines*.ini")), platform::kInvalidName);
}

TEST_P(FilesContract, ReadBytes_WithOtherCaseAndSlash_FindsTheFile) {
    PutFile(InRoot(L"Folder\\Lines.ini"), "text");
    EXPECT_EQ(Read(InRoot(L"FOLDER/lines.INI")), platform::kDone);
}

TEST_P(FilesContract, ReadBytes_WithDotsInPath_FindsTheFile) {
    PutFile(InRoot(L"Folder\\Lines.ini"), "text");
    EXPECT_EQ(Read(InRoot(L"Folder\\..\\.\\Folder\\Lines.ini")), platform::kDone);
}

TEST_P(FilesContract, ReadBytes_WhileAnotherReads_Succeeds) {
    PutFile(File(), "text");
    const auto held = HoldFile(File(), Hold::kReading);
    EXPECT_EQ(Read(File()), platform::kDone);
}

TEST_P(FilesContract, ReadBytes_DenyingWriters_WhileAnotherWritesShared_IsSharingViolation) {
    PutFile(File(), "text");
    const auto held = HoldFile(File(), Hold::kWritingShared);
    EXPECT_EQ(Read(File(), Sharing::kReadOnly), platform::kSharingViolation);
    EXPECT_EQ(Read(File(), Sharing::kReadWrite), platform::kDone);
}

TEST_P(FilesContract, ReadBytes_WhileAnotherHoldsItExclusively_IsSharingViolation) {
    PutFile(File(), "text");
    auto held = HoldFile(File(), Hold::kWriting);
    EXPECT_EQ(Read(File(), Sharing::kReadWrite), platform::kSharingViolation);
    held.reset();
    EXPECT_EQ(Read(File(), Sharing::kReadWrite), platform::kDone);
}

TEST_P(FilesContract, WriteBytes_OverLongerFile_Truncates) {
    PutFile(File(), "a long text");
    EXPECT_EQ(GetFiles().WriteBytes(File(), "short"), WriteResult::kWritten);
    EXPECT_EQ(GetBytes(File()), "short");
}

TEST_P(FilesContract, WriteBytes_OverFileOfOtherCase_KeepsTheFirstName) {
    PutFile(InRoot(L"Lines.ini"), "one");
    EXPECT_EQ(GetFiles().WriteBytes(InRoot(L"LINES.INI"), "two"), WriteResult::kWritten);
    EXPECT_EQ(FindNames(L"*"), Names({L"Lines.ini"}));
    EXPECT_EQ(GetBytes(InRoot(L"Lines.ini")), "two");
}

TEST_P(FilesContract, WriteBytes_InMissingFolder_CannotCreate) {
    EXPECT_EQ(GetFiles().WriteBytes(InRoot(L"No\\Lines.ini"), "text"), WriteResult::kCannotCreate);
}

TEST_P(FilesContract, WriteBytes_OverFolder_CannotCreate) {
    PutFolder(InRoot(L"Folder"));
    EXPECT_EQ(GetFiles().WriteBytes(InRoot(L"Folder"), "text"), WriteResult::kCannotCreate);
}

TEST_P(FilesContract, WriteBytes_ToEmptyPath_CannotCreate) {
    EXPECT_EQ(GetFiles().WriteBytes(L"", "text"), WriteResult::kCannotCreate);
}

TEST_P(FilesContract, WriteBytes_WhileAnotherReads_CannotCreateAndFileStays) {
    PutFile(File(), "old");
    const auto held = HoldFile(File(), Hold::kReading);
    EXPECT_EQ(GetFiles().WriteBytes(File(), "new"), WriteResult::kCannotCreate);
    EXPECT_EQ(GetBytes(File()), "old");
}

TEST_P(FilesContract, WriteBytes_WhileAnotherSharesWriting_CannotCreate) {
    PutFile(File(), "old");
    const auto held = HoldFile(File(), Hold::kWritingShared);
    EXPECT_EQ(GetFiles().WriteBytes(File(), "new"), WriteResult::kCannotCreate);
}

TEST_P(FilesContract, WriteBytes_OfNothing_LeavesEmptyFile) {
    EXPECT_EQ(GetFiles().WriteBytes(File(), ""), WriteResult::kWritten);
    EXPECT_TRUE(HasFile(File()));
    EXPECT_EQ(GetBytes(File()), "");
}

TEST_P(FilesContract, WriteBytes_ChangesTheTime) {
    PutFile(File(), "one");
    const platform::FileTime old = platform::ToFileTime({2001, 2, 3, 4, 5, 6});
    SetModified(File(), old);
    ASSERT_EQ(GetModified(File()), old);
    GetFiles().WriteBytes(File(), "one");
    EXPECT_GT(GetModified(File()), old);
}

TEST_P(FilesContract, GetAttributes_TellsFilesFoldersAndMissing) {
    PutFile(File(), "text");
    EXPECT_EQ(GetFiles().GetAttributes(File()) & platform::kAttributeDirectory, 0u);
    EXPECT_EQ(GetFiles().GetAttributes(InRoot(L"no.ini")), platform::kInvalidAttributes);
    EXPECT_EQ(GetFiles().GetAttributes(L""), platform::kInvalidAttributes);
    const std::uint32_t root = GetFiles().GetAttributes(GetRoot());
    ASSERT_NE(root, platform::kInvalidAttributes);
    EXPECT_EQ(root & platform::kAttributeDirectory, platform::kAttributeDirectory);
    EXPECT_TRUE(GetFiles().Exists(File()));
    EXPECT_FALSE(GetFiles().Exists(InRoot(L"no.ini")));
}

TEST_P(FilesContract, GetAttributes_OfFolderWithAndWithoutBackslash_IsTheSame) {
    PutFolder(InRoot(L"Folder"));
    EXPECT_EQ(GetFiles().GetAttributes(InRoot(L"Folder")), GetFiles().GetAttributes(InRoot(L"Folder\\")));
}

TEST_P(FilesContract, SetAttributes_ReadOnly_ShowsAndGoesAgain) {
    PutFile(File(), "text");
    EXPECT_EQ(GetFiles().SetAttributes(File(), platform::kAttributeReadOnly), platform::kDone);
    EXPECT_NE(GetFiles().GetAttributes(File()) & platform::kAttributeReadOnly, 0u);
    EXPECT_EQ(GetFiles().SetAttributes(File(), 0), platform::kDone);
    EXPECT_EQ(GetFiles().GetAttributes(File()) & platform::kAttributeReadOnly, 0u);
}

TEST_P(FilesContract, SetAttributes_OfMissingFile_IsFileNotFound) {
    EXPECT_EQ(GetFiles().SetAttributes(File(), 0), platform::kFileNotFound);
}

TEST_P(FilesContract, GetStatus_GivesSizeTimeAndAttributes) {
    PutFile(File(), "12345");
    const platform::FileTime time = platform::ToFileTime({2019, 5, 6, 7, 8, 9});
    SetModified(File(), time);
    SetReadOnly(File());
    FileStatus status;
    ASSERT_EQ(GetFiles().GetStatus(File(), status), platform::kDone);
    EXPECT_EQ(status.size, 5u);
    EXPECT_EQ(status.modified, time);
    EXPECT_NE(status.attributes & platform::kAttributeReadOnly, 0u);
}

TEST_P(FilesContract, GetStatus_OfMissingFile_IsFileNotFoundAndLeavesTheResult) {
    FileStatus status{7, 8, 9};
    EXPECT_EQ(GetFiles().GetStatus(File(), status), platform::kFileNotFound);
    EXPECT_EQ(status.size, 7u);
}

TEST_P(FilesContract, Find_SortsWithoutCaseAndLeavesDotsOut) {
    PutFile(InRoot(L"b.dwg"), "");
    PutFile(InRoot(L"A.dwg"), "");
    PutFile(InRoot(L"C.DWG"), "");
    PutFolder(InRoot(L"aa.dwg"));
    EXPECT_EQ(FindNames(L"*.dwg"), Names({L"A.dwg", L"aa.dwg", L"b.dwg", L"C.DWG"}));
    EXPECT_EQ(FindNames(L"*"), Names({L"A.dwg", L"aa.dwg", L"b.dwg", L"C.DWG"}));
}

TEST_P(FilesContract, Find_TellsFolders) {
    PutFile(InRoot(L"file"), "");
    PutFolder(InRoot(L"folder"));
    const std::vector<FoundEntry> entries = GetFiles().Find(InRoot(L"f*"));
    ASSERT_EQ(entries.size(), 2u);
    EXPECT_FALSE(entries[0].isDirectory);
    EXPECT_TRUE(entries[1].isDirectory);
}

TEST_P(FilesContract, Find_StarDotStar_AlsoFindsNamesWithoutDot) {
    PutFile(InRoot(L"plain"), "");
    PutFile(InRoot(L"with.dot"), "");
    EXPECT_EQ(FindNames(L"*.*"), Names({L"plain", L"with.dot"}));
}

TEST_P(FilesContract, Find_ThreeLetterExtension_AlsoMatchesLongerOnes) {
    PutFile(InRoot(L"x.dwgx"), "");
    PutFile(InRoot(L"y.dw"), "");
    EXPECT_EQ(FindNames(L"*.dwg"), Names({L"x.dwgx"}));
}

TEST_P(FilesContract, Find_QuestionMark_MatchesOneCharacter) {
    PutFile(InRoot(L"P1.dwg"), "");
    PutFile(InRoot(L"P12.dwg"), "");
    EXPECT_EQ(FindNames(L"P?.dwg"), Names({L"P1.dwg"}));
}

TEST_P(FilesContract, Find_PrefixPattern_FindsProjectFolder) {
    PutFolder(InRoot(L"KV2D_PRJ_5 - Pump"));
    PutFolder(InRoot(L"KV2D_PRJ_51 - Other"));
    EXPECT_EQ(FindNames(L"KV2D_PRJ_5 - *"), Names({L"KV2D_PRJ_5 - Pump"}));
}

TEST_P(FilesContract, Find_PointAheadOfWildcard_AlsoMatchesTheEndOfAName) {
    PutFolder(InRoot(L"KV2D_PRJ_5 - Pump"));
    PutFolder(InRoot(L"KV2D_PRJ_5 - Tank.2"));
    PutFolder(InRoot(L"KV2D_PRJ_51 - Other"));
    EXPECT_EQ(FindNames(L"KV2D_PRJ_5 - *.*"), Names({L"KV2D_PRJ_5 - Pump", L"KV2D_PRJ_5 - Tank.2"}));
}

TEST_P(FilesContract, Find_PlainName_FindsItWithItsOwnCase) {
    PutFile(InRoot(L"Lines.ini"), "");
    EXPECT_EQ(FindNames(L"LINES.INI"), Names({L"Lines.ini"}));
}

TEST_P(FilesContract, Find_InMissingOrEmptyFolder_IsEmpty) {
    PutFolder(InRoot(L"Empty"));
    EXPECT_EQ(FindNames(L"No\\*"), Names());
    EXPECT_EQ(FindNames(L"Empty\\*"), Names());
    EXPECT_EQ(FindNames(L"*.nothing"), Names());
    EXPECT_TRUE(GetFiles().Find(L"").empty());
}

TEST_P(FilesContract, Move_RenamesFileAndKeepsItsBytes) {
    PutFile(InRoot(L"a.dwg"), "drawing");
    EXPECT_EQ(GetFiles().Move(InRoot(L"a.dwg"), InRoot(L"b.dwg")), platform::kDone);
    EXPECT_FALSE(HasFile(InRoot(L"a.dwg")));
    EXPECT_EQ(GetBytes(InRoot(L"b.dwg")), "drawing");
}

TEST_P(FilesContract, Move_ToExistingFile_IsAlreadyExists) {
    PutFile(InRoot(L"a.dwg"), "a");
    PutFile(InRoot(L"b.dwg"), "b");
    EXPECT_EQ(GetFiles().Move(InRoot(L"a.dwg"), InRoot(L"B.DWG")), platform::kAlreadyExists);
    EXPECT_EQ(GetBytes(InRoot(L"a.dwg")), "a");
}

TEST_P(FilesContract, Move_OfMissingFile_IsFileNotFound) {
    EXPECT_EQ(GetFiles().Move(InRoot(L"a.dwg"), InRoot(L"b.dwg")), platform::kFileNotFound);
}

TEST_P(FilesContract, Move_ToMissingFolder_IsPathNotFound) {
    PutFile(InRoot(L"a.dwg"), "a");
    EXPECT_EQ(GetFiles().Move(InRoot(L"a.dwg"), InRoot(L"No\\a.dwg")), platform::kPathNotFound);
}

TEST_P(FilesContract, Move_ToEmptyPath_Fails) {
    PutFile(InRoot(L"a.dwg"), "a");
    EXPECT_NE(GetFiles().Move(InRoot(L"a.dwg"), L""), platform::kDone);
    EXPECT_TRUE(HasFile(InRoot(L"a.dwg")));
}

TEST_P(FilesContract, Move_OfFolder_TakesItsContents) {
    PutFile(InRoot(L"KV2D_PRJ_5 - Old\\Lines.ini"), "lines");
    EXPECT_EQ(GetFiles().Move(InRoot(L"KV2D_PRJ_5 - Old"), InRoot(L"KV2D_PRJ_5 - New")), platform::kDone);
    EXPECT_EQ(GetBytes(InRoot(L"KV2D_PRJ_5 - New\\Lines.ini")), "lines");
    EXPECT_FALSE(HasFolder(InRoot(L"KV2D_PRJ_5 - Old")));
}

TEST_P(FilesContract, Move_OfFolderOntoExisting_IsAlreadyExists) {
    PutFolder(InRoot(L"a"));
    PutFolder(InRoot(L"b"));
    EXPECT_EQ(GetFiles().Move(InRoot(L"a"), InRoot(L"b")), platform::kAlreadyExists);
}

TEST_P(FilesContract, Move_OfFileInUse_IsSharingViolation) {
    PutFile(InRoot(L"a.dwg"), "a");
    const auto held = HoldFile(InRoot(L"a.dwg"), Hold::kReading);
    EXPECT_EQ(GetFiles().Move(InRoot(L"a.dwg"), InRoot(L"b.dwg")), platform::kSharingViolation);
}

TEST_P(FilesContract, Move_OfReadOnlyFile_Succeeds) {
    PutFile(InRoot(L"a.dwg"), "a");
    SetReadOnly(InRoot(L"a.dwg"));
    EXPECT_EQ(GetFiles().Move(InRoot(L"a.dwg"), InRoot(L"b.dwg")), platform::kDone);
    EXPECT_NE(GetFiles().GetAttributes(InRoot(L"b.dwg")) & platform::kAttributeReadOnly, 0u);
}

TEST_P(FilesContract, Copy_KeepsBytesTimeAndAttributes) {
    PutFile(InRoot(L"a.dwg"), "drawing");
    const platform::FileTime time = platform::ToFileTime({2015, 1, 2, 3, 4, 5});
    SetModified(InRoot(L"a.dwg"), time);
    SetReadOnly(InRoot(L"a.dwg"));
    ASSERT_EQ(GetFiles().Copy(InRoot(L"a.dwg"), InRoot(L"b.dwg"), true), platform::kDone);
    EXPECT_EQ(GetBytes(InRoot(L"b.dwg")), "drawing");
    EXPECT_EQ(GetModified(InRoot(L"b.dwg")), time);
    EXPECT_NE(GetFiles().GetAttributes(InRoot(L"b.dwg")) & platform::kAttributeReadOnly, 0u);
}

TEST_P(FilesContract, Copy_OntoExisting_IsRefusedOrReplacesAsAsked) {
    PutFile(InRoot(L"a.dwg"), "a");
    PutFile(InRoot(L"b.dwg"), "b");
    EXPECT_EQ(GetFiles().Copy(InRoot(L"a.dwg"), InRoot(L"b.dwg"), true), platform::kFileExists);
    EXPECT_EQ(GetBytes(InRoot(L"b.dwg")), "b");
    EXPECT_EQ(GetFiles().Copy(InRoot(L"a.dwg"), InRoot(L"b.dwg"), false), platform::kDone);
    EXPECT_EQ(GetBytes(InRoot(L"b.dwg")), "a");
}

TEST_P(FilesContract, Copy_OfMissingFile_IsFileNotFound) {
    EXPECT_EQ(GetFiles().Copy(InRoot(L"a.dwg"), InRoot(L"b.dwg"), false), platform::kFileNotFound);
}

TEST_P(FilesContract, Copy_IntoMissingFolder_IsPathNotFound) {
    PutFile(InRoot(L"a.dwg"), "a");
    EXPECT_EQ(GetFiles().Copy(InRoot(L"a.dwg"), InRoot(L"No\\b.dwg"), false), platform::kPathNotFound);
}

TEST_P(FilesContract, Copy_OfFolder_IsAccessDenied) {
    PutFolder(InRoot(L"a"));
    EXPECT_EQ(GetFiles().Copy(InRoot(L"a"), InRoot(L"b"), false), platform::kAccessDenied);
}

TEST_P(FilesContract, Copy_OfFileThatAnotherHoldsExclusively_IsSharingViolation) {
    PutFile(InRoot(L"a.dwg"), "a");
    const auto held = HoldFile(InRoot(L"a.dwg"), Hold::kWriting);
    EXPECT_EQ(GetFiles().Copy(InRoot(L"a.dwg"), InRoot(L"b.dwg"), false), platform::kSharingViolation);
    EXPECT_FALSE(HasFile(InRoot(L"b.dwg")));
}

TEST_P(FilesContract, Remove_TakesTheFileAway) {
    PutFile(File(), "text");
    EXPECT_EQ(GetFiles().Remove(File()), platform::kDone);
    EXPECT_FALSE(HasFile(File()));
    EXPECT_EQ(GetFiles().Remove(File()), platform::kFileNotFound);
}

TEST_P(FilesContract, Remove_OfReadOnlyFile_IsAccessDenied) {
    PutFile(File(), "text");
    SetReadOnly(File());
    EXPECT_EQ(GetFiles().Remove(File()), platform::kAccessDenied);
    EXPECT_TRUE(HasFile(File()));
}

TEST_P(FilesContract, Remove_OfFileInUse_IsSharingViolation) {
    PutFile(File(), "text");
    const auto held = HoldFile(File(), Hold::kReadingShared);
    EXPECT_EQ(GetFiles().Remove(File()), platform::kSharingViolation);
}

TEST_P(FilesContract, Remove_OfFolder_IsAccessDenied) {
    PutFolder(InRoot(L"Folder"));
    EXPECT_EQ(GetFiles().Remove(InRoot(L"Folder")), platform::kAccessDenied);
}

TEST_P(FilesContract, MakeFolder_MakesOneLevel) {
    EXPECT_EQ(GetFiles().MakeFolder(InRoot(L"a")), platform::kDone);
    EXPECT_TRUE(HasFolder(InRoot(L"a")));
    EXPECT_EQ(GetFiles().MakeFolder(InRoot(L"A\\")), platform::kAlreadyExists);
    EXPECT_EQ(GetFiles().MakeFolder(InRoot(L"b\\c")), platform::kPathNotFound);
}

TEST_P(FilesContract, MakeFolder_OverFile_IsAlreadyExists) {
    PutFile(InRoot(L"a"), "");
    EXPECT_EQ(GetFiles().MakeFolder(InRoot(L"a")), platform::kAlreadyExists);
}

TEST_P(FilesContract, MakeFolder_WithForbiddenCharacter_IsInvalidName) {
    EXPECT_EQ(GetFiles().MakeFolder(InRoot(L"a:b?")), platform::kInvalidName);
}

TEST_P(FilesContract, RemoveFolder_OnlyTakesEmptyOnes) {
    PutFile(InRoot(L"a\\file"), "");
    EXPECT_EQ(GetFiles().RemoveFolder(InRoot(L"a")), platform::kDirectoryNotEmpty);
    EXPECT_EQ(GetFiles().Remove(InRoot(L"a\\file")), platform::kDone);
    EXPECT_EQ(GetFiles().RemoveFolder(InRoot(L"a")), platform::kDone);
    EXPECT_EQ(GetFiles().RemoveFolder(InRoot(L"a")), platform::kFileNotFound);
}

TEST_P(FilesContract, RemoveFolder_WithHiddenFile_IsNotEmpty) {
    PutFile(InRoot(L"a\\hidden"), "");
    SetHidden(InRoot(L"a\\hidden"));
    EXPECT_EQ(GetFiles().RemoveFolder(InRoot(L"a")), platform::kDirectoryNotEmpty);
}

TEST_P(FilesContract, RemoveFolder_OfFile_IsNotAFolder) {
    PutFile(File(), "");
    EXPECT_EQ(GetFiles().RemoveFolder(File()), platform::kNotAFolder);
}

}  // namespace
