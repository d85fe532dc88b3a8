// Reads the blocks and the entities of a drawing file.
#pragma once

#include <span>
#include <vector>

#include "drawing_file/entity_reader.h"

namespace workbench::drawing_file {

class BlockReader {
  public:
    BlockReader(const FileTree& tree, ReadContext& context) : m_tree(tree), m_context(context) {}

    // Throws DrawingError for a block without a name or an end, for one that is defined twice, and for one
    // that contains itself.
    void Read();

  private:
    struct BlockSpan {
        database::BlockRecordData* block;
        std::span<const Record> entities;
        std::uint32_t line;  // of its beginning
    };
    void RefuseCycles() const;
    void FindBlocks();
    std::size_t AddBlock(std::span<const Record> records, std::size_t first);
    database::BlockRecordData& BlockNamed(const std::wstring& name);
    database::BlockRecordData& SpaceOf(const RecordBody& body);

    const FileTree& m_tree;
    ReadContext& m_context;
    std::vector<BlockSpan> m_blocks;
};

// A name of a block as later releases have it: release 12 wrote "$MODEL_SPACE" for "*Model_Space".
std::wstring CurrentBlockName(const std::wstring& name);

}  // namespace workbench::drawing_file
