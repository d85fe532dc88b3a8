// Runs a fuzz target once on every file of the folders and files that are named, without libFuzzer. No file
// at all counts as a failure: a corpus that was not found would replay in silence.
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace {

size_t Replay(const std::filesystem::path& path) {
    if (std::filesystem::is_directory(path)) {
        size_t count = 0;
        for (const auto& entry : std::filesystem::directory_iterator(path))
            count += Replay(entry.path());
        return count;
    }
    std::ifstream file(path, std::ios::binary);
    if (!file) return 0;
    const std::vector<char> bytes((std::istreambuf_iterator<char>(file)), std::istreambuf_iterator<char>());
    LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size());
    return 1;
}

}  // namespace

int main(int argc, char** argv) {
    size_t count = 0;
    for (int i = 1; i < argc; ++i)
        count += Replay(argv[i]);
    std::printf("%zu files replayed\n", count);
    return count == 0 ? 1 : 0;
}
