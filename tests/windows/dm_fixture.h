// A small database and the Drawing Manager over it.
#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <string>

#include "dm_driver.h"
#include "drawing_manager/drawing_manager_dlg.h"
#include "support/test_platform.h"
#include "support/windows_driver.h"
#include "unit/database/a_database.h"

// The discipline that the palette tells the dialog; kAppPid until a test sets another.
extern int g_nPaletteDiscipline;

// The dialog, telling when it has been ended: the window itself goes only when the modal loop gets its turn.
class ManagerDlg : public CDrawingManagerDlg {
  public:
    void EndModalLoop(int nResult) override {
        m_bEnded = true;
        CDrawingManagerDlg::EndModalLoop(nResult);
    }
    bool m_bEnded = false;
};

class DrawingManagerTest : public SystemTest {
  protected:
    DrawingManagerTest();

    // Adds a standard of the present version whose flow diagrams are in the folder `name` below the root.
    void AddStandard(int id, const std::string& name, const std::wstring& drawingsFolder);
    // A project whose drawings location is empty.
    void AddStandardWithoutLocation(int id, const std::string& name);

    // The database that most tests use: client "Acme" with the standard 5 "Pump House" (drawings in
    // Drawings\), and "Tank Farm", 6, which no client lists (drawings in Tanks\). Nothing is in the folders
    // yet.
    void UseUsualDatabase();
    std::wstring InDrawings(const std::wstring& name) { return InRoot(L"Drawings\\" + name); }
    void PutDrawings(std::initializer_list<const wchar_t*> names);

    // Values below the discipline's key "DrawingManager".
    void SetValue(const std::wstring& name, std::uint32_t value);
    void SetValue(const std::wstring& name, const std::wstring& text);
    std::uint32_t GetNumber(const std::wstring& name, std::uint32_t missing = 0xDEAD);
    std::wstring GetText(const std::wstring& name);

    // Opens `dialog`, calls `action` when it is up, and ends it as Escape does if it is still there. A test
    // that is not about the closing warning has a ProjectId. The result is the answer of DoModal.
    INT_PTR Run(ManagerDlg& dialog, const std::function<void(ManagerDriver&)>& action);
    INT_PTR Run(const std::function<void(ManagerDriver&)>& action);

    // Answers to the boxes that belong to the dialog; those of the platform are in GetBoxes().
    std::vector<windows::Box> RunAndAnswer(std::vector<int> answers,
                                           const std::function<void(ManagerDriver&)>& action);

    ADatabase m_database;
};
