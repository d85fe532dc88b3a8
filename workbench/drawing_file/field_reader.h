// Fills the members of an object from a record. The functions of the *_fields.h headers name the members;
// FieldWriter has the same functions, so that one list serves both ways.
//
// A group that the record lacks leaves the member as it is: the default of the format.
#pragma once

#include <array>
#include <optional>
#include <vector>

#include "drawing_file/group_values.h"
#include "drawing_file/record_body.h"

namespace workbench::drawing_file {

class FieldReader {
  public:
    FieldReader(RecordBody& body, ReadContext& context) : m_body(body), m_context(context) {}

    void Subclass(std::string_view marker);
    // The marker entered last, below which belongs what is left of a record without markers. Empty where that
    // stays ahead of all of them.
    std::string_view LastSubclass() const { return m_lastSubclass; }

    // `omitted` is what the member has by default, for the writer.
    void Real(int code, double& value, std::optional<double> omitted = {});
    void Angle(int code, double& radians, std::optional<double> omitted = {});  // degrees in the file
    void Short(int code, std::int16_t& value, std::optional<std::int16_t> omitted = {});
    void Flag(int code, bool& value, std::optional<bool> omitted = {});
    void Text(int code, std::wstring& text, bool omitEmpty = false);
    void Point(int code, AcGePoint3d& point, bool omitZero = false);
    void Vector(int code, AcGeVector3d& vector, const std::optional<AcGeVector3d>& omitted = {});
    void Scale(AcGeScale3d& scale);

    // Names of records, null for the record that the drawing uses where none is named.
    void Layer(AcDbStub*& layer);
    void Linetype(AcDbStub*& linetype, std::string_view omitted);
    void LayerLinetype(AcDbStub*& linetype) { Linetype(linetype, "CONTINUOUS"); }
    void TextStyle(AcDbStub*& style);
    // Throws DrawingError if the drawing has no such block.
    void Block(AcDbStub*& block);
    // A handle; null for 0.
    void Reference(int code, AcDbStub*& object);

    // What follows from other members is read over.
    void Derived(int code, std::int64_t value);
    void AttributesFollow(const database::BlockReferenceData&) { m_body.Take(66); }
    // Flags that tell the subclass: looked at ahead of it, and read over in their own place.
    void Kind(int code, std::int16_t& flags);
    void KindInPlace(int code, std::int16_t) { m_body.Take(code); }
    // The name of a table's record, which the builder has set, and its flags.
    void RecordName(database::RecordData& record);
    // Names that the record repeats.
    void RepeatedName(int code, const database::RecordData&) { m_body.Take(code); }

    void Color(std::int16_t& color);  // of an entity
    void PaperSpace(const database::EntityData& entity);
    void Elevation(double& elevation);  // the third coordinate of a point that means nothing
    void Corners(AcGePoint3d (&corners)[4]);
    void Vertices(std::vector<database::PolylineVertex>& vertices);
    // A long text in pieces of 250 characters with code 3, the rest with code 1.
    void Paragraphs(std::wstring& text);
    // Complex linetypes stay among the groups that nobody takes.
    void Dashes(database::LinetypeData& linetype);
    void Entries(database::DictionaryData& dictionary);
    // The flag for cloning and the data.
    void Items(database::XrecordData& xrecord);

  private:
    std::vector<Group> TakeItemGroups();

    RecordBody& m_body;
    ReadContext& m_context;
    std::string_view m_lastSubclass;
};

}  // namespace workbench::drawing_file
