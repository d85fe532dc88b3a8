// The framework's controls against real ones: what goes in comes out.
#include <afxcmn.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "afx_test.h"
#include "support/windows_driver.h"

namespace {

using testing::ElementsAre;

HICON SystemIcon() {
    return LoadIconW(nullptr, IDI_INFORMATION);
}

std::vector<std::wstring> ChildrenOf(const CTreeCtrl& tree, HTREEITEM parent) {
    std::vector<std::wstring> texts;
    HTREEITEM item = parent == TVI_ROOT ? tree.GetRootItem() : tree.GetChildItem(parent);
    for (; item; item = tree.GetNextSiblingItem(item))
        texts.push_back(tree.GetItemText(item).ToStdString());
    return texts;
}

struct TreeTest : testing::Test {
    TestFrame frame;
    CTreeCtrl tree;
    void SetUp() override {
        ASSERT_TRUE(
            tree.Create(WS_VISIBLE | TVS_HASBUTTONS | TVS_EDITLABELS, CRect(0, 0, 200, 200), &frame, 206));
    }
};

TEST_F(TreeTest, InsertedItems_AreWalkedInTheirOrder) {
    const HTREEITEM b = tree.InsertItem(L"B", TVI_ROOT, TVI_SORT);
    const HTREEITEM a = tree.InsertItem(L"A", TVI_ROOT, TVI_SORT);
    const HTREEITEM child = tree.InsertItem(L"Child", a);
    EXPECT_THAT(ChildrenOf(tree, TVI_ROOT), ElementsAre(L"A", L"B"));
    EXPECT_EQ(tree.GetRootItem(), a);
    EXPECT_EQ(tree.GetNextSiblingItem(a), b);
    EXPECT_EQ(tree.GetPrevSiblingItem(b), a);
    EXPECT_EQ(tree.GetChildItem(a), child);
    EXPECT_EQ(tree.GetParentItem(child), a);
    EXPECT_EQ(tree.GetParentItem(a), nullptr);
    EXPECT_TRUE(tree.ItemHasChildren(a));
    EXPECT_FALSE(tree.ItemHasChildren(b));
    EXPECT_EQ(tree.GetCount(), 3u);
}

TEST_F(TreeTest, TextDataAndImages_ComeBack) {
    CImageList images;
    ASSERT_TRUE(images.Create(16, 16, ILC_COLOR16 | ILC_MASK, 12, 0));
    for (int i = 0; i < 3; ++i)
        EXPECT_EQ(images.Add(SystemIcon()), i);
    images.SetBkColor(CLR_NONE);
    tree.SetImageList(&images, TVSIL_NORMAL);
    EXPECT_EQ(tree.GetImageList(TVSIL_NORMAL)->m_hImageList, images.m_hImageList);
    const HTREEITEM item = tree.InsertItem(L"A", 1, 1);
    EXPECT_TRUE(tree.SetItemData(item, static_cast<DWORD_PTR>(-1)));
    EXPECT_EQ(static_cast<int>(tree.GetItemData(item)), -1);
    int image = -5, selected = -5;
    EXPECT_TRUE(tree.GetItemImage(item, image, selected));
    EXPECT_EQ(image, 1);
    EXPECT_EQ(selected, 1);
    EXPECT_TRUE(tree.SetItemImage(item, 2, 0));
    EXPECT_TRUE(tree.GetItemImage(item, image, selected));
    EXPECT_EQ(image, 2);
    EXPECT_EQ(selected, 0);
    const std::wstring longText(3000, L'ü');
    EXPECT_TRUE(tree.SetItemText(item, longText.c_str()));
    EXPECT_EQ(tree.GetItemText(item).ToStdString(), longText);
    tree.SetImageList(nullptr, TVSIL_NORMAL);
}

TEST_F(TreeTest, SelectionAndExpansion) {
    const HTREEITEM a = tree.InsertItem(L"A");
    tree.InsertItem(L"Child", a);
    EXPECT_EQ(tree.GetSelectedItem(), nullptr);
    EXPECT_TRUE(tree.SelectItem(a));
    EXPECT_EQ(tree.GetSelectedItem(), a);
    EXPECT_TRUE(tree.Expand(a, TVE_EXPAND));
    EXPECT_TRUE(tree.GetItemState(a, TVIS_EXPANDED) & TVIS_EXPANDED);
    CRect rect;
    EXPECT_TRUE(tree.GetItemRect(a, rect, TRUE));
    EXPECT_EQ(tree.HitTest(rect.CenterPoint()), a);
    EXPECT_TRUE(tree.DeleteItem(a));
    EXPECT_EQ(tree.GetCount(), 0u);
}

TEST_F(TreeTest, SortByCallback_GetsTheItemsData) {
    for (const int value : {2, 3, 1}) {
        const HTREEITEM item = tree.InsertItem(std::to_wstring(value).c_str());
        tree.SetItemData(item, static_cast<DWORD_PTR>(value));
    }
    TVSORTCB sort{};
    sort.hParent = TVI_ROOT;
    sort.lpfnCompare = [](LPARAM a, LPARAM b, LPARAM sign) { return static_cast<int>(sign * (a - b)); };
    sort.lParam = -1;
    EXPECT_TRUE(tree.SortChildrenCB(&sort));
    EXPECT_THAT(ChildrenOf(tree, TVI_ROOT), ElementsAre(L"3", L"2", L"1"));
}

TEST_F(TreeTest, NoItems_GiveNothing) {
    EXPECT_EQ(tree.GetRootItem(), nullptr);
    EXPECT_EQ(tree.GetEditControl(), nullptr);
    EXPECT_TRUE(tree.GetItemText(nullptr).IsEmpty());
    EXPECT_EQ(tree.GetItemData(nullptr), 0u);
    tree.DeleteAllItems();
    EXPECT_EQ(tree.GetCount(), 0u);
}

struct ListTest : testing::Test {
    TestFrame frame;
    CListCtrl list;
    void SetUp() override {
        constexpr DWORD style =
            WS_VISIBLE | LVS_REPORT | LVS_SHOWSELALWAYS | LVS_SORTASCENDING | LVS_EDITLABELS;
        ASSERT_TRUE(list.Create(style, CRect(0, 0, 300, 200), &frame, 202));
        EXPECT_EQ(list.InsertColumn(0, L"Name", LVCFMT_LEFT, 100), 0);
        EXPECT_EQ(list.InsertColumn(1, L"Size", LVCFMT_RIGHT, 57), 1);
    }
};

TEST_F(ListTest, Columns_HaveTheirWidths) {
    EXPECT_EQ(list.GetColumnWidth(1), 57);
    EXPECT_TRUE(list.SetColumnWidth(0, 120));
    EXPECT_EQ(list.GetColumnWidth(0), 120);
    EXPECT_EQ(list.GetHeaderCtrl()->GetItemCount(), 2);
    wchar_t text[32] = L"";
    LVCOLUMN column{};
    column.mask = LVCF_TEXT | LVCF_FMT;
    column.pszText = text;
    column.cchTextMax = 32;
    EXPECT_TRUE(list.GetColumn(1, &column));
    EXPECT_STREQ(text, L"Size");
    EXPECT_EQ(column.fmt & LVCFMT_JUSTIFYMASK, LVCFMT_RIGHT);
}

TEST_F(ListTest, Rows_KeepTextsDataAndSelection) {
    EXPECT_EQ(list.InsertItem(0, L"b", 2), 0);
    const int a = list.InsertItem(1, L"a", 1);
    EXPECT_EQ(a, 0);  // the list sorts
    EXPECT_TRUE(list.SetItemText(a, 1, L"12 KB"));
    EXPECT_TRUE(list.SetItemData(a, 3));
    EXPECT_EQ(list.GetItemText(a, 0), L"a");
    EXPECT_EQ(list.GetItemText(a, 1), L"12 KB");
    EXPECT_EQ(list.GetItemText(1, 0), L"b");
    EXPECT_EQ(list.GetItemData(a), 3u);
    EXPECT_EQ(list.GetItemData(1), 0u);
    EXPECT_TRUE(list.SetItemState(1, LVIS_SELECTED | LVIS_FOCUSED, LVIS_SELECTED | LVIS_FOCUSED));
    EXPECT_EQ(list.GetSelectedCount(), 1u);
    EXPECT_EQ(list.GetNextItem(-1, LVNI_SELECTED), 1);
    EXPECT_TRUE(list.GetItemState(1, LVIS_SELECTED) & LVIS_SELECTED);
    LVFINDINFO find{};
    find.flags = LVFI_STRING;
    find.psz = L"b";
    EXPECT_EQ(list.FindItem(&find), 1);
    EXPECT_TRUE(list.DeleteItem(0));
    EXPECT_EQ(list.GetItemCount(), 1);
    EXPECT_TRUE(list.GetItemText(7, 0).IsEmpty());
}

TEST_F(ListTest, LabelEdit_ShowsTheRowsText) {
    list.InsertItem(0, L"Drawing1");
    list.SetFocus();
    CEdit* edit = list.EditLabel(0);
    ASSERT_NE(edit, nullptr);
    EXPECT_EQ(windows::TextOf(edit->m_hWnd), L"Drawing1");
    windows::CancelLabelEdit(edit->m_hWnd);
    EXPECT_EQ(list.GetEditControl(), nullptr);
}

TEST_F(ListTest, ImageList_StaysItsOwners) {
    CImageList images;
    ASSERT_TRUE(images.Create(24, 24, ILC_COLOR16 | ILC_MASK, 4, 0));
    images.Add(SystemIcon());
    list.SetImageList(&images, LVSIL_SMALL);
    EXPECT_EQ(list.GetImageList(LVSIL_SMALL)->m_hImageList, images.m_hImageList);
    list.DestroyWindow();
    EXPECT_EQ(images.GetImageCount(), 1);
    IMAGEINFO info{};
    EXPECT_TRUE(images.GetImageInfo(0, &info));
    EXPECT_EQ(info.rcImage.right - info.rcImage.left, 24);
}

TEST_F(ListTest, ExtendedStyle_IsSetWhole) {
    list.SetExtendedStyle(LVS_EX_FULLROWSELECT | LVS_EX_GRIDLINES);
    EXPECT_EQ(list.GetExtendedStyle() & (LVS_EX_FULLROWSELECT | LVS_EX_GRIDLINES),
              static_cast<DWORD>(LVS_EX_FULLROWSELECT | LVS_EX_GRIDLINES));
}

TEST(AfxImageList, IconThatIsMissing_GivesMinusOne) {
    CImageList images;
    ASSERT_TRUE(images.Create(16, 16, ILC_COLOR16 | ILC_MASK, 4, 0));
    EXPECT_EQ(images.Add(static_cast<HICON>(nullptr)), -1);
    EXPECT_TRUE(images.DeleteImageList());
    EXPECT_FALSE(images.DeleteImageList());
}

struct ComboTest : testing::Test {
    TestFrame frame;
    CComboBox combo;
    void SetUp() override {
        ASSERT_TRUE(
            combo.Create(WS_VISIBLE | WS_VSCROLL | CBS_DROPDOWNLIST, CRect(0, 0, 100, 200), &frame, 209));
    }
};

TEST_F(ComboTest, Rows_KeepTextsAndData) {
    EXPECT_EQ(combo.AddString(L"Layout"), 0);
    EXPECT_EQ(combo.AddString(L"Schematic"), 1);
    combo.SetItemData(1, static_cast<DWORD_PTR>(-7));
    EXPECT_EQ(static_cast<int>(combo.GetItemData(1)), -7);
    EXPECT_EQ(combo.GetCurSel(), -1);
    EXPECT_EQ(combo.SetCurSel(1), 1);
    EXPECT_EQ(combo.GetCurSel(), 1);
    EXPECT_EQ(combo.FindStringExact(-1, L"schematic"), 1);
    EXPECT_EQ(combo.FindStringExact(-1, L"Sch"), -1);
    EXPECT_EQ(combo.FindString(-1, L"Sch"), 1);
    CString text;
    combo.GetLBText(1, text);
    EXPECT_EQ(text, L"Schematic");
    combo.ResetContent();
    EXPECT_EQ(combo.GetCount(), 0);
    EXPECT_EQ(combo.GetCurSel(), -1);
}

TEST_F(ComboTest, RowThatIsNotThere_RaisesTheBadArgument) {
    CString text = L"before";
    try {
        combo.GetLBText(3, text);
        ADD_FAILURE() << "nothing was raised";
    } catch (CInvalidArgException* e) {
        e->Delete();
    }
}

TEST_F(ComboTest, HeightOfTheSelectionField_IsTaken) {
    combo.SetItemHeight(-1, 20);
    const int small = combo.GetItemHeight(-1);
    combo.SetItemHeight(-1, 50);
    EXPECT_EQ(combo.GetItemHeight(-1), small + 30);
}

TEST(AfxEdit, SelectionAndReplacement) {
    TestFrame frame;
    CEdit edit;
    ASSERT_TRUE(edit.Create(WS_VISIBLE, CRect(0, 0, 100, 20), &frame, 1));
    edit.SetWindowText(L"abcdef");
    edit.SetSel(1, 3);
    int start = 0, end = 0;
    edit.GetSel(start, end);
    EXPECT_EQ(start, 1);
    EXPECT_EQ(end, 3);
    edit.ReplaceSel(L"X");
    CString text;
    edit.GetWindowText(text);
    EXPECT_EQ(text, L"aXdef");
    edit.SetReadOnly();
    EXPECT_TRUE(edit.GetStyle() & ES_READONLY);
}

TEST(AfxButton, CheckAndStyle) {
    TestFrame frame;
    CButton button;
    ASSERT_TRUE(
        button.Create(L"Single Doc", WS_VISIBLE | BS_AUTOCHECKBOX, CRect(0, 0, 100, 20), &frame, 218));
    EXPECT_EQ(button.GetCheck(), BST_UNCHECKED);
    button.SetCheck(BST_CHECKED);
    EXPECT_EQ(button.GetCheck(), BST_CHECKED);
    EXPECT_EQ(button.GetButtonStyle() & BS_TYPEMASK, static_cast<UINT>(BS_AUTOCHECKBOX));
}

TEST(AfxWindowPlace, MoveAndCoordinates) {
    TestFrame frame;
    CStatic label;
    ASSERT_TRUE(label.Create(L"", WS_VISIBLE, CRect(0, 0, 10, 10), &frame, 1000));
    label.MoveWindow(CRect(20, 30, 70, 38));
    CRect rect;
    label.GetWindowRect(rect);
    frame.ScreenToClient(rect);
    EXPECT_EQ(rect, CRect(20, 30, 70, 38));
    frame.ClientToScreen(rect);
    CRect screen;
    label.GetWindowRect(screen);
    EXPECT_EQ(rect, screen);
    EXPECT_EQ(frame.GetDlgItem(1000), &label);
    EXPECT_EQ(frame.GetDlgItem(1), nullptr);
    EXPECT_EQ(label.GetOwner(), &frame);
    CStatic other;
    label.SetOwner(&other);
    EXPECT_EQ(label.GetOwner(), &frame);  // an owner without a window does not count
}

TEST(AfxWindowPlace, ModifyStyle_TellsWhetherAnythingChanged) {
    TestFrame frame;
    EXPECT_TRUE(frame.ModifyStyle(WS_CAPTION | WS_THICKFRAME, 0, SWP_FRAMECHANGED));
    EXPECT_FALSE(frame.ModifyStyle(WS_CAPTION | WS_THICKFRAME, 0));
    CRect client;
    CRect window;
    frame.GetClientRect(client);
    frame.GetWindowRect(window);
    EXPECT_EQ(client.Size(), window.Size());
}

TEST(AfxFrame, FrameWithoutOwner_DeletesItselfWithItsWindow) {
    static int s_nDeleted = 0;
    class OwnFrame : public CFrameWnd {
      public:
        ~OwnFrame() override { ++s_nDeleted; }
    };
    auto* frame = new OwnFrame;
    ASSERT_TRUE(frame->Create(AfxRegisterWndClass(0), nullptr, 0, CRect(10, 10, 60, 60)));
    frame->DestroyWindow();
    EXPECT_EQ(s_nDeleted, 1);
}

TEST(AfxFrame, ShowControlBar_ShowsAndHidesAndLaysOutAgain) {
    class LayoutFrame : public CMDIFrameWnd {
      public:
        int m_nLayouts = 0;
        void RecalcLayout(BOOL) override { ++m_nLayouts; }
    };
    auto* frame = new LayoutFrame;
    ASSERT_TRUE(frame->Create(nullptr, L"", WS_OVERLAPPEDWINDOW | WS_VISIBLE, CRect(0, 0, 200, 200)));
    CControlBar bar;
    ASSERT_TRUE(bar.Create(nullptr, L"", 0, CRect(0, 0, 20, 20), frame, AFX_IDW_DOCKBAR_LEFT));
    frame->m_nLayouts = 0;
    frame->ShowControlBar(&bar, TRUE, FALSE);
    EXPECT_TRUE(bar.IsVisible());
    frame->ShowControlBar(&bar, FALSE, FALSE);
    EXPECT_FALSE(bar.IsVisible());
    EXPECT_EQ(frame->m_nLayouts, 2);
    frame->ShowControlBar(nullptr, TRUE, FALSE);
    frame->DestroyWindow();
    EXPECT_EQ(bar.m_hWnd, nullptr);
}

TEST(AfxRegions, CombinedRegion_HasTheBoxOfBoth) {
    CRgn body;
    CRgn tail;
    CRgn both;
    ASSERT_TRUE(body.CreateRoundRectRgn(0, 0, 100, 50, 10, 10));
    const POINT points[] = {{10, 40}, {20, 90}, {40, 40}};
    ASSERT_TRUE(tail.CreatePolygonRgn(points, 3, ALTERNATE));
    ASSERT_TRUE(both.CreateRectRgn(0, 0, 1, 1));
    EXPECT_NE(both.CombineRgn(&tail, &body, RGN_OR), ERROR);
    CRect box;
    both.GetRgnBox(box);
    EXPECT_EQ(box.bottom, 90);
    EXPECT_GE(box.right, 99);
}

TEST(AfxDrawing, LinesWithTheInvertedMode_VanishWhenDrawnTwice) {
    CDC dc;
    CBitmap bitmap;
    ASSERT_TRUE(dc.CreateCompatibleDC(nullptr));
    {
        CClientDC screen(nullptr);
        ASSERT_TRUE(bitmap.CreateCompatibleBitmap(&screen, 20, 20));
    }
    CBitmap* oldBitmap = dc.SelectObject(&bitmap);
    ASSERT_NE(oldBitmap, nullptr);
    dc.FillSolidRect(CRect(0, 0, 20, 20), RGB(255, 255, 255));
    CPen pen(PS_SOLID, 1, 0xC8C8C8);
    CPen* oldPen = dc.SelectObject(&pen);
    const int oldMode = dc.SetROP2(R2_NOTXORPEN);
    const auto draw = [&] {
        dc.MoveTo(0, 5);
        dc.LineTo(20, 5);
    };
    draw();
    EXPECT_NE(dc.GetPixel(10, 5), RGB(255, 255, 255));
    draw();
    EXPECT_EQ(dc.GetPixel(10, 5), RGB(255, 255, 255));
    dc.SetROP2(oldMode);
    dc.SelectObject(oldPen);
    dc.SelectObject(oldBitmap);
}

}  // namespace
