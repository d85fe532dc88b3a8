// Ids: what names an object while its database is in memory.
#pragma once

#include <compare>

#include "acdb.h"
#include "dbhandle.h"

class AcDbDatabase;
class AcDbStub;
class AcRxClass;

class ARX_PORT AcDbObjectId {
  public:
    static const AcDbObjectId kNull;

    AcDbObjectId() = default;
    explicit AcDbObjectId(AcDbStub* stub) : mId(stub) {}

    bool isNull() const { return mId == nullptr; }
    void setNull() { mId = nullptr; }
    // Not null and not erased.
    bool isValid() const;
    bool isErased() const;
    bool isResident() const { return mId != nullptr; }
    AcDbDatabase* database() const;
    AcDbHandle handle() const;
    const AcRxClass* objectClass() const;

    AcDbStub* stub() const { return mId; }
    Adesk::IntDbId asOldId() const { return reinterpret_cast<Adesk::IntDbId>(mId); }
    AcDbObjectId& setFromOldId(Adesk::IntDbId oldId) {
        mId = reinterpret_cast<AcDbStub*>(oldId);
        return *this;
    }

    friend bool operator==(const AcDbObjectId&, const AcDbObjectId&) = default;
    friend auto operator<=>(const AcDbObjectId&, const AcDbObjectId&) = default;

  private:
    AcDbStub* mId = nullptr;
};
