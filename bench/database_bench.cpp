// The calls that a refresh of the palette and the filling of the Drawing Manager's tree make, on a large
// database: 50 clients, 2,000 projects, 5,000 specs and 20,000 lines in the project. The argument is the size
// of the database in percent of that: the time per row must stay level. "read" and "written" are the files
// opened by one call.
#include <benchmark/benchmark.h>

#include <string>

#include "database/line_list.h"
#include "database/project_general.h"
#include "database/spec_list.h"
#include "drawing_manager/tree_contents.h"
#include "platform/memory_platform.h"
#include "sizes/size_table.h"
#include "storage/applications.h"

namespace {

constexpr int kProject = 7;

std::string Row(const char* prefix, int64_t id, const std::string& value) {
    return prefix + std::to_string(id) + " = " + value + "\r\n";
}

class LargeDatabase {
  public:
    explicit LargeDatabase(int64_t percent) : m_percent(percent) {
        platform::Install(&m_memory.services);
        m_memory.registry.SetBytes(platform::Hive::kLocalMachine, L"Software\\KALVOR\\Orvex\\2023",
                                   L"DatafilesPath", platform::RegistryType::kString,
                                   platform::EncodeRegistryText(L"C:\\D\\"));
        PutClients();
        PutProjects();
        PutSpecs();
        PutLines();
        PutSizes();
        DropLineCache();
        DropSizeTableCache();
    }
    ~LargeDatabase() {
        DropLineCache();
        DropSizeTableCache();
        platform::Install(nullptr);
    }

    // Reports how many files one call opens, and the time per row of the database.
    void Report(benchmark::State& state) {
        const auto perCall = [&](const wchar_t* operation) {
            return static_cast<double>(m_memory.log.GetCount(operation)) /
                   static_cast<double>(state.iterations());
        };
        state.counters["read"] = perCall(L"ReadBytes");
        state.counters["written"] = perCall(L"WriteBytes");
        state.SetComplexityN(state.range(0));
    }
    void StartCounting() { m_memory.log.Clear(); }

  private:
    int64_t Scale(int64_t count) const { return count * m_percent / 100; }
    void Put(const std::wstring& name, const std::string& bytes) {
        m_memory.files.AddFile(L"C:\\D\\" + name, bytes);
    }

    void PutClients() {
        std::string list = "[ClientList]\r\n";
        std::string sections;
        const int64_t clients = Scale(50);
        for (int64_t client = 1; client <= clients; ++client) {
            list += Row("KV2D_CLIENT_", client, "Client " + std::to_string(client));
            sections += "\r\n[ProjectList - " + std::to_string(client) + "]\r\n";
            for (int64_t project = client; project <= Scale(2000); project += clients)
                sections += Row("", project, "x");
        }
        Put(L"ClientDatafile.ini", list + sections);
    }
    void PutProjects() {
        std::string list = "[ProjectList]\r\n";
        for (int64_t project = 1; project <= Scale(2000); ++project) {
            list += Row("KV2D_PRJ_", project, "Standard " + std::to_string(project));
        }
        Put(L"ProjectDatafile.ini", list);
        Put(m_folder + L"General.ini",
            "[General]\r\nProjectGuid = 00000001-0000-0000-0000-000000000000\r\nProjectVersion = 2020\r\n");
    }
    void PutSpecs() {
        std::string list = "[SpecList]\r\n";
        std::string clientSpecs = "\r\n[ClientSpecs]\r\n";
        std::string projectSpecs = "\r\n[ProjectSpecs]\r\n";
        std::string enabled = "[SpecList]\r\n";
        for (int64_t spec = 1; spec <= Scale(5000); ++spec) {
            const std::string name = "Spec " + std::to_string(spec * 7919 % 100003);
            list += Row("KV2D_SPEC_", spec, name);
            if (spec % 3 == 1) clientSpecs += Row("KV2D_SPEC_", spec, std::to_string(spec % 50 + 1));
            if (spec % 3 == 2) projectSpecs += Row("KV2D_SPEC_", spec, std::to_string(spec % 2000 + 1));
            if (spec % 20 == 0) enabled += name + " = x\r\n";
            if (spec % 20 != 0 && spec % 2 == 0) enabled += Row("KV2D_SPEC_", spec, "x");
        }
        Put(L"SpecDatafile.ini", list + clientSpecs + projectSpecs);
        Put(m_folder + L"Specs.ini", enabled);
    }
    void PutLines() {
        std::string list = "[LineList]\r\n";
        for (int64_t line = 1; line <= Scale(20000); ++line)
            list += Row("KV2D_LINE_", line, "Line " + std::to_string(line));
        Put(m_folder + L"Lines.ini", list);
        Put(L"LineDatafile.ini", "[General]\r\nLastLineId = " + std::to_string(Scale(20000)) + "\r\n");
    }
    void PutSizes() {
        std::string table;
        for (const char* section :
             {"Metric OD Sizes", "Metric NPS Sizes", "Imperial US Sizes", "Imperial NPS Sizes"}) {
            table += "[" + std::string(section) + "]\r\n";
            for (int64_t size = 1; size <= Scale(60); ++size) {
                table += Row(" ", size, std::to_string(size) + "\"");
            }
        }
        Put(L"Standards\\Piping\\ANSI\\size.tp", table);
    }

    const int64_t m_percent;
    const std::wstring m_folder = L"Projects\\KV2D_PRJ_7 - Standard 7\\";
    platform::MemoryPlatform m_memory;
};

void ProjectSpecs(benchmark::State& state) {
    LargeDatabase database(state.range(0));
    std::vector<int> ids;
    std::vector<std::wstring> names;
    for (auto _ : state)
        GetProjectSpecs(kProject, ids, names);
    if (ids.empty()) state.SkipWithError("no specs");
    database.Report(state);
}

void SizeList(benchmark::State& state) {
    LargeDatabase database(state.range(0));
    std::vector<int> indices;
    std::vector<std::wstring> texts;
    GetSizeList(L"ANSI", kSizeSetImperialUs, indices, texts, false);
    database.StartCounting();
    for (auto _ : state)
        GetSizeList(L"ANSI", kSizeSetImperialUs, indices, texts, false);
    if (texts.empty()) state.SkipWithError("no sizes");
    database.Report(state);
}

void Lines(benchmark::State& state, bool useCache) {
    LargeDatabase database(state.range(0));
    std::vector<int> ids;
    std::vector<std::wstring> names;
    std::vector<bool> flags;
    GetLineList(kProject, ids, names, flags, true, false, false, useCache);
    database.StartCounting();
    for (auto _ : state)
        GetLineList(kProject, ids, names, flags, true, false, false, useCache);
    if (ids.empty()) state.SkipWithError("no lines");
    database.Report(state);
}

void CreateAndRename(benchmark::State& state) {
    LargeDatabase database(state.range(0));
    int count = 0;
    for (auto _ : state) {
        int id = 0;
        std::wstring name;
        CreateLine(kProject, id, name);
        if (RenameLine(kProject, id, L"Renamed " + std::to_wstring(++count)) != kLineOk) {
            state.SkipWithError("not renamed");
            break;
        }
    }
    database.Report(state);
}

// The first line after the loss of the counter file: all default names from the first on are taken.
void CreateWithLostCounter(benchmark::State& state) {
    LargeDatabase database(state.range(0));
    int id = 0;
    std::wstring name;
    for (auto _ : state) {
        state.PauseTiming();
        platform::GetFiles().WriteBytes(L"C:\\D\\LineDatafile.ini", "");
        state.ResumeTiming();
        CreateLine(kProject, id, name);
    }
    database.Report(state);
}

void FillTree(benchmark::State& state) {
    LargeDatabase database(state.range(0));
    for (auto _ : state) {
        const CTreeContents contents = ReadTreeContents(kAppPid);
        if (contents.aClients.empty()) state.SkipWithError("no clients");
    }
    database.Report(state);
}

void Sizes(benchmark::internal::Benchmark* bench) {
    bench->Arg(50)->Arg(100)->Arg(200)->Unit(benchmark::kMillisecond)->Complexity(benchmark::oN);
}

BENCHMARK(ProjectSpecs)->Apply(Sizes);
BENCHMARK(SizeList)->Apply(Sizes);
BENCHMARK_CAPTURE(Lines, not cached, false)->Apply(Sizes);
BENCHMARK_CAPTURE(Lines, cached, true)->Apply(Sizes);
BENCHMARK(CreateAndRename)->Apply(Sizes);
BENCHMARK(CreateWithLostCounter)->Apply(Sizes);
BENCHMARK(FillTree)->Apply(Sizes);

}  // namespace
