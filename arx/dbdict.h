// Dictionaries: named objects.
#pragma once

#include "dbmain.h"

class ARX_PORT AcDbDictionaryIterator {
  public:
    ~AcDbDictionaryIterator();
    AcDbDictionaryIterator(const AcDbDictionaryIterator&) = delete;
    AcDbDictionaryIterator& operator=(const AcDbDictionaryIterator&) = delete;

    const ACHAR* name() const;
    AcDbObjectId objectId() const;
    Acad::ErrorStatus getObject(AcDbObject*& object, AcDb::OpenMode mode = AcDb::kForRead);
    bool done() const;
    // False when it has come behind the last entry.
    bool next();

  private:
    friend class AcDbDictionary;
    struct Data;
    explicit AcDbDictionaryIterator(Data* data);
    Data* m_data;
};

// Keys compare without regard to case and keep the case they were written in.
class ARX_PORT AcDbDictionary : public AcDbObject {
  public:
    static AcRxClass* desc();
    static AcDbDictionary* cast(const AcRxObject* object);
    AcRxClass* isA() const override;
    AcDbDictionary();

    // eKeyNotFound if there is no such entry or its object is erased; `id` is then null.
    Acad::ErrorStatus getAt(const ACHAR* name, AcDbObjectId& id) const;
    // Opens the entry's object.
    Acad::ErrorStatus getAt(const ACHAR* name, AcDbObject*& object, AcDb::OpenMode mode) const;
    Acad::ErrorStatus nameAt(AcDbObjectId id, const ACHAR*& name) const;
    bool has(const ACHAR* name) const;
    bool has(AcDbObjectId id) const;
    Adesk::UInt32 numEntries() const;

    // Puts a new object under the name. It gets an id and the dictionary as owner, and stays open for write;
    // what was there is erased. eInvalidKey for an empty name, eAlreadyInDb, eNotOpenForWrite: the object
    // then has no id.
    Acad::ErrorStatus setAt(const ACHAR* name, AcDbObject* object, AcDbObjectId& id);
    // Takes the entry out; the object stays in the database without a name.
    Acad::ErrorStatus remove(const ACHAR* name);
    Acad::ErrorStatus remove(const ACHAR* name, AcDbObjectId& id);
    Acad::ErrorStatus remove(AcDbObjectId id);
    bool setName(const ACHAR* oldName, const ACHAR* newName);

    // Entries in the order of their keys. The caller deletes it.
    AcDbDictionaryIterator* newIterator() const;

    bool isTreatElementsAsHard() const;
    Acad::ErrorStatus setTreatElementsAsHard(bool hard);
};
