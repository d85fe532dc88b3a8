// The Drawing Manager in its real window, on real files: how long a folder of drawings takes to list, and the
// tree of clients and standards to fill. Each size is twice the one before; the time for one drawing or one
// standard has to stay level. The best of five runs counts.
#include <array>
#include <chrono>
#include <cstdio>
#include <functional>

#include "drawing_manager/drawing_manager_dlg.h"
#include "drawing_manager/manager_registry.h"
#include "drawing_manager/palette_discipline.h"
#include "storage/applications.h"
#include "storage/registry_settings.h"
#include "support/test_platform.h"

int GetPaletteDiscipline() {
    return kAppPid;
}

namespace {

constexpr int kRuns = 5;
constexpr int kStandard = 1;

// The dialog, which does its work when it has come up, and ends.
class MeasuredDlg : public CDrawingManagerDlg {
  public:
    explicit MeasuredDlg(bool bTree) : m_bTree(bTree) {}
    double m_dMilliseconds = 0;

  protected:
    BOOL OnInitDialog() override {
        const BOOL bResult = CDrawingManagerDlg::OnInitDialog();
        PostMessage(WM_APP);
        return bResult;
    }
    LRESULT DefWindowProc(UINT nMsg, WPARAM wParam, LPARAM lParam) override {
        if (nMsg != WM_APP) return CDrawingManagerDlg::DefWindowProc(nMsg, wParam, lParam);
        for (int i = 0; i < kRuns; ++i) {
            const auto start = std::chrono::steady_clock::now();
            if (m_bTree)
                FillTree();
            else
                RefreshDrawings();
            UpdateWindow();
            const std::chrono::duration<double, std::milli> taken = std::chrono::steady_clock::now() - start;
            if (i == 0 || taken.count() < m_dMilliseconds) m_dMilliseconds = taken.count();
        }
        EndDialog(IDCANCEL);
        return 0;
    }

  private:
    bool m_bTree;
};

std::string Row(const char* szPrefix, int nId, const std::string& strValue) {
    return szPrefix + std::to_string(nId) + " = " + strValue + "\r\n";
}

// `nStandards` standards, ten to a client. All drawings are those of the first.
void PutDatabase(TestSystem& system, int nStandards) {
    system.UseDatabase();
    std::string strClients = "[ClientList]\r\n";
    std::string strListed;
    for (int nClient = 1; nClient <= std::max(1, nStandards / 10); ++nClient) {
        strClients += Row("KV2D_CLIENT_", nClient, "Client " + std::to_string(nClient * 7919 % 10007));
        strListed += "\r\n[ProjectList - " + std::to_string(nClient) + "]\r\n";
        for (int i = (nClient - 1) * 10 + 1; i <= std::min(nStandards, nClient * 10); ++i)
            strListed += Row("", i, "x");
    }
    std::string strStandards = "[ProjectList]\r\n";
    for (int i = 1; i <= nStandards; ++i)
        strStandards += Row("KV2D_PRJ_", i, "Standard " + std::to_string(i * 7919 % 100003));
    system.PutFile(system.InData(L"ClientDatafile.ini"), strClients + strListed);
    system.PutFile(system.InData(L"ProjectDatafile.ini"), strStandards);
    const std::wstring strFolder = system.InRoot(L"Drawings\\");
    system.PutFolder(strFolder);
    system.PutFile(system.InData(L"Projects\\KV2D_PRJ_1 - Standard 7919\\General.ini"),
                   "[Drawings Location]\r\nPID = " + platform::GetText().Narrow(strFolder) +
                       "\r\n\r\n[General]\r\nProjectGuid = "
                       "00000001-0000-0000-0000-000000000000\r\nProjectVersion = 2016\r\n");
    WriteDisciplineDword(kAppPid, kManagerSubkey, kProjectIdValue, kStandard);
}

// Every fiftieth drawing is locked.
void PutDrawings(TestSystem& system, int nDrawings) {
    const std::string strLock = "user\r\nmachine\r\ntime\r\n";
    for (int i = 0; i < nDrawings; ++i) {
        const std::wstring strTitle = L"Drawings\\PS4-PID-" + std::to_wstring(100000 + i * 7919 % 100003);
        system.PutFile(system.InRoot(strTitle + L".dwg"), "drawing");
        if (i % 50 == 0) system.PutFile(system.InRoot(strTitle + L".dwl"), strLock);
    }
}

void Measure(const char* szWhat, bool bTree, const std::array<int, 4>& anSizes,
             const std::function<void(TestSystem&, int)>& put) {
    std::printf("%10s %12s %16s\n", szWhat, "time (ms)", "for one (us)");
    for (int nSize : anSizes) {
        TestSystem system;
        put(system, nSize);
        MeasuredDlg dialog(bTree);
        dialog.DoModal();
        std::printf("%10d %12.1f %16.1f\n", nSize, dialog.m_dMilliseconds,
                    dialog.m_dMilliseconds * 1000 / nSize);
        std::fflush(stdout);
    }
    std::printf("\n");
}

}  // namespace

int main() {
    Measure("drawings", false, {1250, 2500, 5000, 10000}, [](TestSystem& system, int nDrawings) {
        PutDatabase(system, 1);
        PutDrawings(system, nDrawings);
    });
    Measure("standards", true, {250, 500, 1000, 2000}, &PutDatabase);
    return 0;
}
