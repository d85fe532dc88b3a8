// The drawing database: what one entity costs, from 1,000 to 200,000 of them, one in ten a block reference
// with an attribute. The column "per_entity" should stay flat.
#include <benchmark/benchmark.h>

#include <memory>
#include <vector>

#include "database/builder.h"
#include "dbobjptr.h"

namespace {

using namespace workbench::database;

constexpr std::int64_t kFewest = 1000;
constexpr std::int64_t kMost = 200000;
constexpr int kReferenceEvery = 10;

struct Drawing {
    explicit Drawing(std::int64_t entities) {
        Builder builder(database);
        auto& blocks = builder.Table<BlockTableData>(0);
        auto& tagged = builder.Record<BlockRecordData>(blocks, L"PIP_BLK", 0);
        auto& space = builder.Record<BlockRecordData>(blocks, ACDB_MODEL_SPACE, 0);
        for (std::int64_t i = 0; i < entities; ++i) {
            if (i % kReferenceEvery != 0) {
                builder.Entity<LineData>(space, 0);
                continue;
            }
            auto& reference = builder.Entity<BlockReferenceData>(space, 0);
            reference.block = tagged.stub;
            auto& attribute = builder.Attribute(reference, 0);
            attribute.tag = L"LIN_NUM";
            attribute.text = std::to_wstring(i % 500);
        }
        builder.Finish();
        for (AcDbStub* stub : space.entities) {
            ids.emplace_back(stub);
        }
    }

    AcDbDatabase database{false, true};
    std::vector<AcDbObjectId> ids;
};

void SetRate(benchmark::State& state) {
    state.counters["per_entity"] =
        benchmark::Counter(static_cast<double>(state.range(0)),
                           benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}

void BuildDrawing(benchmark::State& state) {
    for (auto _ : state) {
        Drawing drawing(state.range(0));
        benchmark::DoNotOptimize(drawing.ids.data());
    }
    SetRate(state);
}

void WalkModelSpace(benchmark::State& state) {
    Drawing drawing(state.range(0));
    for (auto _ : state) {
        AcDbObjectPointer<AcDbBlockTableRecord> space(drawing.database.currentSpaceId());
        AcDbBlockTableRecordIterator* made = nullptr;
        space->newIterator(made);
        const std::unique_ptr<AcDbBlockTableRecordIterator> iterator(made);
        for (; !iterator->done(); iterator->step()) {
            AcDbEntity* entity = nullptr;
            iterator->getEntity(entity);
            entity->close();
        }
    }
    SetRate(state);
}

void OpenById(benchmark::State& state) {
    Drawing drawing(state.range(0));
    for (auto _ : state) {
        for (const AcDbObjectId id : drawing.ids) {
            AcDbObjectPointer<AcDbBlockReference> reference(id);
            benchmark::DoNotOptimize(reference.openStatus());
        }
    }
    SetRate(state);
}

void FindByHandle(benchmark::State& state) {
    Drawing drawing(state.range(0));
    for (auto _ : state) {
        for (const AcDbObjectId id : drawing.ids) {
            AcDbObjectId found;
            drawing.database.getAcDbObjectId(found, false, id.handle());
            benchmark::DoNotOptimize(found);
        }
    }
    SetRate(state);
}

void AppendEntities(benchmark::State& state) {
    for (auto _ : state) {
        AcDbDatabase database(true, true);
        AcDbObjectPointer<AcDbBlockTableRecord> space(database.currentSpaceId(), AcDb::kForWrite);
        for (std::int64_t i = 0; i < state.range(0); ++i) {
            auto* line = new AcDbLine;
            space->appendAcDbEntity(line);
            line->close();
        }
    }
    SetRate(state);
}

BENCHMARK(BuildDrawing)->RangeMultiplier(10)->Range(kFewest, kMost)->Unit(benchmark::kMillisecond);
BENCHMARK(WalkModelSpace)->RangeMultiplier(10)->Range(kFewest, kMost)->Unit(benchmark::kMillisecond);
BENCHMARK(OpenById)->RangeMultiplier(10)->Range(kFewest, kMost)->Unit(benchmark::kMillisecond);
BENCHMARK(FindByHandle)->RangeMultiplier(10)->Range(kFewest, kMost)->Unit(benchmark::kMillisecond);
BENCHMARK(AppendEntities)->RangeMultiplier(10)->Range(kFewest, kMost)->Unit(benchmark::kMillisecond);

}  // namespace
