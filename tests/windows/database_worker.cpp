// Another workstation at work in a database: a process of its own, with real files.
//
//   database_worker lines FOLDER NAME COUNT
//       creates and renames COUNT lines of project 5 and writes what it did to FOLDER\NAME.txt, a row a line:
//       "<id> <code of the rename> <name>"
//   database_worker sizes FOLDER NAME
//       writes the outside diameters of size.tp to FOLDER\NAME.txt
//
// FOLDER is the data files folder. The line worker waits until the file FOLDER\go exists.
#include <windows.h>

#include <string>
#include <vector>

#include "database/line_list.h"
#include "database/spec_list.h"
#include "platform/memory_platform.h"
#include "platform/win32_platform.h"

namespace {

// The process's own settings, with the files of the system.
class WorkerSystem {
  public:
    explicit WorkerSystem(const std::wstring& strFolder) {
        m_memory.registry.SetBytes(platform::Hive::kLocalMachine, L"Software\\KALVOR\\Orvex\\2023",
                                   L"DatafilesPath", platform::RegistryType::kString,
                                   platform::EncodeRegistryText(strFolder));
        platform::Install(&m_services);
    }
    ~WorkerSystem() { platform::Install(nullptr); }

  private:
    platform::MemoryPlatform m_memory;
    platform::Platform m_services{platform::GetWin32Platform().files,
                                  m_memory.registry,
                                  m_memory.environment,
                                  m_memory.clock,
                                  m_memory.guids,
                                  m_memory.processes,
                                  m_memory.boxes,
                                  m_memory.text};
};

bool WaitForStart(const std::wstring& strFolder) {
    constexpr DWORD kDeadline = 30'000;  // milliseconds
    for (const ULONGLONG uStart = GetTickCount64(); GetTickCount64() - uStart < kDeadline; Sleep(1)) {
        if (platform::GetFiles().Exists(strFolder + L"\\go")) return true;
    }
    return false;
}

std::string WorkOnLines(const std::wstring& strWorker, int nCount) {
    std::string strReport;
    for (int i = 0; i < nCount; ++i) {
        int nLineId = 0;
        std::wstring strName;
        if (CreateLine(5, nLineId, strName) != kLineOk) continue;
        const std::wstring strNewName = strWorker + L" " + std::to_wstring(i);
        const int nCode = RenameLine(5, nLineId, strNewName);
        strReport += std::to_string(nLineId) + " " + std::to_string(nCode) + " " +
                     platform::GetText().Narrow(strNewName) + "\n";
    }
    return strReport;
}

std::string ListSizes() {
    std::vector<int> anIndices;
    std::vector<std::wstring> astrTexts;
    GetSizeList(L"ANSI", 0, anIndices, astrTexts, false);
    std::string strReport;
    for (const std::wstring& strText : astrTexts)
        strReport += platform::GetText().Narrow(strText) + "\n";
    return strReport;
}

}  // namespace

int wmain(int nArguments, wchar_t** ppszArguments) {
    const std::vector<std::wstring> astrArguments(ppszArguments, ppszArguments + nArguments);
    if (nArguments < 4) return 2;
    const std::wstring& strFolder = astrArguments[2];
    const WorkerSystem system(strFolder);
    std::string strReport;
    if (astrArguments[1] == L"sizes") {
        strReport = ListSizes();
    } else {
        if (nArguments < 5 || !WaitForStart(strFolder)) return 3;
        strReport = WorkOnLines(astrArguments[3], std::stoi(astrArguments[4]));
    }
    const auto result =
        platform::GetFiles().WriteBytes(strFolder + L"\\" + astrArguments[3] + L".txt", strReport);
    return result == platform::WriteResult::kWritten ? 0 : 4;
}
