// The layout of the Drawing Manager in its real window: resizing, dragging, splitters, showing and hiding.
#include <gmock/gmock.h>

#include "controls/splitter_control.h"
#include "dm_fixture.h"
#include "drawing_manager/manager_registry.h"
#include "resources/resource.h"

namespace {

class DrawingManagerLayout : public DrawingManagerTest {
  protected:
    // The window's frame, from which all margins follow.
    static CRect FrameOf(const ManagerDriver& driver) { return driver.RectOf(driver.Dialog()); }

    static int ContentRight(const ManagerDriver& driver) {
        const CRect frame = FrameOf(driver);
        return frame.right - 2 * (8 - frame.left) - frame.left;
    }

    // Drags a splitter by its middle.
    static void Drag(const ManagerDriver& driver, int id, int dx, int dy) {
        const HWND bar = driver.Splitter(id);
        RECT rect{};
        GetClientRect(bar, &rect);
        const POINT start{rect.right / 2, rect.bottom / 2};
        windows::MouseDown(bar, start);
        windows::MouseMove(bar, {start.x + dx, start.y + dy}, MK_LBUTTON);
        windows::MouseUp(bar, {start.x + dx, start.y + dy});
    }

    static RECT DragWindow(const ManagerDriver& driver, WPARAM edge, RECT rect) {
        SendMessageW(driver.Dialog(), WM_SIZING, edge, reinterpret_cast<LPARAM>(&rect));
        return rect;
    }
};

}  // namespace

TEST_F(DrawingManagerLayout, Controls_StandWhereTheyBelong) {
    UseUsualDatabase();
    Run([](ManagerDriver& driver) {
        driver.ResizeTo(1000, 700);
        const CRect frame = FrameOf(driver);
        const int margin = 8 - frame.left;
        const int right = ContentRight(driver);
        const int bottomRow = frame.bottom + frame.left - 38;
        const CRect bar = driver.RectOf(driver.Splitter(IDC_SPLITTER_VERTICAL));
        EXPECT_EQ(driver.RectOf(IDC_HELP_BUTTON), CRect(right - 60, 10, right, 40));
        EXPECT_EQ(driver.RectOf(IDC_EXPLORE), CRect(right - 30, bottomRow, right, bottomRow + 30));
        EXPECT_EQ(driver.RectOf(IDC_LOCATION), CRect(85, bottomRow, right - 38, bottomRow + 30));
        EXPECT_EQ(driver.RectOf(IDC_DRAWING_LIST), CRect(bar.right, 65, right, bottomRow - 8));
        EXPECT_EQ(bar.Width(), 8);
        EXPECT_EQ(driver.RectOf(IDC_TREE).left, margin);
        EXPECT_EQ(driver.RectOf(IDC_TREE).right, bar.left);
        EXPECT_EQ(driver.RectOf(IDC_OPEN_DRAWING), CRect(bar.right + 97, 15, bar.right + 127, 45));
        EXPECT_EQ(driver.RectOf(IDC_DELETE_DRAWING), CRect(bar.right + 249, 15, bar.right + 279, 45));
        EXPECT_EQ(driver.RectOf(IDC_STANDARD_BOX), CRect(181, -3, 265, 53));
        const int nameWidth = static_cast<int>(SendMessageW(driver.List(), LVM_GETCOLUMNWIDTH, 0, 0));
        EXPECT_EQ(nameWidth, right - bar.right - 57 - 115 - 21);
    });
}

TEST_F(DrawingManagerLayout, GrowingDownward_MovesTheHorizontalSplitterAlong) {
    UseUsualDatabase();
    Run([](ManagerDriver& driver) {
        driver.ResizeTo(1000, 600);
        const CRect before = driver.RectOf(driver.Splitter(IDC_SPLITTER_HORIZONTAL));
        const int thumbnail = driver.RectOf(IDC_THUMBNAIL).Height();
        driver.ResizeTo(1000, 700);
        EXPECT_EQ(driver.RectOf(driver.Splitter(IDC_SPLITTER_HORIZONTAL)).top, before.top + 100);
        EXPECT_EQ(driver.RectOf(IDC_THUMBNAIL).Height(), thumbnail);
        EXPECT_EQ(driver.RectOf(IDC_TREE).bottom, before.top + 100);
    });
}

TEST_F(DrawingManagerLayout, LaterRun_MeasuresItsFirstChangeAgainstTheLastSize) {
    UseUsualDatabase();
    Run([](ManagerDriver&) {});
    int top = 0;
    Run([&](ManagerDriver& driver) {
        top = driver.RectOf(driver.Splitter(IDC_SPLITTER_HORIZONTAL)).top;
        driver.ResizeTo(driver.WindowRect().Width(), driver.WindowRect().Height() + 60);
    });
    Run([&](ManagerDriver& driver) {
        EXPECT_EQ(driver.RectOf(driver.Splitter(IDC_SPLITTER_HORIZONTAL)).top, top - 60);
    });
}

TEST_F(DrawingManagerLayout, NarrowWindow_BringsTheVerticalSplitterAlong) {
    UseUsualDatabase();
    Run([](ManagerDriver& driver) {
        driver.ResizeTo(1000, 600);
        Drag(driver, IDC_SPLITTER_VERTICAL, 60, 0);
        driver.ResizeTo(500, 600);
        EXPECT_EQ(driver.RectOf(driver.Splitter(IDC_SPLITTER_VERTICAL)).left, ContentRight(driver) - 333);
    });
}

TEST_F(DrawingManagerLayout, RememberedSplitterTooFarLeft_IsMovedAndRememberedAnew) {
    UseUsualDatabase();
    SetValue(kWindowPositionValue, std::wstring(L"20,20,1020,720,100,65,108,500,12,300,100,308,1"));
    Run([](ManagerDriver& driver) {
        EXPECT_EQ(driver.RectOf(driver.Splitter(IDC_SPLITTER_VERTICAL)).left, 265);
        SendMessageW(driver.Dialog(), WM_CLOSE, 0, 0);
    });
    EXPECT_EQ(GetText(kWindowPositionValue).substr(0, 20), L"20,20,1020,720,265,6");
}

TEST_F(DrawingManagerLayout, DraggedSplitter_TakesThePanesWithIt) {
    UseUsualDatabase();
    Run([](ManagerDriver& driver) {
        driver.ResizeTo(1200, 700);
        const CRect vertical = driver.RectOf(driver.Splitter(IDC_SPLITTER_VERTICAL));
        const CRect horizontal = driver.RectOf(driver.Splitter(IDC_SPLITTER_HORIZONTAL));
        Drag(driver, IDC_SPLITTER_VERTICAL, 40, 0);
        EXPECT_EQ(driver.RectOf(driver.Splitter(IDC_SPLITTER_VERTICAL)).left, vertical.left + 40);
        EXPECT_EQ(driver.RectOf(IDC_DRAWING_LIST).left, vertical.right + 40);
        EXPECT_EQ(driver.RectOf(IDC_TREE).right, vertical.left + 40);
        Drag(driver, IDC_SPLITTER_HORIZONTAL, 0, -50);
        EXPECT_EQ(driver.RectOf(driver.Splitter(IDC_SPLITTER_HORIZONTAL)).top, horizontal.top - 50);
        EXPECT_EQ(driver.RectOf(IDC_TREE).bottom, horizontal.top - 50);
        EXPECT_EQ(driver.RectOf(IDC_THUMBNAIL).top, horizontal.bottom - 50);
    });
}

TEST_F(DrawingManagerLayout, Splitters_StopAtTheirRanges) {
    UseUsualDatabase();
    Run([](ManagerDriver& driver) {
        driver.ResizeTo(1200, 700);
        const CRect list = driver.RectOf(IDC_DRAWING_LIST);
        Drag(driver, IDC_SPLITTER_HORIZONTAL, 0, 2000);
        EXPECT_EQ(driver.RectOf(IDC_THUMBNAIL).Height(), 50);
        Drag(driver, IDC_SPLITTER_HORIZONTAL, 0, -2000);
        EXPECT_EQ(driver.RectOf(IDC_TREE).Height(), 50);
        Drag(driver, IDC_SPLITTER_VERTICAL, -2000, 0);
        EXPECT_EQ(driver.RectOf(driver.Splitter(IDC_SPLITTER_VERTICAL)).left, 265);
        Drag(driver, IDC_SPLITTER_VERTICAL, 2000, 0);
        const CRect bar = driver.RectOf(driver.Splitter(IDC_SPLITTER_VERTICAL));
        EXPECT_LE(driver.RectOf(IDC_SINGLE_DOC).right, driver.RectOf(IDC_HELP_BUTTON).left);
        EXPECT_GT(bar.left, list.left);
    });
}

TEST_F(DrawingManagerLayout, DraggedWindow_IsHeldToItsLimits) {
    UseUsualDatabase();
    Run([](ManagerDriver& driver) {
        driver.ResizeTo(1000, 700);
        const CRect window = driver.WindowRect();
        const RECT small = DragWindow(driver, WMSZ_BOTTOMRIGHT,
                                      {window.left, window.top, window.left + 50, window.top + 50});
        const CRect frame = FrameOf(driver);
        EXPECT_EQ(small.right - small.left, driver.RectOf(IDC_SINGLE_DOC).right + 15 + 60 - frame.left);
        EXPECT_EQ(small.bottom - small.top,
                  driver.RectOf(IDC_LOCATION).bottom + 60 - driver.RectOf(IDC_TREE).Height() - frame.top);
        const RECT large = DragWindow(driver, WMSZ_TOPLEFT, {-2000, -2000, 800, 600});
        EXPECT_EQ(large.left, 800 - 1600);
        EXPECT_EQ(large.top, 600 - 1200);
        windows::Click(driver.Dialog(), IDC_SHOW_HIDE);
        const RECT hidden = DragWindow(driver, WMSZ_RIGHT, {0, 0, 50, 50});
        EXPECT_EQ(hidden.right, 265 + 19 + 60 - frame.left);
        EXPECT_EQ(hidden.bottom, 65 + 100);
    });
}

TEST_F(DrawingManagerLayout, SmallestDraggedWindow_IsStillInOrder) {
    UseUsualDatabase();
    Run([](ManagerDriver& driver) {
        driver.ResizeTo(1000, 700);
        for (int i = 0; i < 10; ++i) {
            const RECT small = DragWindow(driver, WMSZ_BOTTOMRIGHT, {0, 0, 10, 10});
            driver.ResizeTo(small.right, small.bottom);
        }
        // The empty end of the check box may reach below the Help button by the width of the frames.
        const int frames = -2 * FrameOf(driver).left;
        EXPECT_LE(driver.RectOf(IDC_SINGLE_DOC).right, driver.RectOf(IDC_HELP_BUTTON).left + frames);
        EXPECT_GE(driver.RectOf(IDC_TREE).Height(), 50);
        EXPECT_GE(driver.RectOf(IDC_THUMBNAIL).Height(), 50);
        EXPECT_GE(driver.RectOf(IDC_DRAWING_LIST).Width(), 300);
    });
}

TEST_F(DrawingManagerLayout, Hiding_LeavesTheLeftPartAndTheWindowsSize) {
    UseUsualDatabase();
    Run([](ManagerDriver& driver) {
        driver.ResizeTo(1000, 700);
        const CRect window = driver.WindowRect();
        windows::Click(driver.Dialog(), IDC_SHOW_HIDE);
        EXPECT_EQ(driver.WindowRect(), window);
        for (int id : {IDC_DRAWINGS_LABEL, IDC_DRAWING_BOX, IDC_OPEN_DRAWING, IDC_NEW_DRAWING,
                       IDC_COPY_DRAWING, IDC_RENAME_DRAWING, IDC_DELETE_DRAWING, IDC_SINGLE_DOC,
                       IDC_DRAWING_LIST, IDC_THUMBNAIL, IDC_LOCATION_LABEL, IDC_LOCATION, IDC_EXPLORE}) {
            EXPECT_FALSE(driver.Shown(id)) << id;
        }
        for (int id : {IDC_TREE, IDC_OPEN_STANDARD, IDC_SHOW_HIDE, IDC_HELP_BUTTON, IDC_STANDARD_BOX}) {
            EXPECT_TRUE(driver.Shown(id)) << id;
        }
        EXPECT_FALSE(IsWindowVisible(driver.Splitter(IDC_SPLITTER_VERTICAL)));
        const CRect frame = FrameOf(driver);
        EXPECT_EQ(driver.RectOf(IDC_TREE),
                  CRect(8 - frame.left, 65, ContentRight(driver), frame.bottom + frame.left - 8));
    });
}

TEST_F(DrawingManagerLayout, ShowingInASmallWindow_GrowsIt) {
    UseUsualDatabase();
    Run([](ManagerDriver& driver) {
        driver.ResizeTo(1000, 700);
        windows::Click(driver.Dialog(), IDC_SHOW_HIDE);
        driver.ResizeTo(350, 200);
        const CRect button = driver.RectOf(IDC_EXPLORE);
        windows::Click(driver.Dialog(), IDC_SHOW_HIDE);
        EXPECT_GE(driver.WindowRect().Width(), button.right + 18);
        EXPECT_GE(driver.WindowRect().Height(), button.bottom + 30);
        const CRect frame = FrameOf(driver);
        EXPECT_LE(driver.RectOf(IDC_EXPLORE).right, frame.right);
        EXPECT_LE(driver.RectOf(IDC_EXPLORE).bottom, frame.bottom);
        EXPECT_TRUE(driver.Shown(IDC_DRAWING_LIST));
    });
}

TEST_F(DrawingManagerLayout, OpeningAgainAndAgain_DoesNotGrowTheWindow) {
    UseUsualDatabase();
    SetValue(kWindowPositionValue, std::wstring(L"20,20,1020,620,300,65,308,500,12,300,300,308,1"));
    for (int i = 0; i < 3; ++i)
        Run([](ManagerDriver& driver) { SendMessageW(driver.Dialog(), WM_CLOSE, 0, 0); });
    EXPECT_EQ(GetText(kWindowPositionValue).substr(0, 15), L"20,20,1020,620,");
}

TEST_F(DrawingManagerLayout, MovingTheWindow_PutsTheBalloonAway) {
    UseUsualDatabase();
    AddStandardWithoutLocation(7, "Yard");
    Run([](ManagerDriver& driver) {
        driver.SelectItem({L"Yard"});
        ASSERT_NE(FindBalloon(), nullptr);
        RECT rect = driver.WindowRect();
        SendMessageW(driver.Dialog(), WM_MOVING, 9, reinterpret_cast<LPARAM>(&rect));
        EXPECT_EQ(FindBalloon(), nullptr);
    });
}

TEST_F(DrawingManagerLayout, ResizingTheWindow_PutsTheBalloonAway) {
    UseUsualDatabase();
    AddStandardWithoutLocation(7, "Yard");
    Run([](ManagerDriver& driver) {
        driver.SelectItem({L"Yard"});
        ASSERT_NE(FindBalloon(), nullptr);
        driver.ResizeTo(1000, 650);
        EXPECT_EQ(FindBalloon(), nullptr);
    });
}
