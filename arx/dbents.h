// Entities. Lengths in drawing units, angles in radians counter-clockwise.
#pragma once

#include "dbmain.h"

// The members that every class of the run-time tree has.
#define ACDB_DECLARE_ENTITY(CLASS)                \
  public:                                         \
    static AcRxClass* desc();                     \
    static CLASS* cast(const AcRxObject* object); \
    AcRxClass* isA() const override;              \
    CLASS()

class ARX_PORT AcDbCurve : public AcDbEntity {
  public:
    static AcRxClass* desc();
    static AcDbCurve* cast(const AcRxObject* object);
    AcRxClass* isA() const override;

  protected:
    explicit AcDbCurve(AcDbImpObject* data);
};

class ARX_PORT AcDbLine : public AcDbCurve {
    ACDB_DECLARE_ENTITY(AcDbLine);
    AcDbLine(const AcGePoint3d& start, const AcGePoint3d& end);

    AcGePoint3d startPoint() const;
    Acad::ErrorStatus setStartPoint(const AcGePoint3d& point);
    AcGePoint3d endPoint() const;
    Acad::ErrorStatus setEndPoint(const AcGePoint3d& point);
};

class ARX_PORT AcDbPoint : public AcDbEntity {
    ACDB_DECLARE_ENTITY(AcDbPoint);

    AcGePoint3d position() const;
    Acad::ErrorStatus setPosition(const AcGePoint3d& point);
};

class ARX_PORT AcDbCircle : public AcDbCurve {
    ACDB_DECLARE_ENTITY(AcDbCircle);
    AcDbCircle(const AcGePoint3d& center, const AcGeVector3d& normal, double radius);

    AcGePoint3d center() const;
    Acad::ErrorStatus setCenter(const AcGePoint3d& point);
    double radius() const;
    Acad::ErrorStatus setRadius(double radius);
    AcGeVector3d normal() const;
};

class ARX_PORT AcDbArc : public AcDbCurve {
    ACDB_DECLARE_ENTITY(AcDbArc);
    AcDbArc(const AcGePoint3d& center, double radius, double startAngle, double endAngle);

    AcGePoint3d center() const;
    Acad::ErrorStatus setCenter(const AcGePoint3d& point);
    double radius() const;
    Acad::ErrorStatus setRadius(double radius);
    double startAngle() const;
    Acad::ErrorStatus setStartAngle(double angle);
    double endAngle() const;
    Acad::ErrorStatus setEndAngle(double angle);
    AcGeVector3d normal() const;
};

class ARX_PORT AcDbEllipse : public AcDbCurve {
    ACDB_DECLARE_ENTITY(AcDbEllipse);

    AcGePoint3d center() const;
    AcGeVector3d majorAxis() const;
    AcGeVector3d normal() const;
    double radiusRatio() const;
    // Parameters of the ends; 0 and 2 pi for a whole ellipse.
    double startParam() const;
    double endParam() const;
    Acad::ErrorStatus set(const AcGePoint3d& center, const AcGeVector3d& normal,
                          const AcGeVector3d& majorAxis, double radiusRatio, double startParam = 0.0,
                          double endParam = 6.28318530717958647692);
};

class ARX_PORT AcDbSolid : public AcDbEntity {
    ACDB_DECLARE_ENTITY(AcDbSolid);

    // Corners 0 to 3; the outline runs 0, 1, 3, 2.
    Acad::ErrorStatus getPointAt(Adesk::UInt16 index, AcGePoint3d& point) const;
    Acad::ErrorStatus setPointAt(Adesk::UInt16 index, const AcGePoint3d& point);
};

class ARX_PORT AcDbText : public AcDbEntity {
    ACDB_DECLARE_ENTITY(AcDbText);

    AcGePoint3d position() const;
    Acad::ErrorStatus setPosition(const AcGePoint3d& point);
    AcGePoint3d alignmentPoint() const;
    Acad::ErrorStatus setAlignmentPoint(const AcGePoint3d& point);
    double rotation() const;
    Acad::ErrorStatus setRotation(double angle);
    double height() const;
    Acad::ErrorStatus setHeight(double height);
    double widthFactor() const;
    Acad::ErrorStatus setWidthFactor(double factor);
    double oblique() const;
    AcDb::TextHorzMode horizontalMode() const;
    Acad::ErrorStatus setHorizontalMode(AcDb::TextHorzMode mode);
    AcDb::TextVertMode verticalMode() const;
    Acad::ErrorStatus setVerticalMode(AcDb::TextVertMode mode);
    AcDbObjectId textStyle() const;
    Acad::ErrorStatus setTextStyle(AcDbObjectId id);
    AcGeVector3d normal() const;

    // A copy that the caller frees.
    ACHAR* textString() const;
    // Valid while the entity is open.
    const ACHAR* textStringConst() const;
    Acad::ErrorStatus setTextString(const ACHAR* text);

  protected:
    explicit AcDbText(AcDbImpObject* data);
};

class ARX_PORT AcDbAttributeDefinition : public AcDbText {
    ACDB_DECLARE_ENTITY(AcDbAttributeDefinition);

    ACHAR* tag() const;
    const ACHAR* tagConst() const;
    Acad::ErrorStatus setTag(const ACHAR* tag);
    ACHAR* prompt() const;
    const ACHAR* promptConst() const;
    Acad::ErrorStatus setPrompt(const ACHAR* prompt);
    bool isInvisible() const;
    Acad::ErrorStatus setInvisible(bool invisible);
    bool isConstant() const;
    Acad::ErrorStatus setConstant(bool constant);
};

class ARX_PORT AcDbAttribute : public AcDbText {
    ACDB_DECLARE_ENTITY(AcDbAttribute);

    ACHAR* tag() const;
    const ACHAR* tagConst() const;
    // Blanks are not allowed in a tag, and letters become capitals.
    Acad::ErrorStatus setTag(const ACHAR* tag);
    bool isInvisible() const;
    Acad::ErrorStatus setInvisible(bool invisible);
    bool isConstant() const;
};

// Walks the sub-entities of an entity. It skips what is erased.
class ARX_PORT AcDbObjectIterator {
  public:
    ~AcDbObjectIterator();
    AcDbObjectIterator(const AcDbObjectIterator&) = delete;
    AcDbObjectIterator& operator=(const AcDbObjectIterator&) = delete;

    void start(bool atBeginning = true);
    bool done() const;
    void step(bool backwards = false);
    AcDbObjectId objectId() const;

  private:
    friend struct AcDbObjectAccess;
    struct Data;
    explicit AcDbObjectIterator(Data* data);
    Data* m_data;
};

class ARX_PORT AcDbBlockReference : public AcDbEntity {
    ACDB_DECLARE_ENTITY(AcDbBlockReference);
    AcDbBlockReference(const AcGePoint3d& position, AcDbObjectId blockTableRecord);

    AcDbObjectId blockTableRecord() const;
    // eNullObjectId, or eNotThatKindOfClass for an id of something else.
    Acad::ErrorStatus setBlockTableRecord(AcDbObjectId id);
    AcGePoint3d position() const;
    Acad::ErrorStatus setPosition(const AcGePoint3d& point);
    AcGeScale3d scaleFactors() const;
    Acad::ErrorStatus setScaleFactors(const AcGeScale3d& scale);
    double rotation() const;
    Acad::ErrorStatus setRotation(double angle);
    AcGeVector3d normal() const;

    // The reference must be in a database and open for write. The attribute gets an id and stays open for
    // write.
    Acad::ErrorStatus appendAttribute(AcDbObjectId& id, AcDbAttribute* attribute);
    Acad::ErrorStatus appendAttribute(AcDbAttribute* attribute);
    Acad::ErrorStatus openAttribute(AcDbAttribute*& attribute, AcDbObjectId id, AcDb::OpenMode mode,
                                    bool openErased = false) const;
    // The caller deletes it.
    AcDbObjectIterator* attributeIterator() const;

  protected:
    explicit AcDbBlockReference(AcDbImpObject* data);
};

// A block reference repeated in rows and columns.
class ARX_PORT AcDbMInsertBlock : public AcDbBlockReference {
    ACDB_DECLARE_ENTITY(AcDbMInsertBlock);

    Adesk::UInt16 columns() const;
    Adesk::UInt16 rows() const;
    double columnSpacing() const;
    double rowSpacing() const;
};

// A polyline of the older kind, with a vertex entity for each vertex. Meshes and three-dimensional polylines
// are kept as this class too, their flags untouched.
class ARX_PORT AcDb2dPolyline : public AcDbCurve {
    ACDB_DECLARE_ENTITY(AcDb2dPolyline);

    bool isClosed() const;
    Acad::ErrorStatus appendVertex(AcDbObjectId& id, class AcDb2dVertex* vertex);
    AcDbObjectIterator* vertexIterator() const;
};

class ARX_PORT AcDb2dVertex : public AcDbEntity {
    ACDB_DECLARE_ENTITY(AcDb2dVertex);

    AcGePoint3d position() const;
    Acad::ErrorStatus setPosition(const AcGePoint3d& point);
    double bulge() const;
    Acad::ErrorStatus setBulge(double bulge);
};
