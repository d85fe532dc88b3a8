#include "drawing_file/field_reader.h"

#include <algorithm>

#include "drawing_file/angles.h"

namespace workbench::drawing_file {
namespace {

constexpr int kHighestColor = 256;

bool IsName(std::wstring_view name, std::string_view upperCase) {
    const std::wstring upper = database::UpperCase(name);
    return std::equal(upper.begin(), upper.end(), upperCase.begin(), upperCase.end());
}

}  // namespace

void FieldReader::Subclass(std::string_view marker) {
    m_body.EnterSubclass(marker);
    m_lastSubclass = marker;
}

void FieldReader::Real(int code, double& value, std::optional<double>) {
    if (const Group* group = m_body.Take(code)) value = RealOf(*group);
}

void FieldReader::Angle(int code, double& radians, std::optional<double>) {
    if (const Group* group = m_body.Take(code)) radians = RadiansOf(RealOf(*group));
}

void FieldReader::Short(int code, std::int16_t& value, std::optional<std::int16_t>) {
    if (const Group* group = m_body.Take(code)) value = Int16Of(*group);
}

void FieldReader::Flag(int code, bool& value, std::optional<bool>) {
    if (const Group* group = m_body.Take(code)) value = Int16Of(*group) != 0;
}

void FieldReader::Text(int code, std::wstring& text, bool) {
    if (const Group* group = m_body.Take(code)) text = m_context.Text(*group);
}

void FieldReader::Point(int code, AcGePoint3d& point, bool) {
    Real(code, point.x);
    Real(code + 10, point.y);
    Real(code + 20, point.z);
}

void FieldReader::Vector(int code, AcGeVector3d& vector, const std::optional<AcGeVector3d>&) {
    Real(code, vector.x);
    Real(code + 10, vector.y);
    Real(code + 20, vector.z);
}

void FieldReader::Scale(AcGeScale3d& scale) {
    Real(41, scale.sx);
    Real(42, scale.sy);
    Real(43, scale.sz);
}

void FieldReader::Layer(AcDbStub*& layer) {
    if (const Group* group = m_body.Take(8)) layer = m_context.builder.Layer(m_context.Text(*group));
}

void FieldReader::Linetype(AcDbStub*& linetype, std::string_view omitted) {
    const Group* group = m_body.Take(6);
    if (group == nullptr) return;
    const std::wstring name = m_context.Text(*group);
    linetype = IsName(name, omitted) ? nullptr : m_context.builder.Linetype(name);
}

void FieldReader::TextStyle(AcDbStub*& style) {
    const Group* group = m_body.Take(7);
    if (group == nullptr) return;
    const std::wstring name = m_context.Text(*group);
    style = IsName(name, "STANDARD") ? nullptr : m_context.builder.TextStyle(name);
}

void FieldReader::Block(AcDbStub*& block) {
    const Group* group = m_body.Take(2);
    if (group == nullptr) throw DrawingError{m_body.Line(), L"A block reference names no block."};
    const std::wstring name = m_context.Text(*group);
    block = m_context.builder.FindBlock(name);
    if (block == nullptr) throw DrawingError{group->line, L"The drawing has no block \"" + name + L"\"."};
}

void FieldReader::Reference(int code, AcDbStub*& object) {
    if (const Group* group = m_body.Take(code)) object = m_context.builder.Reference(HandleOf(*group));
}

void FieldReader::Derived(int code, std::int64_t) {
    m_body.Take(code);
}

void FieldReader::Kind(int code, std::int16_t& flags) {
    // Other markers stand ahead of the one that is looked for.
    m_body.LeaveSubclass();
    if (const Group* group = m_body.Find(code)) flags = Int16Of(*group);
}

void FieldReader::RecordName(database::RecordData& record) {
    m_body.Take(2);
    Short(70, record.flags);
}

void FieldReader::Elevation(double& elevation) {
    AcGePoint3d point{0, 0, elevation};
    Point(10, point);
    elevation = point.z;
}

void FieldReader::Color(std::int16_t& color) {
    const Group* group = m_body.Take(62);
    if (group == nullptr) return;
    color = Int16Of(*group);
    if (color < 0 || color > kHighestColor) throw DrawingError{group->line, L"A colour is from 0 to 256."};
}

void FieldReader::PaperSpace(const database::EntityData&) {
    m_body.Take(67);
    m_body.Take(410);
}

void FieldReader::Corners(AcGePoint3d (&corners)[4]) {
    for (int i = 0; i < 4; ++i) {
        // A triangle may leave its fourth corner out.
        if (i == 3) corners[3] = corners[2];
        Point(10 + i, corners[i]);
    }
}

void FieldReader::Vertices(std::vector<database::PolylineVertex>& vertices) {
    // What stands ahead of the first vertex belongs to none.
    database::PolylineVertex nobody;
    for (BodyGroup& candidate : m_body.Groups()) {
        if (!m_body.IsOpen(candidate)) continue;
        const Group& group = candidate.group;
        if (group.code == 10) vertices.emplace_back();
        database::PolylineVertex& vertex = vertices.empty() ? nobody : vertices.back();
        candidate.isTaken = true;
        switch (group.code) {
            case 10:
                vertex.point.x = RealOf(group);
                break;
            case 20:
                vertex.point.y = RealOf(group);
                break;
            case 40:
                vertex.startWidth = RealOf(group);
                break;
            case 41:
                vertex.endWidth = RealOf(group);
                break;
            case 42:
                vertex.bulge = RealOf(group);
                break;
            case 91:  // a number that nothing refers to, and that means nothing away from its vertex
                break;
            default:
                candidate.isTaken = false;
        }
    }
}

void FieldReader::Paragraphs(std::wstring& text) {
    std::wstring last;
    for (BodyGroup& candidate : m_body.Groups()) {
        if (!m_body.IsOpen(candidate)) continue;
        if (candidate.group.code == 3) text += m_context.Text(candidate.group);
        if (candidate.group.code == 1) last = m_context.Text(candidate.group);
        candidate.isTaken = candidate.group.code == 3 || candidate.group.code == 1;
    }
    text += last;
}

void FieldReader::Dashes(database::LinetypeData& linetype) {
    const auto hasShape = [this](const BodyGroup& candidate) {
        return m_body.IsOpen(candidate) && candidate.group.code == 74 && Int16Of(candidate.group) != 0;
    };
    auto& groups = m_body.Groups();
    if (const Group* length = m_body.Find(40)) linetype.patternLength = RealOf(*length);
    if (std::any_of(groups.begin(), groups.end(), hasShape)) return;
    m_body.Take(40);
    for (BodyGroup& candidate : groups) {
        if (!m_body.IsOpen(candidate)) continue;
        const int code = candidate.group.code;
        if (code == 49) linetype.dashes.push_back(RealOf(candidate.group));
        candidate.isTaken = code == 49 || code == 73 || code == 74;
    }
}

void FieldReader::Entries(database::DictionaryData& dictionary) {
    const Group* name = nullptr;
    for (BodyGroup& candidate : m_body.Groups()) {
        if (!m_body.IsOpen(candidate)) continue;
        const Group& group = candidate.group;
        if (group.code == 3) {
            name = &group;
        } else if (group.code == 350 || group.code == 360) {
            if (name == nullptr) throw DrawingError{group.line, L"An entry of a dictionary has no name."};
            AcDbStub* object = m_context.builder.Reference(HandleOf(group));
            if (object != nullptr) m_context.builder.AddEntry(dictionary, m_context.Text(*name), object);
            name = nullptr;
        }
        candidate.isTaken = group.code == 3 || group.code == 350 || group.code == 360;
    }
}

// A record without a marker has its data where others have what comes ahead of it.
std::vector<Group> FieldReader::TakeItemGroups() {
    const bool hasMarker = m_body.Markers().size() > 1;
    std::vector<Group> groups;
    for (BodyGroup& candidate : m_body.Groups()) {
        const bool isAhead = candidate.chunk == 0 && (hasMarker || candidate.isSealed);
        if (candidate.isTaken || isAhead) continue;
        groups.push_back(candidate.group);
        candidate.isTaken = true;
    }
    // Below the marker, the lists of applications that are left would be data too.
    m_lastSubclass = {};
    return groups;
}

void FieldReader::Items(database::XrecordData& xrecord) {
    const std::vector<Group> groups = TakeItemGroups();
    std::span<const Group> rest(groups);
    if (!rest.empty() && rest[0].code == 280) {
        xrecord.cloning = Int16Of(rest[0]);
        rest = rest.subspan(1);
    }
    while (!rest.empty()) {
        database::DataItem item;
        if (!TakeItem(rest, m_context, item)) {
            throw DrawingError{rest[0].line, L"Group code " + std::to_wstring(rest[0].code) +
                                                 L" cannot stand in an extension record."};
        }
        xrecord.items.push_back(std::move(item));
    }
}

}  // namespace workbench::drawing_file
