#include "drawing_file/field_writer.h"

#include <algorithm>

#include "drawing_file/angles.h"
#include "drawing_file/group_codes.h"

namespace workbench::drawing_file {
namespace {

// Each character may take two escapes, and readers of old releases take 2049 bytes to a line.
constexpr std::size_t kPieceLength = 140;

std::wstring Widened(std::string_view ascii) {
    return {ascii.begin(), ascii.end()};
}

bool IsPaperSpace(const AcDbStub* block) {
    const auto* record = database::DataAs<database::BlockRecordData>(block);
    return record != nullptr && database::UpperCase(record->name).starts_with(L"*PAPER_SPACE");
}

}  // namespace

std::wstring NameOf(const AcDbStub* record, std::wstring_view fallback) {
    const auto* data = database::DataAs<database::RecordData>(record);
    return data != nullptr && IsKept(record) ? data->name : std::wstring(fallback);
}

FieldWriter::FieldWriter(GroupWriter& groups, const database::RawGroups& extra)
    : m_groups(groups), m_extra(extra) {
    m_chunks.push_back({{}, 0, extra.size()});
    bool isOwnersData = false;
    for (std::size_t i = 0; i < extra.size(); ++i) {
        if (extra[i].code != kCodeSubclass || isOwnersData) continue;
        m_chunks.back().last = i;
        m_chunks.push_back({extra[i].text, i + 1, extra.size()});
        isOwnersData = extra[i].text == Widened(kMarkerExtensionRecord);
    }
}

void FieldWriter::WriteChunk(Chunk& chunk) {
    for (std::size_t i = chunk.first; i < chunk.last; ++i)
        m_groups.Raw(m_extra[i]);
    chunk.isWritten = true;
}

void FieldWriter::BeginBody() {
    WriteChunk(m_chunks.front());
}

void FieldWriter::FinishSubclass() {
    if (m_marker.empty()) return;
    const auto found = std::find_if(m_chunks.begin(), m_chunks.end(), [&](const Chunk& chunk) {
        return !chunk.isWritten && chunk.marker == m_marker;
    });
    if (found != m_chunks.end()) WriteChunk(*found);
}

void FieldWriter::Subclass(std::string_view marker) {
    FinishSubclass();
    m_marker = Widened(marker);
    m_groups.Name(kCodeSubclass, marker);
}

void FieldWriter::EndBody() {
    FinishSubclass();
    for (Chunk& chunk : m_chunks) {
        if (chunk.isWritten) continue;
        m_groups.Text(kCodeSubclass, chunk.marker);
        WriteChunk(chunk);
    }
}

void FieldWriter::Real(int code, double value, std::optional<double> omitted) {
    if (value != omitted) m_groups.Real(code, value);
}

void FieldWriter::Angle(int code, double radians, std::optional<double> omitted) {
    if (radians != omitted) m_groups.Real(code, DegreesOf(radians));
}

void FieldWriter::Short(int code, std::int16_t value, std::optional<std::int16_t> omitted) {
    if (value != omitted) m_groups.Integer(code, value);
}

void FieldWriter::Flag(int code, bool value, std::optional<bool> omitted) {
    if (value != omitted) m_groups.Integer(code, value ? 1 : 0);
}

void FieldWriter::Text(int code, const std::wstring& text, bool omitEmpty) {
    if (!omitEmpty || !text.empty()) m_groups.Text(code, text);
}

void FieldWriter::Point(int code, const AcGePoint3d& point, bool omitZero) {
    if (!omitZero || point != AcGePoint3d()) m_groups.Point(code, point.x, point.y, point.z);
}

void FieldWriter::Vector(int code, const AcGeVector3d& vector, const std::optional<AcGeVector3d>& omitted) {
    if (vector != omitted) m_groups.Point(code, vector.x, vector.y, vector.z);
}

void FieldWriter::Scale(const AcGeScale3d& scale) {
    Real(41, scale.sx, 1.0);
    Real(42, scale.sy, 1.0);
    Real(43, scale.sz, 1.0);
}

void FieldWriter::Layer(const AcDbStub* layer) {
    m_groups.Text(8, NameOf(layer, L"0"));
}

void FieldWriter::Linetype(const AcDbStub* linetype, std::string_view omitted) {
    const std::wstring name = NameOf(linetype, Widened(omitted));
    if (database::UpperCase(name) != Widened(omitted)) m_groups.Text(6, name);
}

void FieldWriter::TextStyle(const AcDbStub* style) {
    const std::wstring name = NameOf(style, L"");
    if (!name.empty()) m_groups.Text(7, name);
}

void FieldWriter::Block(const AcDbStub* block) {
    m_groups.Text(2, NameOf(block, L""));
}

void FieldWriter::Reference(int code, const AcDbStub* object) {
    if (IsKept(object)) m_groups.Handle(code, object->handle);
}

void FieldWriter::AttributesFollow(const database::BlockReferenceData& reference) {
    if (HasAttributes(reference)) m_groups.Integer(66, 1);
}

void FieldWriter::RecordName(const database::RecordData& record) {
    m_groups.Text(2, record.name);
    m_groups.Integer(70, record.flags);
}

void FieldWriter::PaperSpace(const database::EntityData& entity) {
    if (IsPaperSpace(entity.owner)) m_groups.Integer(67, 1);
}

void FieldWriter::Corners(const AcGePoint3d (&corners)[4]) {
    for (int i = 0; i < 4; ++i)
        Point(10 + i, corners[i]);
}

void FieldWriter::Vertices(const std::vector<database::PolylineVertex>& vertices) {
    for (const database::PolylineVertex& vertex : vertices) {
        m_groups.Real(10, vertex.point.x);
        m_groups.Real(20, vertex.point.y);
        if (vertex.startWidth != 0 || vertex.endWidth != 0) {
            m_groups.Real(40, vertex.startWidth);
            m_groups.Real(41, vertex.endWidth);
        }
        Real(42, vertex.bulge, 0.0);
    }
}

void FieldWriter::Paragraphs(const std::wstring& text) {
    std::wstring_view rest = text;
    while (rest.size() > kPieceLength) {
        // The halves of a character stay together.
        std::size_t length = kPieceLength;
        while (length > 1 && (rest[length] >= 0xDC00 && rest[length] <= 0xDFFF))
            --length;
        m_groups.Text(3, rest.substr(0, length));
        rest.remove_prefix(length);
    }
    m_groups.Text(1, rest);
}

void FieldWriter::Dashes(const database::LinetypeData& linetype) {
    const auto isDashCount = [](const database::RawGroup& group) { return group.code == 73; };
    const auto& extra = linetype.extra;
    if (std::any_of(extra.begin(), extra.end(), isDashCount)) return;  // a complex one, kept as it was read
    m_groups.Integer(73, static_cast<std::int64_t>(linetype.dashes.size()));
    m_groups.Real(40, linetype.patternLength);
    for (const double length : linetype.dashes) {
        m_groups.Real(49, length);
        m_groups.Integer(74, 0);
    }
}

void FieldWriter::Entries(const database::DictionaryData& dictionary) {
    for (const auto& entry : dictionary.entries) {
        if (!IsKept(entry.stub)) continue;
        m_groups.Text(3, entry.name);
        m_groups.Handle(dictionary.hard ? 360 : 350, entry.stub->handle);
    }
}

void FieldWriter::Items(const database::XrecordData& xrecord) {
    m_groups.Integer(280, xrecord.cloning);
    for (const database::DataItem& item : xrecord.items)
        m_groups.Item(item);
}

}  // namespace workbench::drawing_file
