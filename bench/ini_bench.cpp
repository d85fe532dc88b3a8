// The ini document beside two well-kept libraries: GLib's GKeyFile and SimpleIni.
//
// All three work on the same file of a temporary folder, which the system holds in its page cache, with rows
// like those of a line list: KV2D_LINE_123 = 6"-P-123-A1A. The files come in two orders: "sorted" as this
// system saves them, and "shuffled" as another program may have written them.
//
// Measured is what a caller waits for:
//   Load    opening the file by its path, reading it whole, and letting the document go again;
//   LookUp  one value by section and key, in an order by chance: ours takes and gives wide strings, GKeyFile
//           gives a new string that is freed, SimpleIni gives a pointer into itself;
//   Fetch   loading, and looking up a single value. Ours makes its index at the first look-up, which LookUp
//           therefore leaves out, so this is where it counts;
//   Errand  loading, setting one new key in the first section, and writing the file: the two libraries make
//           their text in memory, and the same function writes it as writes ours. GKeyFile's own saving would
//           also wait for the disk. Only ours sorts.
//
// The table gives the time for each row of the file, or for one look-up: the best of three runs, which are
// mixed with those of the others, since a machine is not equally busy all the time.
#define SI_NO_CONVERSION  // narrow text stays narrow
#include <SimpleIni.h>
#include <benchmark/benchmark.h>
#include <fcntl.h>
#include <glib.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <map>
#include <memory>
#include <random>
#include <string>
#include <vector>

#include "comparison_table.h"
#include "platform/memory_platform.h"
#include "storage/ini_file.h"

namespace {

struct Shape {
    int sections;
    int rows;  // in each section
    bool shuffled;

    bool operator<(const Shape& other) const {
        return std::tie(sections, rows, shuffled) < std::tie(other.sections, other.rows, other.shuffled);
    }
};

struct Name {
    std::string section;
    std::string key;
};

bool WriteWhole(const char* path, std::string_view bytes) {
    const int file = open(path, O_WRONLY | O_CREAT | O_TRUNC, 0600);
    if (file < 0) return false;
    while (!bytes.empty()) {
        const ssize_t count = write(file, bytes.data(), bytes.size());
        if (count <= 0) break;
        bytes.remove_prefix(static_cast<size_t>(count));
    }
    close(file);
    return bytes.empty();
}

bool ReadWhole(const char* path, std::string& bytes) {
    const int file = open(path, O_RDONLY);
    if (file < 0) return false;
    bytes.resize(static_cast<size_t>(lseek(file, 0, SEEK_END)));
    const ssize_t count = pread(file, bytes.data(), bytes.size(), 0);
    close(file);
    return count == static_cast<ssize_t>(bytes.size());
}

// Real files under their Linux paths; the rest of the platform is in memory.
class RealFiles : public platform::MemoryFiles {
  public:
    using MemoryFiles::MemoryFiles;

    platform::ErrorCode ReadBytes(const std::wstring& path, platform::Sharing, std::string& bytes) override {
        return ReadWhole(std::filesystem::path(path).c_str(), bytes) ? platform::kDone
                                                                     : platform::kFileNotFound;
    }
    platform::WriteResult WriteBytes(const std::wstring& path, std::string_view bytes) override {
        return WriteWhole(std::filesystem::path(path).c_str(), bytes) ? platform::WriteResult::kWritten
                                                                      : platform::WriteResult::kCannotCreate;
    }
};

// A file of one shape, kept until the program ends.
class Document {
  public:
    explicit Document(const Shape& shape) {
        for (int section = 0; section < shape.sections; ++section) {
            for (int row = 1; row <= shape.rows; ++row) {
                m_names.push_back(
                    {"Section" + std::to_string(1000 + section), "KV2D_LINE_" + std::to_string(row)});
            }
        }
        std::sort(m_names.begin(), m_names.end(), [](const Name& left, const Name& right) {
            return std::tie(left.section, left.key) < std::tie(right.section, right.key);
        });
        std::mt19937 chance(1);
        if (shape.shuffled) {
            for (size_t first = 0; first < m_names.size(); first += static_cast<size_t>(shape.rows)) {
                const auto begin = m_names.begin() + static_cast<std::ptrdiff_t>(first);
                std::shuffle(begin, begin + shape.rows, chance);
            }
        }
        std::string section;
        for (const Name& name : m_names) {
            if (name.section != section) m_text += (section.empty() ? "[" : "\r\n[") + name.section + "]\r\n";
            section = name.section;
            m_text += name.key + " = 6\"-P-" + name.key.substr(10) + "-A1A\r\n";
        }
        m_path =
            (std::filesystem::temp_directory_path() / ("kv2d_bench_" + std::to_string(getpid()) + ".ini"))
                .string();
        std::shuffle(m_names.begin(), m_names.end(), chance);
        m_widePath.assign(m_path.begin(), m_path.end());
    }

    void Restore() const {
        if (!WriteWhole(m_path.c_str(), m_text)) std::abort();
    }
    ~Document() { std::filesystem::remove(m_path); }

    std::vector<Name> m_names;  // in an order by chance
    std::string m_text;
    std::string m_path;
    std::wstring m_widePath;
};

const Document& GetDocument(const Shape& shape) {
    static std::map<Shape, std::unique_ptr<Document>> documents;
    std::unique_ptr<Document>& document = documents[shape];
    if (!document) document = std::make_unique<Document>(shape);
    document->Restore();
    return *document;
}

// --- The three documents, each with the same four operations.

class Ours {
  public:
    using String = std::wstring;

    void Load(const Document& document) { Check(m_ini.Open(document.m_widePath) == kIniDone); }
    void LookUp(const String& section, const String& key) {
        m_ini.SetSection(section);
        m_ini.GetString(key, m_value, m_default);
        benchmark::DoNotOptimize(m_value.data());
    }
    void Insert() {
        m_ini.SetSection(L"Section1000");
        m_ini.SetString(L"KV2D_LINE_NEW", L"8\"-P-1-A1A");
    }
    void Save(const Document&) { Check(m_ini.Save(false) == kIniDone); }

  private:
    static void Check(bool done) {
        if (!done) std::abort();
    }
    CKV2D_IniFile m_ini;
    std::wstring m_value;
    const std::wstring m_default;
};

class GLib {
  public:
    GLib() : m_file(g_key_file_new()) {}
    ~GLib() { g_key_file_free(m_file); }
    GLib(const GLib&) = delete;
    GLib& operator=(const GLib&) = delete;

    void Load(const Document& document) {
        if (!g_key_file_load_from_file(m_file, document.m_path.c_str(), G_KEY_FILE_NONE, nullptr))
            std::abort();
    }
    using String = std::string;
    void LookUp(const String& section, const String& key) {
        char* value = g_key_file_get_value(m_file, section.c_str(), key.c_str(), nullptr);
        benchmark::DoNotOptimize(value);
        g_free(value);
    }
    void Insert() { g_key_file_set_value(m_file, "Section1000", "KV2D_LINE_NEW", "8\"-P-1-A1A"); }
    void Save(const Document& document) {
        gsize size = 0;
        char* data = g_key_file_to_data(m_file, &size, nullptr);
        if (!WriteWhole(document.m_path.c_str(), {data, size})) std::abort();
        g_free(data);
    }

  private:
    GKeyFile* m_file;
};

class Simple {
  public:
    void Load(const Document& document) {
        if (m_ini.LoadFile(document.m_path.c_str()) < 0) std::abort();
    }
    using String = std::string;
    void LookUp(const String& section, const String& key) {
        benchmark::DoNotOptimize(m_ini.GetValue(section.c_str(), key.c_str()));
    }
    void Insert() { m_ini.SetValue("Section1000", "KV2D_LINE_NEW", "8\"-P-1-A1A"); }
    void Save(const Document& document) {
        std::string text;
        m_ini.Save(text);
        if (!WriteWhole(document.m_path.c_str(), text)) std::abort();
    }

  private:
    CSimpleIniCaseA m_ini;
};

// --- The three errands.

void CountRows(benchmark::State& state, size_t rows) {
    using benchmark::Counter;
    state.counters["row"] =
        Counter(static_cast<double>(rows), Counter::kIsIterationInvariantRate | Counter::kInvert);
}

Shape GetShape(const benchmark::State& state) {
    return {static_cast<int>(state.range(0)), static_cast<int>(state.range(1)), state.range(2) != 0};
}

template <typename Library>
void Load(benchmark::State& state) {
    const Document& document = GetDocument(GetShape(state));
    for (auto _ : state) {
        Library library;
        library.Load(document);
        benchmark::ClobberMemory();
    }
    CountRows(state, document.m_names.size());
}

// The caller's names: each section once, and keys in an order by chance.
template <typename String>
struct Wanted {
    explicit Wanted(const Document& document) {
        std::map<std::string, size_t> places;
        for (const Name& name : document.m_names) {
            const auto [place, isNew] = places.try_emplace(name.section, m_sections.size());
            if (isNew) m_sections.emplace_back(name.section.begin(), name.section.end());
            m_keys.push_back({place->second, String(name.key.begin(), name.key.end())});
        }
    }

    std::vector<String> m_sections;
    std::vector<std::pair<size_t, String>> m_keys;
};

template <typename Library>
void LookUp(benchmark::State& state) {
    const Document& document = GetDocument(GetShape(state));
    Library library;
    library.Load(document);
    const Wanted<typename Library::String> wanted(document);
    library.LookUp(wanted.m_sections.front(), wanted.m_keys.front().second);
    size_t next = 0;
    for (auto _ : state) {
        const auto& [section, key] = wanted.m_keys[next];
        library.LookUp(wanted.m_sections[section], key);
        if (++next == wanted.m_keys.size()) next = 0;
    }
    CountRows(state, 1);
}

template <typename Library>
void Fetch(benchmark::State& state) {
    const Document& document = GetDocument(GetShape(state));
    const Wanted<typename Library::String> wanted(document);
    for (auto _ : state) {
        Library library;
        library.Load(document);
        library.LookUp(wanted.m_sections[wanted.m_keys.front().first], wanted.m_keys.front().second);
    }
    CountRows(state, document.m_names.size());
}

template <typename Library>
void Errand(benchmark::State& state) {
    const Document& document = GetDocument(GetShape(state));
    for (auto _ : state) {
        state.PauseTiming();
        document.Restore();
        state.ResumeTiming();
        Library library;
        library.Load(document);
        library.Insert();
        library.Save(document);
    }
    CountRows(state, document.m_names.size());
}

void Shapes(benchmark::internal::Benchmark* bench) {
    bench->ArgNames({"sections", "rows", "shuffled"})->Repetitions(3);
    for (const int shuffled : {0, 1}) {
        for (const int rows : {1000, 10'000, 100'000, 1'000'000})
            bench->Args({1, rows, shuffled});
        bench->Args({1000, 100, shuffled});
    }
}

BENCHMARK(Load<Ours>)->Apply(Shapes);
BENCHMARK(Load<GLib>)->Apply(Shapes);
BENCHMARK(Load<Simple>)->Apply(Shapes);
BENCHMARK(LookUp<Ours>)->Apply(Shapes);
BENCHMARK(LookUp<GLib>)->Apply(Shapes);
BENCHMARK(LookUp<Simple>)->Apply(Shapes);
BENCHMARK(Fetch<Ours>)->Apply(Shapes);
BENCHMARK(Fetch<GLib>)->Apply(Shapes);
BENCHMARK(Fetch<Simple>)->Apply(Shapes);
BENCHMARK(Errand<Ours>)->Apply(Shapes);
BENCHMARK(Errand<GLib>)->Apply(Shapes);
BENCHMARK(Errand<Simple>)->Apply(Shapes);

}  // namespace

int main(int argc, char** argv) {
    platform::MemoryPlatform memory;
    RealFiles files(memory.clock, memory.log);
    platform::Platform services{files,        memory.registry,  memory.environment, memory.clock,
                                memory.guids, memory.processes, memory.boxes,       memory.text};
    platform::Install(&services);
    // Options of the user's come behind, and win.
    std::string mixed = "--benchmark_enable_random_interleaving=true";
    std::vector<char*> options(argv, argv + argc);
    options.insert(options.begin() + 1, mixed.data());
    argc = static_cast<int>(options.size());
    options.push_back(nullptr);
    benchmark::Initialize(&argc, options.data());
    ComparisonTable table({"Ours", "GLib", "Simple"});
    benchmark::RunSpecifiedBenchmarks(&table);
    benchmark::Shutdown();
    return 0;
}
