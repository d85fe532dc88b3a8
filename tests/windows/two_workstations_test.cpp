// Two processes in one database at the same time.
#include <gmock/gmock.h>
#include <windows.h>

#include <iostream>
#include <map>
#include <set>
#include <sstream>

#include "database/line_list.h"
#include "support/test_platform.h"

namespace {

using testing::ElementsAre;

// A started program; ends it if it hangs.
class Worker {
  public:
    explicit Worker(const std::wstring& arguments) {
        std::wstring path(MAX_PATH, L'\0');
        path.resize(GetModuleFileNameW(nullptr, path.data(), MAX_PATH));
        std::wstring command =
            L"\"" + path.substr(0, path.rfind(L'\\')) + L"\\database_worker.exe\" " + arguments;
        STARTUPINFOW startup{};
        startup.cb = sizeof(startup);
        PROCESS_INFORMATION process{};
        if (!CreateProcessW(nullptr, command.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &startup,
                            &process))
            return;
        CloseHandle(process.hThread);
        m_process = process.hProcess;
    }
    ~Worker() {
        if (m_process) CloseHandle(m_process);
    }
    Worker(const Worker&) = delete;
    Worker& operator=(const Worker&) = delete;

    // The exit code; -1 if it did not start or did not end in time.
    int Wait() {
        constexpr DWORD kDeadline = 80'000;  // milliseconds
        if (!m_process) return -1;
        if (WaitForSingleObject(m_process, kDeadline) != WAIT_OBJECT_0) {
            TerminateProcess(m_process, 1);
            return -1;
        }
        DWORD code = 0;
        GetExitCodeProcess(m_process, &code);
        return static_cast<int>(code);
    }

  private:
    HANDLE m_process = nullptr;
};

// What a worker says that it did.
struct Deed {
    int id = 0;
    int code = 0;
    std::wstring name;
};

class TwoWorkstationsTest : public SystemTest {
  protected:
    TwoWorkstationsTest() { m_folder = UseDatabase().substr(0, InData(L"").size() - 1); }

    std::wstring Arguments(const wchar_t* task, const wchar_t* name) const {
        return std::wstring(task) + L" \"" + m_folder + L"\" " + name;
    }

    std::vector<Deed> GetDeeds(const wchar_t* worker) {
        std::istringstream report(GetBytes(InData(std::wstring(worker) + L".txt")));
        std::vector<Deed> deeds;
        for (std::string line; std::getline(report, line);) {
            std::istringstream fields(line);
            Deed deed;
            std::string name;
            fields >> deed.id >> deed.code;
            std::getline(fields >> std::ws, name);
            deed.name.assign(name.begin(), name.end());
            deeds.push_back(deed);
        }
        return deeds;
    }

    // A file is well formed if reading it and saving it anew changes nothing.
    void ExpectWellFormed(const std::wstring& path) {
        const std::string before = GetBytes(path);
        {
            CKV2D_IniFile ini;
            EXPECT_EQ(ini.Open(path), kIniDone);
            EXPECT_EQ(ini.Save(true), kIniDone);
        }
        EXPECT_EQ(GetBytes(path), before);
    }

    std::wstring m_folder;
};

TEST_F(TwoWorkstationsTest, CreatingAndRenamingLinesAtOnce_LosesUpdatesButNoFile) {
    constexpr int kLinesEach = 150;
    PutFile(InData(L"ProjectDatafile.ini"), Lines({"[ProjectList]", "KV2D_PRJ_5 = Pump"}));
    PutFolder(InData(L"Projects\\KV2D_PRJ_5 - Pump"));
    Worker first(Arguments(L"lines", L"A") + L" " + std::to_wstring(kLinesEach));
    Worker second(Arguments(L"lines", L"B") + L" " + std::to_wstring(kLinesEach));
    PutFile(InData(L"go"), "");
    ASSERT_EQ(first.Wait(), 0);
    ASSERT_EQ(second.Wait(), 0);

    ExpectWellFormed(GetLinesIniPath(5));
    ExpectWellFormed(InData(L"LineDatafile.ini"));
    std::vector<int> ids;
    std::vector<std::wstring> names;
    std::vector<bool> flags;
    ASSERT_EQ(GetLineList(5, ids, names, flags, true, true, false, false), kLineOk);

    std::vector<Deed> deeds = GetDeeds(L"A");
    const std::vector<Deed> more = GetDeeds(L"B");
    deeds.insert(deeds.end(), more.begin(), more.end());
    ASSERT_EQ(deeds.size(), 2u * kLinesEach);
    const std::set<std::wstring> present(names.begin(), names.end());
    std::map<int, int> refusals;
    std::set<int> drawn;
    int lost = 0;
    int repeated = 0;
    for (const Deed& deed : deeds) {
        if (!drawn.insert(deed.id).second) ++repeated;
        if (deed.code != kLineOk) {
            ++refusals[deed.code];
            EXPECT_TRUE(deed.code == kLineNotFound || deed.code == kLineCannotOpenDatafile) << deed.code;
        } else if (!present.count(deed.name)) {
            ++lost;
        }
    }
    // Every row that is left is one that a worker made.
    for (size_t i = 0; i < names.size(); ++i)
        EXPECT_TRUE(drawn.count(ids[i])) << ids[i];
    std::cout << "[ RESULT   ] two processes, " << kLinesEach << " lines each: " << names.size()
              << " lines left, " << lost << " updates lost, " << repeated
              << " ids drawn twice, renames refused: " << refusals[kLineNotFound] << " (line not found), "
              << refusals[kLineCannotOpenDatafile] << " (file in use)" << std::endl;
    RecordProperty("updates_lost", lost);
}

TEST_F(TwoWorkstationsTest, SizeTableConvertedByOne_IsReadAsIniFormByTheOther) {
    const std::wstring table = InData(L"Standards\\Piping\\ANSI\\size.tp");
    PutFile(table, Lines({"3,3\",DN 80,88.9", "1,1\",DN 25,33.4"}));
    EXPECT_EQ(Worker(Arguments(L"sizes", L"A")).Wait(), 0);
    const std::string converted = GetBytes(table);
    EXPECT_THAT(converted, testing::StartsWith("[Imperial NPS Sizes]\r\n 1.00 = NPS 1\r\n"));
    EXPECT_EQ(GetBytes(InData(L"A.txt")), "88.9\n33.4\n");
    EXPECT_EQ(Worker(Arguments(L"sizes", L"B")).Wait(), 0);
    EXPECT_EQ(GetBytes(table), converted);
    EXPECT_EQ(GetBytes(InData(L"B.txt")), "33.4\n88.9\n");
}

}  // namespace
