#include "drawing_file/block_reader.h"

#include <algorithm>

#include "drawing_file/block_cycles.h"
#include "drawing_file/group_codes.h"
#include "drawing_file/object_reader.h"

namespace workbench::drawing_file {

using database::BlockRecordData;

namespace {

constexpr std::string_view kBegin = "BLOCK";
constexpr std::string_view kEnd = "ENDBLK";

bool IsLayout(const BlockRecordData& block) {
    const std::wstring name = database::UpperCase(block.name);
    return name.starts_with(L"*MODEL_SPACE") || name.starts_with(L"*PAPER_SPACE");
}

// The members that every entity has, of BLOCK or ENDBLK; then those that `more` reads.
template <class More>
void FillEdge(RecordBody& body, ReadContext& context, database::ProxyEntityData& edge, More more) {
    FillCommonParts(body, context, edge);
    FieldReader fields(body, context);
    CommonFields(fields, edge);
    more(fields);
    KeepRest(body, context, fields.LastSubclass(), EmptyMarkers::kDrop, edge.extra);
}

}  // namespace

void BlockReader::Read() {
    FindBlocks();
    // Blocks refer to blocks that come later: entities are read when all blocks are known.
    for (const BlockSpan& span : m_blocks) {
        ReadEntities(span.entities, m_context,
                     [&](const RecordBody&) -> BlockRecordData& { return *span.block; });
    }
    if (const Section* section = m_tree.Find("ENTITIES")) {
        ReadEntities(section->records, m_context,
                     [&](const RecordBody& body) -> BlockRecordData& { return SpaceOf(body); });
    }
    RefuseCycles();
}

void BlockReader::RefuseCycles() const {
    const BlockRecordData* cycle = FindBlockCycle(m_context.builder.Data());
    if (cycle == nullptr) return;
    const auto span = std::find_if(m_blocks.begin(), m_blocks.end(),
                                   [cycle](const BlockSpan& block) { return block.block == cycle; });
    // Old drawings have no block for a space, only its entities.
    const Section* entities = m_tree.Find("ENTITIES");
    const std::uint32_t line = span != m_blocks.end() ? span->line : entities != nullptr ? entities->line : 1;
    throw DrawingError{line, L"The block \"" + cycle->name + L"\" contains itself."};
}

void BlockReader::FindBlocks() {
    BlockNamed(ACDB_MODEL_SPACE);
    BlockNamed(ACDB_PAPER_SPACE);
    const Section* section = m_tree.Find("BLOCKS");
    if (section == nullptr) return;
    const std::span<const Record> records(section->records);
    for (std::size_t i = 0; i < records.size();) {
        if (records[i].type != kBegin)
            throw DrawingError{records[i].line, L"A block (BLOCK) is expected here."};
        i = AddBlock(records, i);
    }
}

// Notes the block that begins with the record `first`, and returns the index of the record behind its end.
std::size_t BlockReader::AddBlock(std::span<const Record> records, std::size_t first) {
    std::size_t end = first + 1;
    while (end < records.size() && records[end].type != kEnd && records[end].type != kBegin)
        ++end;
    if (end == records.size() || records[end].type != kEnd) {
        throw DrawingError{records[first].line, L"A block has no end (ENDBLK)."};
    }
    RecordBody begin(records[first]);
    const Group* nameGroup = begin.FindName(kBlockBeginMarker);
    const std::wstring name =
        nameGroup != nullptr ? CurrentBlockName(m_context.Text(*nameGroup)) : std::wstring();
    if (name.empty()) throw DrawingError{records[first].line, L"A block has no name."};
    BlockRecordData& block = BlockNamed(name);
    if (block.begin != nullptr) {
        throw DrawingError{nameGroup->line, L"The block \"" + name + L"\" is defined twice."};
    }
    FillEdge(begin, m_context, m_context.builder.BlockEdge(block, L"BLOCK", begin.Handle()),
             [&](FieldReader& fields) { BlockBeginFields(fields, block); });
    RecordBody endBody(records[end]);
    FillEdge(endBody, m_context, m_context.builder.BlockEdge(block, L"ENDBLK", endBody.Handle()),
             [](FieldReader& fields) { fields.Subclass("AcDbBlockEnd"); });
    m_blocks.push_back({&block, records.subspan(first + 1, end - first - 1), records[first].line});
    return end + 1;
}

BlockRecordData& BlockReader::BlockNamed(const std::wstring& name) {
    database::Builder& builder = m_context.builder;
    if (auto* block = database::DataAs<BlockRecordData>(builder.FindBlock(name))) return *block;
    return builder.Record<BlockRecordData>(builder.Table<database::BlockTableData>(0), name, 0);
}

// Where an entity of the ENTITIES section belongs: the layout that owns it, else the space that group 67
// tells.
BlockRecordData& BlockReader::SpaceOf(const RecordBody& body) {
    const auto& byHandle = m_context.builder.Data().byHandle;
    if (const auto owner = byHandle.find(body.Owner()); owner != byHandle.end()) {
        auto* block = database::DataAs<BlockRecordData>(owner->second);
        if (block != nullptr && IsLayout(*block)) return *block;
    }
    const Group* space = body.Find(67);
    const bool isPaper = space != nullptr && Int16Of(*space) == 1;
    return BlockNamed(isPaper ? ACDB_PAPER_SPACE : ACDB_MODEL_SPACE);
}

std::wstring CurrentBlockName(const std::wstring& name) {
    const std::wstring upper = database::UpperCase(name);
    if (upper == L"$MODEL_SPACE") return ACDB_MODEL_SPACE;
    if (upper == L"$PAPER_SPACE") return ACDB_PAPER_SPACE;
    return name;
}

}  // namespace workbench::drawing_file
