// Writes the members of an object as a record: the counterpart of FieldReader, with the same functions.
//
// What the object keeps in `extra` goes behind the members of the subclass that it was read from.
#pragma once

#include <algorithm>
#include <optional>
#include <vector>

#include "drawing_file/group_writer.h"

namespace workbench::drawing_file {

// True for an object that a file keeps. What an erased object owned is erased with it.
inline bool IsKept(const AcDbStub* stub) {
    return stub != nullptr && stub->object != nullptr && !stub->erased;
}

inline bool HasAttributes(const database::BlockReferenceData& reference) {
    return std::any_of(reference.attributes.begin(), reference.attributes.end(), IsKept);
}

// The name of a table's record; `fallback` for null and for one that is erased.
std::wstring NameOf(const AcDbStub* record, std::wstring_view fallback);

class FieldWriter {
  public:
    FieldWriter(GroupWriter& groups, const database::RawGroups& extra);

    // Writes what `extra` has ahead of any subclass marker.
    void BeginBody();
    void Subclass(std::string_view marker);
    // Writes what is left of `extra`.
    void EndBody();

    void Real(int code, double value, std::optional<double> omitted = {});
    void Angle(int code, double radians, std::optional<double> omitted = {});
    void Short(int code, std::int16_t value, std::optional<std::int16_t> omitted = {});
    void Flag(int code, bool value, std::optional<bool> omitted = {});
    void Text(int code, const std::wstring& text, bool omitEmpty = false);
    void Point(int code, const AcGePoint3d& point, bool omitZero = false);
    void Vector(int code, const AcGeVector3d& vector, const std::optional<AcGeVector3d>& omitted = {});
    void Scale(const AcGeScale3d& scale);

    void Layer(const AcDbStub* layer);
    void Linetype(const AcDbStub* linetype, std::string_view omitted);
    void LayerLinetype(const AcDbStub* linetype) { m_groups.Text(6, NameOf(linetype, L"Continuous")); }
    void TextStyle(const AcDbStub* style);
    void Block(const AcDbStub* block);
    void Reference(int code, const AcDbStub* object);
    void Derived(int code, std::int64_t value) { m_groups.Integer(code, value); }

    void AttributesFollow(const database::BlockReferenceData& reference);
    void Kind(int, std::int16_t) {}
    void KindInPlace(int code, std::int16_t flags) { Short(code, flags, std::int16_t{0}); }
    void RecordName(const database::RecordData& record);
    void RepeatedName(int code, const database::RecordData& record) { m_groups.Text(code, record.name); }

    void Color(std::int16_t color) { Short(62, color, std::int16_t{256}); }
    void PaperSpace(const database::EntityData& entity);
    void Elevation(double elevation) { m_groups.Point(10, 0, 0, elevation); }
    void Corners(const AcGePoint3d (&corners)[4]);
    void Vertices(const std::vector<database::PolylineVertex>& vertices);
    void Paragraphs(const std::wstring& text);
    void Dashes(const database::LinetypeData& linetype);
    void Entries(const database::DictionaryData& dictionary);
    void Items(const database::XrecordData& xrecord);

  private:
    // Groups of `extra` under one marker, without it.
    struct Chunk {
        std::wstring marker;
        std::size_t first;
        std::size_t last;
        bool isWritten = false;
    };
    void WriteChunk(Chunk& chunk);
    void FinishSubclass();

    GroupWriter& m_groups;
    const database::RawGroups& m_extra;
    std::vector<Chunk> m_chunks;
    std::wstring m_marker;
};

}  // namespace workbench::drawing_file
