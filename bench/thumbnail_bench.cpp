// A thumbnail from the bytes of a drawing file to the strokes of a small picture, texts left out as only the
// system draws them. A large drawing should cost what its stated part costs: far below a second, and no more
// for more lines.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <string>
#include <vector>

#include "controls/drawing_excerpt.h"
#include "dbmain.h"
#include "drawing_file/drawing_reader.h"
#include "frame/drawing_display.h"

namespace {

constexpr std::size_t kMostFileBytes = 16u << 20;  // what the control reads of a file
constexpr std::size_t kMostPlacedEntities = 50'000;
constexpr int kSide = 320;

std::string Section(const std::string& name, const std::string& content) {
    return "  0\nSECTION\n  2\n" + name + "\n" + content + "  0\nENDSEC\n";
}

std::string Lines(std::int64_t count) {
    std::string lines;
    for (std::int64_t i = 0; i < count; ++i) {
        const std::string x = std::to_string(i % 1000), y = std::to_string(i / 1000);
        lines += "  0\nLINE\n  8\n0\n 10\n" + x + "\n 20\n" + y + "\n 11\n" + x + ".5\n 21\n" + y + ".5\n";
    }
    return lines;
}

// Blocks of twenty references each to the one before, with lines at the bottom.
std::string MultiplyingBlocks(int levels) {
    std::string blocks;
    for (int level = 0; level < levels; ++level) {
        blocks += "  0\nBLOCK\n  8\n0\n  2\nB" + std::to_string(level) + "\n 70\n0\n 10\n0\n 20\n0\n";
        for (int i = 0; i < 20; ++i)
            blocks += level == 0 ? Lines(1)
                                 : "  0\nINSERT\n  8\n0\n  2\nB" + std::to_string(level - 1) + "\n 10\n" +
                                       std::to_string(i) + "\n 20\n" + std::to_string(level) + "\n";
        blocks += "  0\nENDBLK\n";
    }
    return Section("BLOCKS", blocks);
}

void Show(benchmark::State& state, const std::string& file) {
    const std::string_view bytes = std::string_view(file).substr(0, kMostFileBytes);
    std::size_t shapes = 0;
    for (auto _ : state) {
        AcDbDatabase drawing(false, true);
        std::wstring error;
        if (!workbench::drawing_file::ReadDrawing(
                controls::TakeDrawingExcerpt(bytes, bytes.size() == file.size()), drawing, error)) {
            state.SkipWithError("the drawing is refused");
            return;
        }
        const frame::DisplayList list = frame::BuildDisplayList(&drawing, kMostPlacedEntities);
        frame::ViewTransform view;
        view.SetWindowSize(kSide, kSide);
        view.ZoomExtents(list.Extents());
        std::vector<frame::Color> pixels(static_cast<std::size_t>(kSide) * kSide, 0xC0C0C0);
        frame::Canvas canvas(pixels.data(), kSide, kSide);
        list.Draw(canvas, view, 0xC0C0C0);
        benchmark::DoNotOptimize(pixels.data());
        shapes = list.ShapeCount();
    }
    state.counters["megabytes"] = static_cast<double>(file.size()) / (1 << 20);
    state.counters["shapes"] = static_cast<double>(shapes);
}

void ShowLines(benchmark::State& state) {
    Show(state, Section("ENTITIES", Lines(state.range(0))) + "  0\nEOF\n");
}

void ShowMultiplyingBlocks(benchmark::State& state) {
    const int levels = static_cast<int>(state.range(0));
    Show(state, MultiplyingBlocks(levels) +
                    Section("ENTITIES", "  0\nINSERT\n  8\n0\n  2\nB" + std::to_string(levels - 1) +
                                            "\n 10\n0\n 20\n0\n") +
                    "  0\nEOF\n");
}

// All of it in blocks, which are walked to their end.
void ShowLargeBlock(benchmark::State& state) {
    const std::string block =
        "  0\nBLOCK\n  8\n0\n  2\nB\n 70\n0\n 10\n0\n 20\n0\n" + Lines(state.range(0)) + "  0\nENDBLK\n";
    Show(state, Section("BLOCKS", block) +
                    Section("ENTITIES", "  0\nINSERT\n  8\n0\n  2\nB\n 10\n0\n 20\n0\n") + "  0\nEOF\n");
}

BENCHMARK(ShowLines)->RangeMultiplier(10)->Range(100, 1'000'000)->Unit(benchmark::kMillisecond);
BENCHMARK(ShowLargeBlock)->RangeMultiplier(10)->Range(100, 100'000)->Unit(benchmark::kMillisecond);
BENCHMARK(ShowMultiplyingBlocks)->DenseRange(2, 14, 4)->Unit(benchmark::kMillisecond);

}  // namespace
