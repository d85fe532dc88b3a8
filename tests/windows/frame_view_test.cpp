// The drawing view: what it shows of a drawing, zooming, panning, documents coming and going.
#include <acdocman.h>
#include <dbents.h>
#include <dbobjptr.h>
#include <dbsymtb.h>
#include <gtest/gtest.h>

#include "frame/picture.h"
#include "frame_fixture.h"

namespace frame_test {
namespace {

class FakeDocument : public AcApDocument {
  public:
    const ACHAR* fileName() const override { return L"C:\\Fake.dwg"; }
    const ACHAR* docTitle() const override { return L"Fake.dwg"; }
    AcDbDatabase* database() const override { return const_cast<AcDbDatabase*>(&m_database); }
    bool isReadOnly() const override { return false; }
    bool isNamedDrawing() const override { return true; }
    bool isQuiescent() const override { return true; }
    AcAp::DocLockMode lockMode(bool) const override { return AcAp::kNotLocked; }
    AcAp::DocLockMode myLockMode() const override { return AcAp::kNotLocked; }

    // Adds the entity to model space in a colour of the index.
    template <class T>
    void Add(T* entity, Adesk::UInt16 color) {
        entity->setColorIndex(color);
        AcDbBlockTable* blocks = nullptr;
        AcDbBlockTableRecord* space = nullptr;
        ASSERT_EQ(Acad::eOk, m_database.getBlockTable(blocks));
        ASSERT_EQ(Acad::eOk, blocks->getAt(ACDB_MODEL_SPACE, space, AcDb::kForWrite));
        blocks->close();
        EXPECT_EQ(Acad::eOk, space->appendAcDbEntity(entity));
        entity->close();
        space->close();
    }

    AcDbObjectId AddBlock(const wchar_t* name, AcDbEntity* content) {
        AcDbBlockTable* blocks = nullptr;
        auto* block = new AcDbBlockTableRecord;
        block->setName(name);
        AcDbObjectId id;
        EXPECT_EQ(Acad::eOk, m_database.getBlockTable(blocks, AcDb::kForWrite));
        EXPECT_EQ(Acad::eOk, blocks->add(id, block));
        blocks->close();
        EXPECT_EQ(Acad::eOk, block->appendAcDbEntity(content));
        content->close();
        block->close();
        return id;
    }

  private:
    AcDbDatabase m_database{true, true};
};

// A line between two rows of pixels gives each half of its colour.
bool IsReddish(COLORREF color) {
    return GetRValue(color) > 120 && GetGValue(color) < 90 && GetBValue(color) < 90;
}
bool IsGreenish(COLORREF color) {
    return GetGValue(color) > 120 && GetRValue(color) < 90 && GetBValue(color) < 90;
}

class FrameView : public FrameTest {
  protected:
    void SetUp() override {
        FrameTest::SetUp();
        m_document.Add(new AcDbLine({0, 0, 0}, {100, 0, 0}), 1);
        m_document.Add(new AcDbLine({0, 80, 0}, {100, 80, 0}), 1);
        m_document.Add(new AcDbCircle({50, 40, 0}, {0, 0, 1}, 20), 3);
        View().ShowDocument(&m_document);
        m_frame->UpdateWindow();
        windows::PumpWaiting();
    }
    void TearDown() override {
        View().ForgetDocument(&m_document);
        FrameTest::TearDown();
    }
    frame::DrawingView& View() { return m_frame->View(); }

    // Whether a pixel at the drawing's point, or one beside it, is of the wanted kind on the screen.
    bool Shows(double x, double y, bool (*wanted)(COLORREF)) {
        View().UpdateWindow();
        const frame::ScreenPoint at = View().Transform().ToScreen({x, y});
        const HDC dc = ::GetDC(View());
        bool found = false;
        for (int dx = -1; dx <= 1; ++dx)
            for (int dy = -1; dy <= 1; ++dy)
                found = found || wanted(::GetPixel(dc, int(at.x) + dx, int(at.y) + dy));
        ::ReleaseDC(View(), dc);
        return found;
    }

    FakeDocument m_document;
};

TEST_F(FrameView, ShowsLinesAndCirclesInTheirColours) {
    EXPECT_TRUE(Shows(30, 0, IsReddish));
    EXPECT_TRUE(Shows(70, 80, IsReddish));
    EXPECT_TRUE(Shows(70, 40, IsGreenish));
    EXPECT_TRUE(Shows(50, 60, IsGreenish));
    EXPECT_FALSE(Shows(50, 40, IsGreenish));
    EXPECT_FALSE(Shows(50, 40, IsReddish));
}

TEST_F(FrameView, FirstShowing_IsTheWholeDrawing) {
    const frame::WorldBox visible = View().Transform().Visible();
    EXPECT_LT(visible.minX, 0);
    EXPECT_LT(visible.minY, 0);
    EXPECT_GT(visible.maxX, 100);
    EXPECT_GT(visible.maxY, 80);
}

TEST_F(FrameView, Wheel_ZoomsAboutThePointer) {
    const frame::WorldPoint before = View().Transform().ToWorld({100, 100});
    const double scale = View().Transform().Scale();
    POINT screen{100, 100};
    ::ClientToScreen(View(), &screen);
    View().SendMessage(WM_MOUSEWHEEL, MAKEWPARAM(0, WHEEL_DELTA), MAKELPARAM(screen.x, screen.y));
    const frame::WorldPoint after = View().Transform().ToWorld({100, 100});
    EXPECT_NEAR(before.x, after.x, 1e-6);
    EXPECT_NEAR(before.y, after.y, 1e-6);
    EXPECT_GT(View().Transform().Scale(), scale);
    View().ZoomExtents();
    EXPECT_DOUBLE_EQ(scale, View().Transform().Scale());
}

TEST_F(FrameView, MiddleButton_Pans) {
    const frame::WorldPoint under = View().Transform().ToWorld({200, 200});
    View().SendMessage(WM_MBUTTONDOWN, MK_MBUTTON, MAKELPARAM(200, 200));
    windows::MouseMove(View(), {260, 170}, MK_MBUTTON);
    View().SendMessage(WM_MBUTTONUP, 0, MAKELPARAM(260, 170));
    const frame::WorldPoint now = View().Transform().ToWorld({260, 170});
    EXPECT_NEAR(under.x, now.x, 1e-6);
    EXPECT_NEAR(under.y, now.y, 1e-6);
    EXPECT_EQ(nullptr, ::GetCapture());
    EXPECT_TRUE(Shows(30, 0, IsReddish));
}

TEST_F(FrameView, AnotherDocumentAndBack_KeepsThePlaceOfEach) {
    View().ZoomBy(3);
    const double scale = View().Transform().Scale();
    FakeDocument other;
    View().ShowDocument(&other);
    EXPECT_TRUE(View().Content().Empty());
    View().ShowDocument(&m_document);
    EXPECT_DOUBLE_EQ(scale, View().Transform().Scale());
    View().ForgetDocument(&other);
}

TEST_F(FrameView, NoDocument_ShowsAnEmptyArea) {
    View().ShowDocument(nullptr);
    EXPECT_FALSE(Shows(30, 0, IsReddish));
    View().SendMessage(WM_MOUSEMOVE, 0, MAKELPARAM(30, 30));
    View().SendMessage(WM_MOUSEWHEEL, MAKEWPARAM(0, WHEEL_DELTA), 0);
    View().ZoomExtents();
}

TEST_F(FrameView, Regenerate_ShowsWhatWasAdded) {
    EXPECT_FALSE(Shows(10, 20, IsGreenish));
    m_document.Add(new AcDbLine({0, 20, 0}, {20, 20, 0}), 3);
    View().Regenerate();
    EXPECT_TRUE(Shows(10, 20, IsGreenish));
}

TEST_F(FrameView, BlockReference_IsShownPlacedAndScaled) {
    const AcDbObjectId block = m_document.AddBlock(L"VALVE", [] {
        auto* line = new AcDbLine({-1, 0, 0}, {1, 0, 0});
        line->setColorIndex(0);  // as the reference
        return line;
    }());
    auto* reference = new AcDbBlockReference({20, 40, 0}, block);
    reference->setScaleFactors(AcGeScale3d(5));
    reference->setRotation(1.5707963267948966);
    m_document.Add(reference, 1);
    View().Regenerate();
    EXPECT_TRUE(Shows(20, 44, IsReddish));
    EXPECT_TRUE(Shows(20, 36, IsReddish));
    EXPECT_FALSE(Shows(24, 40, IsReddish));
}

TEST_F(FrameView, BlockThatHoldsItself_IsShownWithoutEnd) {
    const AcDbObjectId block = m_document.AddBlock(L"LOOP", new AcDbLine({0, 0, 0}, {1, 1, 0}));
    {
        AcDbObjectPointer<AcDbBlockTableRecord> record(block, AcDb::kForWrite);
        ASSERT_EQ(Acad::eOk, record.openStatus());
        for (int i = 0; i < 2; ++i) {
            auto* inner = new AcDbBlockReference({1, 0, 0}, block);
            record->appendAcDbEntity(inner);
            inner->close();
        }
    }
    m_document.Add(new AcDbBlockReference({0, 0, 0}, block), 7);
    View().Regenerate();
    EXPECT_GT(View().Content().ShapeCount(), 16u);
    EXPECT_LE(View().Content().ShapeCount(), 3'000'000u);
}

TEST_F(FrameView, LayerThatIsOff_IsNotShown) {
    AcDbLayerTable* layers = nullptr;
    auto* layer = new AcDbLayerTableRecord;
    layer->setName(L"HIDDEN");
    layer->setIsOff(true);
    AcDbObjectId id;
    ASSERT_EQ(Acad::eOk, m_document.database()->getLayerTable(layers, AcDb::kForWrite));
    layers->add(id, layer);
    layers->close();
    layer->close();
    auto* line = new AcDbLine({0, 20, 0}, {20, 20, 0});
    m_document.Add(line, 3);
    {
        AcDbObjectPointer<AcDbEntity> opened(line->objectId(), AcDb::kForWrite);
        ASSERT_EQ(Acad::eOk, opened->setLayer(id));
    }
    View().Regenerate();
    EXPECT_FALSE(Shows(10, 20, IsGreenish));
}

TEST_F(FrameView, Text_IsDrawnWhereItStands) {
    auto* text = new AcDbText;
    text->setTextString(L"HHHH");
    text->setPosition({30, 35, 0});
    text->setHeight(10);
    m_document.Add(text, 1);
    View().Regenerate();
    View().UpdateWindow();
    int lit = 0;
    for (double x = 30; x < 50; x += 0.25)
        lit += Shows(x, 40, IsReddish);
    EXPECT_GT(lit, 4);
    EXPECT_FALSE(Shows(40, 50, IsReddish));
}

TEST_F(FrameView, LightBackground_TurnsWhiteIntoBlack) {
    m_document.Add(new AcDbLine({0, 10, 0}, {100, 10, 0}), 7);
    View().Regenerate();
    EXPECT_TRUE(Shows(40, 10, [](COLORREF c) { return GetRValue(c) > 120 && GetGValue(c) > 120; }));
    View().SetLightBackground(true);
    EXPECT_TRUE(Shows(40, 10, [](COLORREF c) { return GetRValue(c) < 140 && GetGValue(c) < 140; }));
}

TEST_F(FrameView, Picture_HoldsWhatIsOnTheScreen) {
    CRect window;
    View().GetWindowRect(&window);
    const frame::Picture picture = frame::TakePicture(window);
    ASSERT_EQ(window.Width(), picture.width);
    const frame::ScreenPoint at = View().Transform().ToScreen({30, 0});
    bool found = false;
    for (int dy = -1; dy <= 1; ++dy) {
        const auto row = static_cast<std::size_t>(static_cast<int>(at.y) + dy);
        const std::uint32_t pixel =
            picture.pixels[row * static_cast<std::size_t>(picture.width) + static_cast<std::size_t>(at.x)];
        found = found || ((pixel >> 16) & 0xFF) > 150;
    }
    EXPECT_TRUE(found);
    wchar_t folder[MAX_PATH];
    GetTempPathW(MAX_PATH, folder);
    const std::wstring path = std::wstring(folder) + L"frame_view_test.png";
    ASSERT_TRUE(frame::SavePng(picture, path));
    EXPECT_TRUE(DeleteFileW(path.c_str()));
    EXPECT_FALSE(frame::SavePng(picture, std::wstring(folder) + L"no such folder\\a.png"));
    EXPECT_FALSE(frame::SavePng(frame::Picture(), path));
    EXPECT_TRUE(frame::TakePicture({10, 10, 10, 10}).pixels.empty());
}

TEST_F(FrameView, TypingOverTheDrawing_GoesToTheCommandLine) {
    View().SendMessage(WM_CHAR, L'L', 0);
    View().SendMessage(WM_CHAR, L'E', 0);
    EXPECT_EQ(L"LE", m_frame->CommandLine().Input());
    View().SendMessage(WM_CHAR, VK_RETURN, 0);
    ASSERT_EQ(1u, m_entered.size());
    EXPECT_EQ(L"LE", m_entered[0]);
    View().SendMessage(WM_CHAR, VK_ESCAPE, 0);
    EXPECT_EQ(1, m_cancelled);
}

TEST_F(FrameView, MouseMoveWithoutAChange_AsksForQueuedWork) {
    windows::PumpWaiting();
    m_inputArrived = 0;
    View().SendMessage(WM_MOUSEMOVE, 0, 0);
    View().SendMessage(WM_MOUSEMOVE, 0, 0);
    EXPECT_EQ(0, m_inputArrived);
    windows::PumpWaiting();
    EXPECT_EQ(1, m_inputArrived);
}

}  // namespace
}  // namespace frame_test
