#include "drawing_file/dxf_drawing_files.h"

#include <gmock/gmock.h>

#include "drawing_text.h"
#include "support/test_platform.h"

namespace workbench::test {
namespace {

using drawing_file::DxfDrawingFiles;

class DrawingFilesTest : public MemorySystemTest {
  protected:
    DxfDrawingFiles m_files;
    AcDbDatabase m_database{false, true};
    std::wstring m_error;
};

TEST_F(DrawingFilesTest, Read_OfADrawing_FillsTheDatabase) {
    PutFile(InRoot(L"a.dwg"), Entities("0\nPOINT\n8\n0\n10\n1\n"));
    EXPECT_EQ(m_files.Read(InRoot(L"a.dwg"), m_database, m_error), Acad::eOk);
    EXPECT_EQ(database::DataOf(m_database).ModelSpace()->entities.size(), 1u);
    EXPECT_EQ(m_error, L"");
}

TEST_F(DrawingFilesTest, Read_OfAMissingFile_SaysSo) {
    EXPECT_EQ(m_files.Read(InRoot(L"none.dwg"), m_database, m_error), Acad::eFileNotFound);
    EXPECT_THAT(m_error, testing::HasSubstr(L"none.dwg"));
    EXPECT_EQ(m_files.Read(InRoot(L"no folder\\none.dwg"), m_database, m_error), Acad::eFileNotFound);
}

TEST_F(DrawingFilesTest, Read_OfAFileThatAnotherProgramHolds_IsASharingViolation) {
    PutFile(InRoot(L"a.dwg"), Entities(""));
    const auto held = HoldFile(InRoot(L"a.dwg"), platform::Hold::kWriting);
    EXPECT_EQ(m_files.Read(InRoot(L"a.dwg"), m_database, m_error), Acad::eFileSharingViolation);
}

TEST_F(DrawingFilesTest, Read_OfDamage_GivesTheLine) {
    PutFile(InRoot(L"a.dwg"), Entities("0\nPOINT\n8\n0\n10\nx\n"));
    EXPECT_EQ(m_files.Read(InRoot(L"a.dwg"), m_database, m_error), Acad::eFilerError);
    EXPECT_EQ(m_error, L"Line 10: \"x\" is not a number.");
    EXPECT_TRUE(database::DataOf(m_database).stubs.empty());
}

TEST_F(DrawingFilesTest, Write_ReplacesTheFileAndLeavesNoOther) {
    database::BuildDefaultDrawing(m_database);
    PutFile(InRoot(L"a.dwg"), "old");
    EXPECT_EQ(m_files.Write(InRoot(L"a.dwg"), m_database, m_error), Acad::eOk);
    EXPECT_EQ(GetBytes(InRoot(L"a.dwg")), drawing_file::WriteDrawing(m_database));
    EXPECT_EQ(GetMemory().files.Find(InRoot(L"*")).size(), 1u);
    EXPECT_EQ(m_error, L"");
}

TEST_F(DrawingFilesTest, Write_OnAFullDisk_LeavesTheOldDrawing) {
    database::BuildDefaultDrawing(m_database);
    PutFile(InRoot(L"a.dwg"), "old");
    GetMemory().files.FailWriteAt(InRoot(L"a.dwg.writing"), 20);
    EXPECT_EQ(m_files.Write(InRoot(L"a.dwg"), m_database, m_error), Acad::eOutOfDisk);
    EXPECT_EQ(GetBytes(InRoot(L"a.dwg")), "old");
    EXPECT_EQ(GetMemory().files.Find(InRoot(L"*")).size(), 1u);
    EXPECT_NE(m_error, L"");
}

TEST_F(DrawingFilesTest, Write_OfAReadOnlyFile_IsRefused) {
    database::BuildDefaultDrawing(m_database);
    PutFile(InRoot(L"a.dwg"), "old");
    SetReadOnly(InRoot(L"a.dwg"));
    EXPECT_EQ(m_files.Write(InRoot(L"a.dwg"), m_database, m_error), Acad::eFileAccessErr);
    EXPECT_EQ(GetBytes(InRoot(L"a.dwg")), "old");
    EXPECT_EQ(GetMemory().files.Find(InRoot(L"*")).size(), 1u);
}

TEST_F(DrawingFilesTest, Write_IntoAMissingFolder_IsRefused) {
    database::BuildDefaultDrawing(m_database);
    EXPECT_EQ(m_files.Write(InRoot(L"none\\a.dwg"), m_database, m_error), Acad::eFileAccessErr);
}

}  // namespace
}  // namespace workbench::test
