// A drawing in memory.
#pragma once

#include <string>
#include <unordered_map>
#include <vector>

#include "object_data.h"
#include "stub_store.h"

namespace workbench::database {

// A variable of the drawing's header ("$INSUNITS") with its groups.
struct HeaderVariable {
    std::wstring name;
    RawGroups groups;
};

// A section that is kept as it was read (CLASSES, THUMBNAILIMAGE, ACDSDATA...).
struct RawSection {
    std::wstring name;
    RawGroups groups;
};

}  // namespace workbench::database

class AcDbImpDatabase {
  public:
    // Every object, in the order in which it came; erased ones and handles without an object included.
    workbench::database::StubStore stubs;
    std::unordered_map<std::uint64_t, AcDbStub*> byHandle;
    std::uint64_t nextHandle = 1;

    AcDbStub* blockTable = nullptr;
    AcDbStub* layerTable = nullptr;
    AcDbStub* linetypeTable = nullptr;
    AcDbStub* textStyleTable = nullptr;
    AcDbStub* regAppTable = nullptr;
    AcDbStub* dimStyleTable = nullptr;
    AcDbStub* viewTable = nullptr;
    AcDbStub* viewportTable = nullptr;
    AcDbStub* ucsTable = nullptr;
    AcDbStub* namedObjects = nullptr;
    AcDbStub* currentLayer = nullptr;  // null: layer 0

    // All but $ACADVER, $HANDSEED and $CLAYER, which follow from the rest.
    std::vector<workbench::database::HeaderVariable> header;
    std::vector<workbench::database::RawSection> otherSections;

    std::wstring path;
    bool noDocument = false;
    bool modified = false;

    // Null if there is none of the name (upper or lower case).
    AcDbStub* FindRecord(const AcDbStub* table, std::wstring_view name) const;
    workbench::database::HeaderVariable* FindHeader(std::wstring_view name);

    // The data of `*Model_Space`; null in an empty database.
    workbench::database::BlockRecordData* ModelSpace() const;
};

namespace workbench::database {

AcDbImpDatabase& DataOf(const AcDbDatabase& database);

}  // namespace workbench::database
