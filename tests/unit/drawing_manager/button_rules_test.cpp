#include "drawing_manager/button_rules.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "resources/resource.h"

using testing::ElementsAre;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

namespace {

CButtonStates WithRows(RowSelection rows) {
    return GetButtonStates(kItemProject, 5, rows, L"C:\\D\\");
}

}  // namespace

TEST(ButtonStates, NothingSelected_NothingEnabled) {
    EXPECT_EQ(GetButtonStates(kItemNone, 0, RowSelection::kNone, L""), CButtonStates{});
}

TEST(ButtonStates, OpenStandard_NeedsAStandardItself) {
    EXPECT_TRUE(GetButtonStates(kItemProject, 5, RowSelection::kNone, L"").bOpenStandard);
    EXPECT_FALSE(GetButtonStates(kItemProject, 0, RowSelection::kNone, L"").bOpenStandard);
    EXPECT_FALSE(GetButtonStates(kItemFolder, -1, RowSelection::kNone, L"C:\\D\\").bOpenStandard);
    EXPECT_FALSE(GetButtonStates(kItemClient, -1, RowSelection::kNone, L"").bOpenStandard);
}

TEST(ButtonStates, Location_EnablesNewAndExplore) {
    EXPECT_TRUE(GetButtonStates(kItemFolder, -1, RowSelection::kNone, L"C:\\D\\").bNewAndExplore);
    EXPECT_FALSE(GetButtonStates(kItemFolder, -1, RowSelection::kNone, L"").bNewAndExplore);
}

TEST(ButtonStates, AnySelectedRow_EnablesCopyRenameDelete) {
    EXPECT_TRUE(WithRows(RowSelection::kSomeDrawing).bCopyRenameDelete);
    EXPECT_TRUE(WithRows(RowSelection::kOnlyBackups).bCopyRenameDelete);
    EXPECT_FALSE(WithRows(RowSelection::kNone).bCopyRenameDelete);
}

TEST(ButtonStates, OnlyBackupsSelected_DisablesOpen) {
    EXPECT_FALSE(WithRows(RowSelection::kOnlyBackups).bOpen);
    EXPECT_TRUE(WithRows(RowSelection::kSomeDrawing).bOpen);
    EXPECT_FALSE(WithRows(RowSelection::kNone).bOpen);
}

TEST(FolderMenu, EmptySpace_LeavesOnlyRefresh) {
    EXPECT_THAT(GetGreyedFolderCommands(kItemNone, 0), UnorderedElementsAre(228, 32770, 32771, 32773));
}

TEST(FolderMenu, Client_AllowsNewFolder) {
    EXPECT_THAT(GetGreyedFolderCommands(kItemClient, 0), UnorderedElementsAre(228, 32771, 32773));
}

TEST(FolderMenu, Standard_AllowsOpenAndNewFolder) {
    EXPECT_THAT(GetGreyedFolderCommands(kItemProject, 7), UnorderedElementsAre(32771, 32773));
}

TEST(FolderMenu, Folder_AllowsEverything) {
    EXPECT_THAT(GetGreyedFolderCommands(kItemFolder, 7), IsEmpty());
}

TEST(FolderMenu, FolderOfNoStandard_CannotBeOpened) {
    EXPECT_THAT(GetGreyedFolderCommands(kItemFolder, 0), ElementsAre(228));
}

TEST(DrawingMenu, OneRow_GreysNothing) {
    EXPECT_THAT(GetGreyedDrawingCommands(1, 7, true), IsEmpty());
}

TEST(DrawingMenu, SeveralRows_GreyRenameOnly) {
    EXPECT_THAT(GetGreyedDrawingCommands(2, 7, true), ElementsAre(182));
}

TEST(DrawingMenu, NoRow_GreysWhatWorksOnRows) {
    EXPECT_THAT(GetGreyedDrawingCommands(0, 7, true), UnorderedElementsAre(182, 215, 242, 220, 184));
}

TEST(DrawingMenu, NoStandard_GreysNewAndRefresh) {
    EXPECT_THAT(GetGreyedDrawingCommands(1, 0, true), UnorderedElementsAre(181, 185));
}

TEST(DrawingMenu, NoFolder_GreysNew) {
    EXPECT_THAT(GetGreyedDrawingCommands(1, 7, false), ElementsAre(181));
    EXPECT_THAT(GetGreyedDrawingCommands(0, 0, false),
                UnorderedElementsAre(181, 182, 184, 185, 215, 220, 242));
}
