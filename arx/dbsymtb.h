// Symbol tables: the named things of a drawing. Names compare without regard to case.
#pragma once

#include "dbmain.h"

class ARX_PORT AcDbSymbolTableRecord : public AcDbObject {
  public:
    static AcRxClass* desc();
    static AcDbSymbolTableRecord* cast(const AcRxObject* object);
    AcRxClass* isA() const override;

    // The name as written; valid while the record is open.
    Acad::ErrorStatus getName(const ACHAR*& name) const;
    // A copy that the caller frees.
    Acad::ErrorStatus getName(ACHAR*& name) const;
    // eDuplicateKey if the record's table has the name already, eInvalidInput for what is no symbol name.
    Acad::ErrorStatus setName(const ACHAR* name);

  protected:
    explicit AcDbSymbolTableRecord(AcDbImpObject* data);
};

// Walks the records of a table in the order in which they were added.
class ARX_PORT AcDbSymbolTableIterator {
  public:
    ~AcDbSymbolTableIterator();
    AcDbSymbolTableIterator(const AcDbSymbolTableIterator&) = delete;
    AcDbSymbolTableIterator& operator=(const AcDbSymbolTableIterator&) = delete;

    void start(bool atBeginning = true, bool skipDeleted = true);
    bool done() const;
    void step(bool forward = true, bool skipDeleted = true);
    Acad::ErrorStatus getRecordId(AcDbObjectId& id) const;
    Acad::ErrorStatus getRecord(AcDbSymbolTableRecord*& record, AcDb::OpenMode mode = AcDb::kForRead,
                                bool openErased = false) const;

  private:
    friend class AcDbSymbolTable;
    struct Data;
    explicit AcDbSymbolTableIterator(Data* data);
    Data* m_data;
};

class ARX_PORT AcDbSymbolTable : public AcDbObject {
  public:
    static AcRxClass* desc();
    static AcDbSymbolTable* cast(const AcRxObject* object);
    AcRxClass* isA() const override;

    // eKeyNotFound if there is no such record, or only an erased one while `getErased` is false (then
    // eWasErased).
    Acad::ErrorStatus getAt(const ACHAR* name, AcDbObjectId& id, bool getErased = false) const;
    bool has(const ACHAR* name) const;
    bool has(AcDbObjectId id) const;
    // The new record stays open for write. eDuplicateKey, eInvalidInput (name), eWrongObjectType.
    Acad::ErrorStatus add(AcDbObjectId& id, AcDbSymbolTableRecord* record);
    Acad::ErrorStatus add(AcDbSymbolTableRecord* record);
    // The caller deletes it.
    Acad::ErrorStatus newIterator(AcDbSymbolTableIterator*& iterator, bool atBeginning = true,
                                  bool skipDeleted = true) const;

  protected:
    explicit AcDbSymbolTable(AcDbImpObject* data);
    Acad::ErrorStatus openRecord(const ACHAR* name, AcDbSymbolTableRecord*& record, AcDb::OpenMode mode,
                                 bool openErased) const;
};

// A table and its record: the same members for each kind.
#define ACDB_DECLARE_SYMBOL_TABLE(TABLE, RECORD)                                         \
    class ARX_PORT TABLE : public AcDbSymbolTable {                                      \
      public:                                                                            \
        static AcRxClass* desc();                                                        \
        static TABLE* cast(const AcRxObject* object);                                    \
        AcRxClass* isA() const override;                                                 \
        TABLE();                                                                         \
        using AcDbSymbolTable::getAt;                                                    \
        Acad::ErrorStatus getAt(const ACHAR* name, RECORD*& record, AcDb::OpenMode mode, \
                                bool openErased = false) const;                          \
    }

class ARX_PORT AcDbLayerTableRecord : public AcDbSymbolTableRecord {
  public:
    static AcRxClass* desc();
    static AcDbLayerTableRecord* cast(const AcRxObject* object);
    AcRxClass* isA() const override;
    AcDbLayerTableRecord();

    Adesk::Int16 colorIndex() const;
    Acad::ErrorStatus setColorIndex(Adesk::Int16 color);
    AcDbObjectId linetypeObjectId() const;
    Acad::ErrorStatus setLinetypeObjectId(AcDbObjectId id);
    bool isOff() const;
    Acad::ErrorStatus setIsOff(bool off);
    bool isFrozen() const;
    Acad::ErrorStatus setIsFrozen(bool frozen);
    bool isLocked() const;
    Acad::ErrorStatus setIsLocked(bool locked);
    bool isPlottable() const;
    Acad::ErrorStatus setIsPlottable(bool plottable);
};

class ARX_PORT AcDbLinetypeTableRecord : public AcDbSymbolTableRecord {
  public:
    static AcRxClass* desc();
    static AcDbLinetypeTableRecord* cast(const AcRxObject* object);
    AcRxClass* isA() const override;
    AcDbLinetypeTableRecord();

    ACHAR* comments() const;
    Acad::ErrorStatus setComments(const ACHAR* text);
    double patternLength() const;
    int numDashes() const;
    Acad::ErrorStatus setNumDashes(int count);
    // Above 0 a dash, below 0 a gap, 0 a dot, in drawing units.
    double dashLengthAt(int index) const;
    Acad::ErrorStatus setDashLengthAt(int index, double length);
};

class ARX_PORT AcDbTextStyleTableRecord : public AcDbSymbolTableRecord {
  public:
    static AcRxClass* desc();
    static AcDbTextStyleTableRecord* cast(const AcRxObject* object);
    AcRxClass* isA() const override;
    AcDbTextStyleTableRecord();

    double textSize() const;
    Acad::ErrorStatus setTextSize(double size);
    double xScale() const;
    Acad::ErrorStatus setXScale(double scale);
    double obliquingAngle() const;
    Acad::ErrorStatus setObliquingAngle(double radians);
    Acad::ErrorStatus fileName(const ACHAR*& name) const;
    Acad::ErrorStatus setFileName(const ACHAR* name);
};

class ARX_PORT AcDbRegAppTableRecord : public AcDbSymbolTableRecord {
  public:
    static AcRxClass* desc();
    static AcDbRegAppTableRecord* cast(const AcRxObject* object);
    AcRxClass* isA() const override;
    AcDbRegAppTableRecord();
};

class ARX_PORT AcDbDimStyleTableRecord : public AcDbSymbolTableRecord {
  public:
    static AcRxClass* desc();
    static AcDbDimStyleTableRecord* cast(const AcRxObject* object);
    AcRxClass* isA() const override;
    AcDbDimStyleTableRecord();
};

class ARX_PORT AcDbViewTableRecord : public AcDbSymbolTableRecord {
  public:
    static AcRxClass* desc();
    static AcDbViewTableRecord* cast(const AcRxObject* object);
    AcRxClass* isA() const override;
    AcDbViewTableRecord();
};

// The active viewport keeps the snap style and the isoplane of the drawing.
class ARX_PORT AcDbViewportTableRecord : public AcDbSymbolTableRecord {
  public:
    static AcRxClass* desc();
    static AcDbViewportTableRecord* cast(const AcRxObject* object);
    AcRxClass* isA() const override;
    AcDbViewportTableRecord();

    bool isometricSnapEnabled() const;
    Acad::ErrorStatus setIsometricSnapEnabled(bool enabled);
    // 0 left, 1 top, 2 right.
    Adesk::Int16 snapPair() const;
    Acad::ErrorStatus setSnapPair(Adesk::Int16 pair);
};

class ARX_PORT AcDbUCSTableRecord : public AcDbSymbolTableRecord {
  public:
    static AcRxClass* desc();
    static AcDbUCSTableRecord* cast(const AcRxObject* object);
    AcRxClass* isA() const override;
    AcDbUCSTableRecord();
};

// Walks the entities of a block in drawing order. It may outlive the opening of the record, not the record
// itself.
class ARX_PORT AcDbBlockTableRecordIterator {
  public:
    ~AcDbBlockTableRecordIterator();
    AcDbBlockTableRecordIterator(const AcDbBlockTableRecordIterator&) = delete;
    AcDbBlockTableRecordIterator& operator=(const AcDbBlockTableRecordIterator&) = delete;

    void start(bool atBeginning = true, bool skipDeleted = true);
    bool done() const;
    void step(bool forward = true, bool skipDeleted = true);
    // eInvalidIndex behind the end.
    Acad::ErrorStatus getEntityId(AcDbObjectId& id) const;
    Acad::ErrorStatus getEntity(AcDbEntity*& entity, AcDb::OpenMode mode = AcDb::kForRead,
                                bool openErased = false) const;

  private:
    friend class AcDbBlockTableRecord;
    struct Data;
    explicit AcDbBlockTableRecordIterator(Data* data);
    Data* m_data;
};

class ARX_PORT AcDbBlockTableRecord : public AcDbSymbolTableRecord {
  public:
    static AcRxClass* desc();
    static AcDbBlockTableRecord* cast(const AcRxObject* object);
    AcRxClass* isA() const override;
    AcDbBlockTableRecord();

    // The entity gets an id and stays open for write. eAlreadyInDb, eWrongDatabase, eNotOpenForWrite.
    Acad::ErrorStatus appendAcDbEntity(AcDbObjectId& id, AcDbEntity* entity);
    Acad::ErrorStatus appendAcDbEntity(AcDbEntity* entity);
    // The caller deletes it.
    Acad::ErrorStatus newIterator(AcDbBlockTableRecordIterator*& iterator, bool atBeginning = true,
                                  bool skipDeleted = true) const;

    AcGePoint3d origin() const;
    Acad::ErrorStatus setOrigin(const AcGePoint3d& point);
    bool hasAttributeDefinitions() const;
    bool isAnonymous() const;
    bool isLayout() const;
    AcDbObjectId getLayoutId() const;
    bool isFromExternalReference() const;
};

ACDB_DECLARE_SYMBOL_TABLE(AcDbBlockTable, AcDbBlockTableRecord);
ACDB_DECLARE_SYMBOL_TABLE(AcDbLayerTable, AcDbLayerTableRecord);
ACDB_DECLARE_SYMBOL_TABLE(AcDbLinetypeTable, AcDbLinetypeTableRecord);
ACDB_DECLARE_SYMBOL_TABLE(AcDbTextStyleTable, AcDbTextStyleTableRecord);
ACDB_DECLARE_SYMBOL_TABLE(AcDbRegAppTable, AcDbRegAppTableRecord);
ACDB_DECLARE_SYMBOL_TABLE(AcDbDimStyleTable, AcDbDimStyleTableRecord);
ACDB_DECLARE_SYMBOL_TABLE(AcDbViewTable, AcDbViewTableRecord);
ACDB_DECLARE_SYMBOL_TABLE(AcDbViewportTable, AcDbViewportTableRecord);
ACDB_DECLARE_SYMBOL_TABLE(AcDbUCSTable, AcDbUCSTableRecord);
