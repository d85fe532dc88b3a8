#include "drawing_file/table_reader.h"

#include <vector>

#include "drawing_file/group_codes.h"
#include "drawing_file/object_reader.h"

namespace workbench::drawing_file {
namespace {

// A table in the file: its head, and its records.
struct TableSpan {
    std::string_view name;
    const Record* head;
    std::vector<const Record*> records;
};

std::vector<TableSpan> FindTables(const FileTree& tree) {
    std::vector<TableSpan> tables;
    const Section* section = tree.Find("TABLES");
    if (section == nullptr) return tables;
    bool isInside = false;
    for (const Record& record : section->records) {
        if (record.type == "TABLE" && !isInside) {
            tables.push_back({NameIn(record.groups, kCodeName), &record, {}});
            isInside = true;
        } else if (record.type == "ENDTAB" && isInside) {
            isInside = false;
        } else if (isInside && record.type != "TABLE") {
            tables.back().records.push_back(&record);
        } else {
            throw DrawingError{record.line, L"A table does not begin or end where it should."};
        }
    }
    if (isInside) throw DrawingError{tables.back().head->line, L"A table has no end (ENDTAB)."};
    return tables;
}

template <class Data>
constexpr bool kMayShareNames = std::is_same_v<Data, database::ViewportData>;
template <class Data>
constexpr bool kMayBeNameless = std::is_same_v<Data, database::TextStyleData>;

template <class Data>
void ReadRecord(const Record& record, ReadContext& context, database::TableData& table) {
    constexpr bool isDimensionStyle = std::is_same_v<Data, database::DimStyleData>;
    RecordBody body(record, isDimensionStyle ? kCodeDimstyleHandle : kCodeHandle);
    const Group* nameGroup = body.FindName(FieldsOf<Data>::kMarker);
    const std::wstring name = nameGroup != nullptr ? context.Text(*nameGroup) : std::wstring();
    if (name.empty() && !kMayBeNameless<Data>)
        throw DrawingError{record.line, L"A record of a table has no name."};
    if (!kMayShareNames<Data> && context.builder.Data().FindRecord(table.stub, name) != nullptr) return;
    FillObject(body, context, context.builder.Record<Data>(table, name, body.Handle()));
}

template <class Table, class Data>
void ReadTable(const std::vector<TableSpan>& tables, ReadContext& context) {
    for (const TableSpan& span : tables) {
        if (span.name != FieldsOf<Data>::kTable) continue;
        RecordBody head(*span.head);
        auto& table = context.builder.Table<Table>(head.Handle());
        FillCommonParts(head, context, table);
        for (const Record* record : span.records)
            ReadRecord<Data>(*record, context, table);
    }
}

}  // namespace

void ReadTables(const FileTree& tree, ReadContext& context) {
    const auto tables = FindTables(tree);
    ReadTable<database::LinetypeTableData, database::LinetypeData>(tables, context);
    ReadTable<database::LayerTableData, database::LayerData>(tables, context);
    ReadTable<database::TextStyleTableData, database::TextStyleData>(tables, context);
    ReadTable<database::RegAppTableData, database::RegAppData>(tables, context);
    ReadTable<database::DimStyleTableData, database::DimStyleData>(tables, context);
    ReadTable<database::ViewTableData, database::ViewData>(tables, context);
    ReadTable<database::UcsTableData, database::UcsData>(tables, context);
    ReadTable<database::ViewportTableData, database::ViewportData>(tables, context);
    ReadTable<database::BlockTableData, database::BlockRecordData>(tables, context);
}

}  // namespace workbench::drawing_file
