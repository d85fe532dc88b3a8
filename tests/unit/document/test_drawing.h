// Fills a drawing through the host's own interface: blocks, and references to them with attributes.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "dbents.h"
#include "dbmain.h"
#include "dbsymtb.h"

using Attributes = std::vector<std::pair<std::wstring, std::wstring>>;  // tag, text

class TestDrawing {
  public:
    // The drawing must outlive this.
    explicit TestDrawing(AcDbDatabase& database) : m_database(database) {}

    // An empty block record; its id.
    AcDbObjectId AddBlock(const std::wstring& name);
    // The id of a block record of that name, made if there is none.
    AcDbObjectId BlockRecord(const std::wstring& name);

    // A reference at the end of model space.
    AcDbObjectId AddReference(const std::wstring& blockName, const Attributes& attributes = {});
    // A reference at the end of any block.
    AcDbObjectId AddReferenceIn(AcDbObjectId owner, const std::wstring& blockName,
                                const Attributes& attributes = {});
    // A line in model space.
    AcDbObjectId AddLine();

    AcDbObjectId ModelSpace() { return BlockRecord(ACDB_MODEL_SPACE); }
    void Erase(AcDbObjectId id);

  private:
    AcDbObjectId Append(AcDbObjectId owner, AcDbEntity* entity);

    AcDbDatabase& m_database;
};
