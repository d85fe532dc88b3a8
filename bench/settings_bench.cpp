// Loading one discipline's settings against merely reading its file: both are one pass, so the time per row
// of the file stays level, however many rows the settings editor keeps in it.
#include <benchmark/benchmark.h>

#include <string>

#include "platform/memory_platform.h"
#include "settings/project_settings.h"
#include "storage/ini_file.h"

namespace {

constexpr wchar_t kFolder[] = L"C:\\Project\\";
constexpr wchar_t kPath[] = L"C:\\Project\\ISOMETRIC.ini";

// A settings file with nothing to repair among `rows` rows of other programs.
std::string SettingsFile(int64_t rows) {
    std::string text =
        "[Settings]\r\nVariable 180 = 39\r\nVariable 181 = 32\r\nVariable 182 = 32\r\nVariable 185 = 1\r\n";
    for (int64_t i = 0; i < rows; ++i)
        text += "Symbol " + std::to_string(i) + " = 12.5\r\n";
    return text;
}

class InstalledMemory {
  public:
    explicit InstalledMemory(int64_t rows) {
        platform::Install(&m_memory.services);
        m_memory.files.AddFile(kPath, SettingsFile(rows));
    }
    ~InstalledMemory() { platform::Install(nullptr); }

  private:
    platform::MemoryPlatform m_memory;
};

void ReadFile(benchmark::State& state) {
    const InstalledMemory memory(state.range(0));
    for (auto _ : state) {
        CKV2D_IniFile ini;
        benchmark::DoNotOptimize(ini.Open(kPath));
    }
    state.SetComplexityN(state.range(0));
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

void LoadSettings(benchmark::State& state) {
    const InstalledMemory memory(state.range(0));
    for (auto _ : state) {
        CKV2D_ProjectSettingsIso settings;
        settings.InitDefaults(0);
        settings.Load(5, {kFolder, 2016, 1});
        benchmark::DoNotOptimize(settings.m_sections);
    }
    state.SetComplexityN(state.range(0));
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

BENCHMARK(ReadFile)->RangeMultiplier(8)->Range(128, 65'536)->Complexity()->Unit(benchmark::kMicrosecond);
BENCHMARK(LoadSettings)->RangeMultiplier(8)->Range(128, 65'536)->Complexity()->Unit(benchmark::kMicrosecond);

}  // namespace
