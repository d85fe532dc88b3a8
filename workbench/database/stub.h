// An object's place in its database: what an id stands for.
#pragma once

#include <cstdint>

class AcDbDatabase;
class AcDbObject;
class AcRxClass;
struct AcDbImpObject;

// It lives as long as the database, also when the object is erased. What opening an object asks for stands
// here, not in the object: a walk over a drawing opens many that turn out to be of another class, and would
// wait for the memory of each.
class AcDbStub {
  public:
    AcDbObject* object = nullptr;     // null while only references to the handle have been met
    AcDbImpObject* data = nullptr;    // of the object, and
    const AcRxClass* type = nullptr;  // its class
    AcDbDatabase* database = nullptr;
    std::uint64_t handle = 0;
    std::uint16_t readers = 0;
    bool writer = false;
    bool erased = false;
    bool isNew = false;      // since it came into the database, until its first close
    bool modified = false;   // since it was opened for write
    bool permanent = false;  // may not be erased
};
