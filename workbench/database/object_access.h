// What the classes of the database share among themselves.
#pragma once

#include <string_view>

#include "class_members.h"
#include "database_data.h"
#include "fatal.h"

struct AcDbObjectAccess {
    static AcDbImpObject& Data(const AcDbObject& object) { return *object.mpImpObject; }
    static AcDbObjectIterator* MakeIterator(const std::vector<AcDbStub*>& stubs);
};

struct AcDbDatabaseAccess {
    static AcDbImpDatabase& Data(const AcDbDatabase& database) { return *database.mpImpDb; }
};

namespace workbench::database {

inline AcDbObjectId IdOf(const AcDbStub* stub) {
    return AcDbObjectId(const_cast<AcDbStub*>(stub));
}

// The data of an object for reading. The program ends if the object is in a database and not open.
void AssertRead(const AcDbObject& object);
template <class Data>
const Data& ReadData(const AcDbObject& object) {
    AssertRead(object);
    return static_cast<const Data&>(DataOf(object));
}

// eNotOpenForWrite if the object is in a database and not open for write. Otherwise marks it as modified.
Acad::ErrorStatus PrepareWrite(AcDbObject& object);

// Sets a member of an object's data.
template <class Data, class Member, class Value>
Acad::ErrorStatus WriteMember(AcDbObject& object, Member Data::*member, const Value& value) {
    const Acad::ErrorStatus status = PrepareWrite(object);
    if (status == Acad::eOk) {
        static_cast<Data&>(DataOf(object)).*member = static_cast<Member>(value);
    }
    return status;
}

// Gives an object a place in the database, open for write if `open`.
AcDbStub* Enter(AcDbDatabase& database, AcDbObject& object, std::uint64_t handle, AcDbStub* owner, bool open);

// Enters a new object from application code: eNullObjectPointer, eAlreadyInDb.
Acad::ErrorStatus EnterNew(const AcDbObject& container, AcDbObject* object, AcDbObjectId& id);

// Deletes every object of a database; the places stay.
void DropObjects(AcDbImpDatabase& data);

// Erases or brings back an object with all that it owns.
void SetErased(AcDbStub& stub, bool erased);

// A step in a list of objects, in either direction.
class StubWalk {
  public:
    explicit StubWalk(const std::vector<AcDbStub*>& stubs) : m_stubs(&stubs) {}
    void Start(bool atBeginning, bool skipErased) {
        m_position = atBeginning ? 0 : static_cast<std::ptrdiff_t>(m_stubs->size()) - 1;
        Skip(atBeginning ? 1 : -1, skipErased);
    }
    void Step(bool forward, bool skipErased) {
        m_position += forward ? 1 : -1;
        Skip(forward ? 1 : -1, skipErased);
    }
    bool Done() const { return m_position < 0 || m_position >= static_cast<std::ptrdiff_t>(m_stubs->size()); }
    AcDbStub* Current() const { return Done() ? nullptr : (*m_stubs)[static_cast<std::size_t>(m_position)]; }
    // What comes that many places later; null behind the end.
    const AcDbStub* Ahead(std::ptrdiff_t steps) const {
        const std::ptrdiff_t place = m_position + steps;
        return place < static_cast<std::ptrdiff_t>(m_stubs->size())
                   ? (*m_stubs)[static_cast<std::size_t>(place)]
                   : nullptr;
    }

  private:
    void Skip(std::ptrdiff_t step, bool skipErased) {
        while (!Done() && (Current()->object == nullptr || (skipErased && Current()->erased))) {
            m_position += step;
        }
    }
    const std::vector<AcDbStub*>* m_stubs;
    std::ptrdiff_t m_position = 0;
};

// The id of a record by name in one of the object's database's tables; null if there is none.
AcDbStub* FindNamed(const AcDbObject& object, AcDbStub* AcDbImpDatabase::*table, const ACHAR* name);

}  // namespace workbench::database
