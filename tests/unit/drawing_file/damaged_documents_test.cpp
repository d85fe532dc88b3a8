// Damaged files as a user meets them: the host opens one, says what is wrong with it, and goes on as it was.
#include <gmock/gmock.h>

#include "drawing_file/drawing_writer.h"
#include "drawing_file/dxf_drawing_files.h"
#include "drawing_text.h"
#include "support/test_platform.h"
#include "unit/workbench/host_fixture.h"

namespace workbench::test {
namespace {

using testing::HasSubstr;
using testing::Not;

class DamagedDocumentsTest : public HostTest {
  protected:
    DamagedDocumentsTest() { database::InstallDrawingFiles(&m_drawingFiles); }

    std::wstring Put(const std::wstring& name, const std::string& bytes) {
        const std::wstring path = m_system.InRoot(name);
        m_system.PutFile(path, bytes);
        m_files.texts[path] = L"";  // the host asks here whether the file exists
        return path;
    }

    // Opens a damaged file over a document with unsaved work.
    void ExpectRefused(const std::string& bytes, const std::wstring& said) {
        const std::wstring path = Put(L"bad.dwg", bytes);
        host::Document& before = *Documents().Current();
        const std::string content = drawing_file::WriteDrawing(*before.database());
        DocumentEvents events;
        m_surface.transcript.clear();
        EXPECT_EQ(acDocManager->appContextOpenDocument(path.c_str()), Acad::eFilerError);
        EXPECT_THAT(m_surface.transcript, HasSubstr(path + L": " + said));
        EXPECT_EQ(events.events, (Events{L"createStarted bad.dwg", L"createCanceled bad.dwg"}));
        EXPECT_EQ(acDocManager->curDocument(), &before);
        EXPECT_EQ(acDocManager->mdiActiveDocument(), &before);
        EXPECT_EQ(acDocManager->documentCount(), 1);
        EXPECT_EQ(acdbHostApplicationServices()->workingDatabase(), before.database());
        EXPECT_EQ(drawing_file::WriteDrawing(*before.database()), content);
        EXPECT_EQ(Variable(L"DBMOD"), L"1") << "its changes still wait to be saved";
        EXPECT_FALSE(m_files.texts.contains(m_system.InRoot(L"bad.dwl")));
        EXPECT_EQ(m_system.GetBytes(path), bytes);
    }

    host::Document& ADocumentWithWork() {
        host::Document& document = ADocument();
        Type(L"LINE 0,0 1,1\n\n");
        return document;
    }

    TestSystem m_system{SystemKind::kMemory};
    drawing_file::DxfDrawingFiles m_drawingFiles;
};

TEST_F(DamagedDocumentsTest, EveryKindOfDamage_IsToldWithItsLineAndChangesNothing) {
    ADocumentWithWork();
    const std::string whole = Entities("0\nLINE\n8\n0\n10\n1\n20\n2\n11\n3\n21\n4\n");
    ExpectRefused("", L"Line 1: The file is empty.");
    ExpectRefused(whole.substr(0, whole.size() / 2), L"Line ");
    ExpectRefused(whole.substr(0, whole.find("0\nENDSEC")),
                  L"Line 16: The file ends ahead of its end mark (EOF).");
    ExpectRefused("AutoCAD Binary DXF\r\n\x1a\x01\x02", L"Line 1: The file is in the binary form");
    ExpectRefused("AC1032\x01\x02", L"Line 1: The file is in the binary drawing format");
    ExpectRefused(Entities("0\nLINE\n8\n0\n10\nx\n"), L"Line 10: \"x\" is not a number.");
    ExpectRefused(Entities("0\nINSERT\n2\nNONE\n"), L"Line 8: The drawing has no block \"NONE\".");
    ExpectRefused(Header("AC1999") + whole, L"Line 8: The drawing is of a release that cannot be read");
    ExpectRefused("<html>\n<body>\n", L"Line 1: \"<html>\" is not a group code.");
}

TEST_F(DamagedDocumentsTest, TemplateThatIsDamaged_MakesNoDrawingAndUsesNoNumber) {
    ADocumentWithWork();
    const std::wstring path = Put(L"bad.dwt", "torn");
    EXPECT_EQ(acDocManager->appContextNewDocument(path.c_str()), Acad::eFilerError);
    EXPECT_EQ(acDocManager->documentCount(), 1);
    EXPECT_STREQ(ADocument().docTitle(), L"Drawing2.dwg");
}

TEST_F(DamagedDocumentsTest, SideDatabase_OfADamagedFileStaysEmptyAndMayBeFilledByAnother) {
    const std::wstring bad = Put(L"bad.dwg", "torn");
    const std::wstring good = Put(L"good.dwg", Entities("0\nPOINT\n8\n0\n"));
    AcDbDatabase side(false, true);
    EXPECT_EQ(side.readDwgFile(bad.c_str()), Acad::eFilerError);
    EXPECT_TRUE(database::DataOf(side).stubs.empty());
    const ACHAR* path = nullptr;
    EXPECT_EQ(side.getFilename(path), Acad::eInvalidInput);
    EXPECT_EQ(side.readDwgFile(good.c_str()), Acad::eOk);
    EXPECT_EQ(database::DataOf(side).ModelSpace()->entities.size(), 1u);
}

// --- And a drawing that is well: what was opened, changed, saved and closed comes back.

TEST_F(DamagedDocumentsTest, SavedDrawing_ComesBackWhole) {
    host::Document& document = ADocumentWithWork();
    const std::wstring path = m_system.InRoot(L"a.dwg");
    ASSERT_EQ(Documents().SaveAs(document, path), Acad::eOk);
    const std::string content = drawing_file::WriteDrawing(*document.database());
    m_files.texts[path] = L"";
    ASSERT_EQ(acDocManager->closeDocument(&document), Acad::eOk);
    ASSERT_EQ(acDocManager->appContextOpenDocument(path.c_str()), Acad::eOk);
    EXPECT_EQ(drawing_file::WriteDrawing(*Documents().Current()->database()), content);
    EXPECT_EQ(Variable(L"DBMOD"), L"0");
    EXPECT_EQ(Variable(L"DWGTITLED"), L"1");
}

}  // namespace
}  // namespace workbench::test
