// The scan for line numbers in an open drawing, of which one entity in ten is a tag with a number of its own,
// against a bare walk that opens each entity once. The time per entity stays level as the drawing grows.
#include <benchmark/benchmark.h>

#include <memory>
#include <string>
#include <vector>

#include "acdocman.h"
#include "dbobjptr.h"
#include "dbsymtb.h"
#include "document/drawing_queries.h"
#include "unit/document/quiet_host.h"
#include "unit/document/test_drawing.h"

namespace {

constexpr int kEntitiesPerTag = 10;

void Fill(AcDbDatabase& database, int64_t entities) {
    TestDrawing drawing(database);
    for (int64_t i = 0; i < entities; ++i) {
        if (i % kEntitiesPerTag == 0) {
            drawing.AddReference(L"TAGLINE", {{L"LIN_NUM", L"P-" + std::to_wstring(i)}});
        } else {
            drawing.AddLine();
        }
    }
}

// A host with one document of that many entities.
class Drawing {
  public:
    explicit Drawing(int64_t entities) {
        acDocManager->appContextNewDocument(L"");
        m_document = acDocManager->curDocument();
        acDocManager->lockDocument(m_document);
        Fill(*m_document->database(), entities);
        acDocManager->unlockDocument(m_document);
    }
    ~Drawing() { acDocManager->appContextCloseDocument(m_document); }

    AcApDocument& Document() const { return *m_document; }

  private:
    QuietHost m_host;
    AcApDocument* m_document;
};

void Report(benchmark::State& state) {
    state.SetComplexityN(state.range(0));
    state.counters["per entity"] =
        benchmark::Counter(static_cast<double>(state.iterations() * state.range(0)),
                           benchmark::Counter::kIsRate | benchmark::Counter::kInvert);
}

void WalkEntities(benchmark::State& state) {
    const Drawing drawing(state.range(0));
    for (auto _ : state) {
        AcDbObjectPointer<AcDbBlockTableRecord> modelSpace(GetModelSpaceId(drawing.Document().database()),
                                                           AcDb::kForRead);
        AcDbBlockTableRecordIterator* iterator = nullptr;
        modelSpace->newIterator(iterator);
        const std::unique_ptr<AcDbBlockTableRecordIterator> owner(iterator);
        for (; !iterator->done(); iterator->step()) {
            AcDbObjectId id;
            iterator->getEntityId(id);
            AcDbObjectPointer<AcDbEntity> entity(id, AcDb::kForRead);
            benchmark::DoNotOptimize(entity.object());
        }
    }
    Report(state);
}

void CollectLines(benchmark::State& state) {
    const Drawing drawing(state.range(0));
    for (auto _ : state) {
        std::vector<std::wstring> lines;
        if (CollectLineNumbers(lines, drawing.Document().fileName()) != Acad::eOk ||
            lines.size() != static_cast<size_t>(state.range(0) / kEntitiesPerTag)) {
            state.SkipWithError("wrong result");
            break;
        }
        benchmark::DoNotOptimize(lines.data());
    }
    Report(state);
}

BENCHMARK(WalkEntities)
    ->Arg(1'000)
    ->Arg(10'000)
    ->Arg(100'000)
    ->Arg(200'000)
    ->Complexity()
    ->Unit(benchmark::kMicrosecond);
BENCHMARK(CollectLines)
    ->Arg(1'000)
    ->Arg(10'000)
    ->Arg(100'000)
    ->Arg(200'000)
    ->Complexity()
    ->Unit(benchmark::kMicrosecond);

}  // namespace
