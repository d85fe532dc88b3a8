// Objects, entities and the drawing database.
//
// An object belongs to its database. It is opened by id, in a mode, and closed; between the two its pointer
// is valid:
//   for read    any number of readers (256), no writer
//   for write   one, no readers
// A member that reads needs the object open, one that changes needs it open for write. Members with a status
// give eNotOpenForRead or eNotOpenForWrite; members without one end the program, as code that does this
// cannot go on. An object that is in no database yet may be read and changed freely, and whoever made it
// deletes it.
#pragma once

#include "acdb.h"
#include "adsdef.h"
#include "dbid.h"
#include "gepnt3d.h"
#include "rxclass.h"

class AcDbBlockTable;
class AcDbDictionary;
class AcDbDimStyleTable;
class AcDbImpDatabase;
class AcDbLayerTable;
class AcDbLinetypeTable;
class AcDbRegAppTable;
class AcDbTextStyleTable;
struct AcDbImpObject;

class ARX_PORT AcDbObject : public AcRxObject {
  public:
    static AcRxClass* desc();
    static AcDbObject* cast(const AcRxObject* object);
    AcRxClass* isA() const override;
    ~AcDbObject() override;
    AcDbObject(const AcDbObject&) = delete;
    AcDbObject& operator=(const AcDbObject&) = delete;

    AcDbObjectId objectId() const;
    AcDbObjectId ownerId() const;
    AcDbDatabase* database() const;
    AcDbHandle getAcDbHandle() const;
    AcDbObjectId extensionDictionary() const;
    // eAlreadyInDb if it has one.
    Acad::ErrorStatus createExtensionDictionary();

    // eNullObjectId for an object that is in no database: it is to be deleted. eNotOpenForRead if it is not
    // open.
    Acad::ErrorStatus close();
    // eWasOpenForWrite if it is open for write, eWasOpenForRead if another reader has it open,
    // eLockViolation.
    Acad::ErrorStatus upgradeOpen();
    Acad::ErrorStatus downgradeOpen();
    // True erases, false brings back. eWasErased if it is erased already, eInvalidInput for bringing back
    // what is not.
    Acad::ErrorStatus erase(bool erasing = true);
    bool isErased() const;
    bool isReadEnabled() const;
    bool isWriteEnabled() const;
    bool isNewObject() const;
    bool isModified() const;

    // The xdata of one application, its name first, or of all with null. The caller frees the list; null if
    // none.
    resbuf* xData(const ACHAR* applicationName = nullptr) const;
    // Replaces the xdata of each application that the list names with 1001; a name with nothing behind it
    // removes that application's. eRegappIdNotFound for a name that is not registered, eXdataSizeExceeded for
    // a string over 255 bytes or more than 16 KB on the object, eInvalidResBuf for codes that are no xdata, a
    // list that does not begin with 1001, or braces that do not match. On failure the object keeps what it
    // had.
    Acad::ErrorStatus setXData(const resbuf* list);

  protected:
    explicit AcDbObject(AcDbImpObject* data);

  private:
    friend struct AcDbObjectAccess;
    AcDbImpObject* mpImpObject;
};

class ARX_PORT AcDbEntity : public AcDbObject {
  public:
    static AcRxClass* desc();
    static AcDbEntity* cast(const AcRxObject* object);
    AcRxClass* isA() const override;

    // The block record that the entity stands in.
    AcDbObjectId blockId() const;

    // 0 by block, 256 by layer, 1 to 255 colours of the index.
    Adesk::UInt16 colorIndex() const;
    Acad::ErrorStatus setColorIndex(Adesk::UInt16 color, bool doSubents = true);

    AcDbObjectId layerId() const;
    // The layer's name, freed by the caller.
    ACHAR* layer() const;
    // eKeyNotFound if the drawing has no such layer.
    Acad::ErrorStatus setLayer(const ACHAR* name, bool doSubents = true);
    Acad::ErrorStatus setLayer(AcDbObjectId id, bool doSubents = true);

    AcDbObjectId linetypeId() const;
    ACHAR* linetype() const;
    Acad::ErrorStatus setLinetype(const ACHAR* name, bool doSubents = true);
    Acad::ErrorStatus setLinetype(AcDbObjectId id, bool doSubents = true);
    double linetypeScale() const;
    Acad::ErrorStatus setLinetypeScale(double scale, bool doSubents = true);

    AcDb::Visibility visibility() const;
    Acad::ErrorStatus setVisibility(AcDb::Visibility visible, bool doSubents = true);

    // Defaults from the working database's current layer, linetype and colour are not applied: layer 0, by
    // layer.
    Acad::ErrorStatus setPropertiesFrom(const AcDbEntity* other, bool doSubents = true);

  protected:
    explicit AcDbEntity(AcDbImpObject* data);
};

class ARX_PORT AcDbDatabase : public AcRxObject {
  public:
    enum OpenMode {
        kForReadAndReadShare = 1,
        kForReadAndWriteNoShare = 2,
        kForReadAndAllShare = 3,
        kTryForReadAndReadShare = 4,
    };

    static AcRxClass* desc();
    static AcDbDatabase* cast(const AcRxObject* object);
    AcRxClass* isA() const override;

    // With `buildDefaultDrawing` the database is an empty drawing; without it is to be filled by readDwgFile.
    // Without `noDocument` it belongs to the current document and needs that one's lock.
    explicit AcDbDatabase(bool buildDefaultDrawing = true, bool noDocument = false);
    ~AcDbDatabase() override;
    AcDbDatabase(const AcDbDatabase&) = delete;
    AcDbDatabase& operator=(const AcDbDatabase&) = delete;

    // Fills a database that was made without a default drawing. eFileNotFound, eFileSharingViolation,
    // eFilerError for a file that is not a drawing; the database is then empty.
    Acad::ErrorStatus readDwgFile(const ACHAR* fileName, OpenMode mode = kForReadAndReadShare,
                                  bool allowCodePageConversion = false, const wchar_t* password = nullptr);
    Acad::ErrorStatus saveAs(const ACHAR* fileName);
    // The path the drawing was read from; eInvalidInput and an empty text if it was not.
    Acad::ErrorStatus getFilename(const ACHAR*& fileName) const;

    // The id of a handle. eUnknownHandle if there is no such object.
    Acad::ErrorStatus getAcDbObjectId(AcDbObjectId& id, bool createIfNotFound, const AcDbHandle& handle,
                                      Adesk::UInt32 xrefId = 0);

    // Give an object an id and an owner: for objects that neither a table nor a dictionary nor a block takes.
    Acad::ErrorStatus addAcDbObject(AcDbObjectId& id, AcDbObject* object);
    Acad::ErrorStatus addAcDbObject(AcDbObject* object);

    Acad::ErrorStatus getBlockTable(AcDbBlockTable*& table, AcDb::OpenMode mode = AcDb::kForRead);
    Acad::ErrorStatus getLayerTable(AcDbLayerTable*& table, AcDb::OpenMode mode = AcDb::kForRead);
    Acad::ErrorStatus getLinetypeTable(AcDbLinetypeTable*& table, AcDb::OpenMode mode = AcDb::kForRead);
    Acad::ErrorStatus getTextStyleTable(AcDbTextStyleTable*& table, AcDb::OpenMode mode = AcDb::kForRead);
    Acad::ErrorStatus getRegAppTable(AcDbRegAppTable*& table, AcDb::OpenMode mode = AcDb::kForRead);
    Acad::ErrorStatus getDimStyleTable(AcDbDimStyleTable*& table, AcDb::OpenMode mode = AcDb::kForRead);
    Acad::ErrorStatus getSymbolTable(AcDbBlockTable*& table, AcDb::OpenMode mode = AcDb::kForRead);
    Acad::ErrorStatus getSymbolTable(AcDbLayerTable*& table, AcDb::OpenMode mode = AcDb::kForRead);
    Acad::ErrorStatus getSymbolTable(AcDbRegAppTable*& table, AcDb::OpenMode mode = AcDb::kForRead);
    Acad::ErrorStatus getNamedObjectsDictionary(AcDbDictionary*& dictionary,
                                                AcDb::OpenMode mode = AcDb::kForRead);

    AcDbObjectId blockTableId() const;
    AcDbObjectId layerTableId() const;
    AcDbObjectId linetypeTableId() const;
    AcDbObjectId textStyleTableId() const;
    AcDbObjectId regAppTableId() const;
    AcDbObjectId dimStyleTableId() const;
    AcDbObjectId viewTableId() const;
    AcDbObjectId viewportTableId() const;
    AcDbObjectId UCSTableId() const;
    AcDbObjectId namedObjectsDictionaryId() const;
    AcDbObjectId currentSpaceId() const;

    AcDbObjectId layerZero() const;
    AcDbObjectId byLayerLinetype() const;
    AcDbObjectId byBlockLinetype() const;
    AcDbObjectId continuousLinetype() const;
    AcDbObjectId clayer() const;
    Acad::ErrorStatus setClayer(AcDbObjectId id);

    // The next handle to be given out.
    AcDbHandle handseed() const;

    // Objects that are not erased.
    Adesk::Int32 approxNumObjects() const;

  private:
    friend struct AcDbDatabaseAccess;
    AcDbImpDatabase* mpImpDb;
};

// Opens an object in a mode. eNullObjectId, eWasErased (unless `openErased`), eWasOpenForWrite,
// eWasOpenForRead (for write while readers have it), eAtMaxReaders, eLockViolation (for write without a lock
// on its document). On failure `object` is null.
ARX_PORT Acad::ErrorStatus acdbOpenAcDbObject(AcDbObject*& object, AcDbObjectId id, AcDb::OpenMode mode,
                                              bool openErased = false);
inline Acad::ErrorStatus acdbOpenObject(AcDbObject*& object, AcDbObjectId id,
                                        AcDb::OpenMode mode = AcDb::kForRead, bool openErased = false) {
    return acdbOpenAcDbObject(object, id, mode, openErased);
}

// The same for a class; eNotThatKindOfClass if the object is of another, and it is not open then.
ARX_PORT Acad::ErrorStatus acdbOpenAcDbObjectOfClass(AcDbObject*& object, AcDbObjectId id,
                                                     AcDb::OpenMode mode, bool openErased,
                                                     const AcRxClass* type);
template <class T>
Acad::ErrorStatus acdbOpenObject(T*& object, AcDbObjectId id, AcDb::OpenMode mode = AcDb::kForRead,
                                 bool openErased = false) {
    AcDbObject* opened = nullptr;
    const Acad::ErrorStatus status = acdbOpenAcDbObjectOfClass(opened, id, mode, openErased, T::desc());
    object = static_cast<T*>(opened);
    return status;
}

inline Acad::ErrorStatus acdbOpenAcDbEntity(AcDbEntity*& entity, AcDbObjectId id, AcDb::OpenMode mode,
                                            bool openErased = false) {
    return acdbOpenObject(entity, id, mode, openErased);
}
