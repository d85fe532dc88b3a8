#include "drawing_file/block_cycles.h"

#include <unordered_set>

namespace workbench::drawing_file {

using database::BlockRecordData;

namespace {

// A block on the way down from where the search began, and the entity that comes next.
struct Step {
    const BlockRecordData* block;
    std::size_t next = 0;
};

class CycleSearch {
  public:
    // Without recursion: a hostile file nests blocks as deep as it likes.
    const BlockRecordData* From(const BlockRecordData& start) {
        Enter(start);
        while (!m_way.empty()) {
            Step& step = m_way.back();
            if (step.next == step.block->entities.size()) {
                m_onWay.erase(step.block);
                m_way.pop_back();
                continue;
            }
            const auto* reference =
                database::DataAs<database::BlockReferenceData>(step.block->entities[step.next++]);
            if (reference == nullptr) continue;
            const auto* block = database::DataAs<BlockRecordData>(reference->block);
            if (block == nullptr) continue;
            if (m_onWay.contains(block)) return block;
            Enter(*block);
        }
        return nullptr;
    }

  private:
    void Enter(const BlockRecordData& block) {
        if (!m_seen.insert(&block).second) return;
        m_onWay.insert(&block);
        m_way.push_back({&block});
    }

    std::vector<Step> m_way;
    std::unordered_set<const BlockRecordData*> m_onWay;
    std::unordered_set<const BlockRecordData*> m_seen;
};

}  // namespace

const BlockRecordData* FindBlockCycle(const AcDbImpDatabase& drawing) {
    const auto* table = database::DataAs<database::BlockTableData>(drawing.blockTable);
    if (table == nullptr) return nullptr;
    CycleSearch search;
    for (const AcDbStub* record : table->records) {
        const auto* block = database::DataAs<BlockRecordData>(record);
        if (block == nullptr) continue;
        if (const auto* cycle = search.From(*block)) return cycle;
    }
    return nullptr;
}

}  // namespace workbench::drawing_file
