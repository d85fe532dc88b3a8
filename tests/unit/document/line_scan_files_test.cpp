// The scan for line numbers over real drawing files.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "document/drawing_queries.h"
#include "drawing_file/drawing_writer.h"
#include "drawing_file/dxf_drawing_files.h"
#include "host_test.h"
#include "platform/letter_case.h"

namespace {

using testing::ElementsAre;

class LineScanFilesTest : public HostTest {
  protected:
    LineScanFilesTest() { workbench::database::InstallDrawingFiles(&m_files); }

    // A drawing on disk with tags of these line numbers.
    std::wstring PutDrawing(const std::wstring& name, const std::vector<std::wstring>& lines) {
        AcDbDatabase database(true, true);
        TestDrawing drawing(database);
        for (const std::wstring& line : lines)
            drawing.AddReference(L"TAGLINE", {{L"SIZE", L"4"}, {L"LIN_NUM", line}});
        drawing.AddLine();
        PutFile(InRoot(name), workbench::drawing_file::WriteDrawing(database));
        return InRoot(name);
    }

    static std::vector<std::wstring> Collect(const std::wstring& path) {
        std::vector<std::wstring> lines;
        EXPECT_EQ(CollectLineNumbers(lines, path), Acad::eOk);
        return lines;
    }

    workbench::drawing_file::DxfDrawingFiles m_files;
};

TEST_F(LineScanFilesTest, ClosedDrawing_IsReadFromDisk) {
    const std::wstring path =
        PutDrawing(L"a.dwg", {L"6\"-CW-1001", L"-", L"\u00D8 50 \u4E2D", L"6\"-CW-1001"});
    EXPECT_THAT(Collect(path), ElementsAre(L"6\"-CW-1001", L"", L"\u00D8 50 \u4E2D"));
    EXPECT_THAT(Collect(platform::ToUpper(path)), ElementsAre(L"6\"-CW-1001", L"", L"\u00D8 50 \u4E2D"));
}

TEST_F(LineScanFilesTest, ClosedDrawing_IsReadWhileAnotherProgramReadsIt) {
    const std::wstring path = PutDrawing(L"a.dwg", {L"P-1"});
    const auto held = HoldFile(path, platform::Hold::kWritingShared);
    EXPECT_THAT(Collect(path), ElementsAre(L"P-1"));
}

TEST_F(LineScanFilesTest, Scan_OfAFileLeavesTheCurrentDrawingAlone) {
    const std::wstring path = PutDrawing(L"a.dwg", {L"P-1"});
    AcApDocument* document = NewDocument();
    Collect(path);
    EXPECT_EQ(acDocManager->curDocument(), document);
    EXPECT_EQ(acDocManager->documentCount(), 1);
    EXPECT_EQ(GetModelSpaceId(nullptr), GetModelSpaceId(document->database()));
    EXPECT_EQ(acdbSetDbmod(document->database(), 0), 0);
}

TEST_F(LineScanFilesTest, DamagedFile_GivesItsStatusAndLeavesTheList) {
    const std::string whole = GetBytes(PutDrawing(L"a.dwg", {L"P-1"}));
    for (const std::string& bytes :
         {std::string(), std::string("AC1032\x01"), whole.substr(0, whole.size() / 2)}) {
        PutFile(InRoot(L"a.dwg"), bytes);
        std::vector<std::wstring> lines{L"before"};
        EXPECT_EQ(CollectLineNumbers(lines, InRoot(L"a.dwg")), Acad::eFilerError);
        EXPECT_THAT(lines, ElementsAre(L"before"));
    }
}

TEST_F(LineScanFilesTest, FileThatNobodyMayRead_GivesItsStatus) {
    const std::wstring path = PutDrawing(L"a.dwg", {L"P-1"});
    const auto held = HoldFile(path, platform::Hold::kWriting);
    std::vector<std::wstring> lines;
    EXPECT_EQ(CollectLineNumbers(lines, path), Acad::eFileSharingViolation);
    EXPECT_EQ(CollectLineNumbers(lines, InRoot(L"none.dwg")), Acad::eFileNotFound);
}

}  // namespace
