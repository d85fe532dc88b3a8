#include "drawing_file/drawing_reader.h"

#include <algorithm>
#include <new>
#include <vector>

#include "drawing_file/block_reader.h"
#include "drawing_file/group_codes.h"
#include "drawing_file/header_values.h"
#include "drawing_file/objects_section.h"
#include "drawing_file/table_reader.h"

namespace workbench::drawing_file {
namespace {

// Room above every handle, so that new objects never run out of numbers.
constexpr std::uint64_t kHighestHandle = std::uint64_t{1} << 62;

constexpr std::string_view kKnownSections[] = {"HEADER", "TABLES", "BLOCKS", "ENTITIES", "OBJECTS"};
constexpr std::string_view kDerivedVariables[] = {kCodePageVariable, kCurrentLayerVariable,
                                                  kHandleSeedVariable};

// Handles that are made while reading must not take the place of one that a later record brings.
std::uint64_t HandleAbove(const Section& section) {
    std::uint64_t highest = 0;
    for (const Record& record : section.records) {
        const bool isDimensionStyle = record.type == "DIMSTYLE";
        const Group* group = FindGroup(record.groups, isDimensionStyle ? kCodeDimstyleHandle : kCodeHandle);
        if (group == nullptr) continue;
        highest = std::max(highest, HandleOf(*group));
        if (highest >= kHighestHandle)
            throw DrawingError{group->line, L"A handle leaves no room for others."};
    }
    return highest + 1;
}

void ReserveHandles(const FileTree& tree, AcDbImpDatabase& data) {
    if (const Group* seed = FindHeaderValue(tree, kHandleSeedVariable)) {
        const std::uint64_t handle = HandleOf(*seed);
        if (handle >= kHighestHandle)
            throw DrawingError{seed->line, L"The handle seed leaves no room for others."};
        data.nextHandle = std::max(data.nextHandle, handle);
    }
    for (const Section& section : tree.Sections())
        data.nextHandle = std::max(data.nextHandle, HandleAbove(section));
}

// The text of a later release may mean what nobody here knows.
void CheckRelease(const Group& version) {
    const bool isKnown = version.value.starts_with("AC10") && version.value <= kRelease2000;
    if (!isKnown && std::find(std::begin(kLaterReleases), std::end(kLaterReleases), version.value) ==
                        std::end(kLaterReleases)) {
        throw DrawingError{version.line,
                           L"The drawing is of a release that cannot be read: 12 to 2018 are known."};
    }
}

bool IsKeptVariable(const Group& name, const Group& value) {
    if (name.value == kVersionVariable) return value.value > kRelease2000;
    return std::find(std::begin(kDerivedVariables), std::end(kDerivedVariables), name.value) ==
           std::end(kDerivedVariables);
}

void ReadHeader(const FileTree& tree, ReadContext& context, AcDbImpDatabase& data) {
    const Section* header = tree.Find("HEADER");
    if (header == nullptr) return;
    const auto groups = header->leading;
    for (std::size_t i = 0; i < groups.size();) {
        if (groups[i].code != kCodeVariable) {
            throw DrawingError{groups[i].line, L"The name of a header variable is expected here."};
        }
        std::size_t end = i + 1;
        while (end < groups.size() && groups[end].code != kCodeVariable)
            ++end;
        if (end > i + 1 && groups[i].value == kVersionVariable) CheckRelease(groups[i + 1]);
        if (end > i + 1 && IsKeptVariable(groups[i], groups[i + 1])) {
            database::HeaderVariable& variable = data.header.emplace_back();
            const std::string_view name = WordOf(groups[i]);
            variable.name.assign(name.begin(), name.end());
            for (std::size_t k = i + 1; k < end; ++k)
                variable.groups.push_back(RawOf(groups[k], context));
        }
        i = end;
    }
    if (const Group* layer = FindHeaderValue(tree, kCurrentLayerVariable)) {
        data.currentLayer = context.builder.Layer(context.Text(*layer));
    }
}

void KeepOtherSections(const FileTree& tree, const ReadContext& context, AcDbImpDatabase& data) {
    for (const Section& section : tree.Sections()) {
        if (std::find(std::begin(kKnownSections), std::end(kKnownSections), section.name) !=
            std::end(kKnownSections)) {
            continue;
        }
        database::RawSection& kept = data.otherSections.emplace_back();
        kept.name = context.Text(section.name, section.line);
        for (const Group& group : section.leading)
            kept.groups.push_back(RawOf(group, context));
        for (const Record& record : section.records) {
            kept.groups.push_back(RawOf({record.type, kCodeType, record.line}, context));
            for (const Group& group : record.groups)
                kept.groups.push_back(RawOf(group, context));
        }
    }
}

void Read(std::string_view bytes, database::Builder& builder) {
    const FileTree tree(bytes);
    const Group* codePage = FindHeaderValue(tree, kCodePageVariable);
    ReadContext context{builder, TextDecoder(codePage != nullptr ? codePage->value : std::string_view(),
                                             IsUtf8Release(ReleaseOf(tree)))};
    AcDbImpDatabase& data = builder.Data();
    ReserveHandles(tree, data);
    ReadTables(tree, context);
    ReadHeader(tree, context, data);
    BlockReader(tree, context).Read();
    ReadObjects(tree, context);
    KeepOtherSections(tree, context, data);
    builder.Finish();
}

}  // namespace

bool ReadDrawing(std::string_view bytes, AcDbDatabase& database, std::wstring& error) {
    error.clear();
    database::Builder builder(database);
    try {
        Read(bytes, builder);
        return true;
    } catch (const DrawingError& failure) {
        error = DescribeError(failure);
    } catch (const std::bad_alloc&) {
        error = L"There is not enough memory for the drawing.";
    }
    database::Builder emptied(database);
    return false;
}

}  // namespace workbench::drawing_file
