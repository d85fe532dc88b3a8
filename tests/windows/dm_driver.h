// Drives the Drawing Manager as its user does: what the tree and the list show, what is selected, which
// buttons can be pressed, what a popup menu offers.
#pragma once

#include <afxcmn.h>
#include <afxwin.h>

#include <string>
#include <vector>

class ManagerDriver {
  public:
    explicit ManagerDriver(HWND dialog);

    HWND Dialog() const { return m_dialog; }
    HWND List() const { return m_list; }
    HWND Tree() const { return m_tree; }

    // --- the tree: an item is named by the labels that lead to it
    using Path = std::vector<std::wstring>;
    // All items from the top, two blanks deeper for each level.
    std::vector<std::wstring> TreeLines() const;
    HTREEITEM Item(const Path& path) const;  // fails the test if there is none
    HTREEITEM SelectedItem() const;
    std::wstring SelectedLabel() const;  // empty without a selection
    void SelectItem(const Path& path) const;
    void Expand(const Path& path) const;
    LPARAM DataOf(const Path& path) const;
    int ImageOf(const Path& path) const;
    void DoubleClickTree() const;

    // --- the list
    std::vector<std::wstring> Rows() const;
    std::wstring Cell(const std::wstring& row, int column) const;
    int ImageOfRow(const std::wstring& row) const;
    std::vector<std::wstring> SelectedRows() const;
    void SelectRows(const std::vector<std::wstring>& rows) const;  // these and no others
    // Left button on the row's label.
    void ClickRow(const std::wstring& row) const;
    void DoubleClickList() const;

    // --- labels; null if no edit was started
    HWND EditRow(const std::wstring& row) const;
    HWND ListEdit() const;
    HWND TreeEdit() const;
    // A key in a label's edit control, handed on as the dialog's own loop does. True once no label is edited.
    bool PressInLabelEdit(HWND edit, WORD key) const;

    // --- the rest
    std::wstring Location() const;
    bool Enabled(int id) const;
    bool Shown(int id) const;    // by its own style, whether or not the dialog shows
    CRect RectOf(int id) const;  // in client coordinates of the dialog
    CRect RectOf(HWND window) const;
    CRect WindowRect() const;     // of the dialog, on the screen
    HWND Splitter(int id) const;  // the bar itself, not its place in the template
    void Command(int id) const;
    void ResizeTo(int width, int height) const;
    // Ends the dialog as Escape does.
    void Escape() const;

    // Right click at a point of the screen on the tree or the list; the lines of the popup that comes up,
    // which is then put away: "Copy 220", "Open 215 grey", "Show Backups 219 checked", and "-" for a
    // separator.
    std::vector<std::wstring> PopupAt(HWND control, CPoint point) const;
    CPoint PointOnItem(const Path& path) const;
    CPoint PointOnEmptyTree() const;
    CPoint PointOnList() const;

  private:
    int FindRow(const std::wstring& row) const;
    void Notify(HWND control, UINT code) const;

    HWND m_dialog;
    HWND m_list;
    HWND m_tree;
};

// The balloon that is up now, or null.
HWND FindBalloon();
