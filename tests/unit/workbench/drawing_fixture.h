// A drawing to try things on, and short ways to do so.
#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include "acdbads.h"
#include "acdocman.h"
#include "acestext.h"
#include "acutads.h"
#include "adscodes.h"
#include "database/builder.h"
#include "database/services.h"
#include "dbapserv.h"
#include "dbobjptr.h"

// Status codes print as their names.
inline void PrintTo(Acad::ErrorStatus status, std::ostream* out) {
    for (const ACHAR* at = acadErrorStatusText(status); *at != 0; ++at) {
        *out << static_cast<char>(*at);
    }
}

namespace workbench::test {

// Frees a list at the end of its scope.
class List {
  public:
    explicit List(resbuf* list) : m_list(list) {}
    ~List() { acutRelRb(m_list); }
    List(const List&) = delete;
    List& operator=(const List&) = delete;
    resbuf* get() const { return m_list; }
    std::vector<int> Types() const {
        std::vector<int> types;
        for (const resbuf* at = m_list; at != nullptr; at = at->rbnext) {
            types.push_back(at->restype);
        }
        return types;
    }

  private:
    resbuf* m_list;
};

struct FatalError : std::runtime_error {
    using std::runtime_error::runtime_error;
};

// A guard whose answer a test changes.
class SwitchedGuard : public database::WriteGuard {
  public:
    bool MayWrite(const AcDbDatabase&) const override { return allowed; }
    bool allowed = true;
};

class DrawingTest : public testing::Test {
  protected:
    DrawingTest() : m_database(std::make_unique<AcDbDatabase>(true, false)) {
        acdbHostApplicationServices()->setWorkingDatabase(m_database.get());
        database::InstallWriteGuard(&m_guard);
        database::InstallFatalHandler(
            [](const std::wstring& text) { throw FatalError(std::string(text.begin(), text.end())); });
    }
    ~DrawingTest() override {
        m_database.reset();
        database::InstallWriteGuard(nullptr);
        database::InstallFatalHandler(nullptr);
    }

    AcDbDatabase& Drawing() { return *m_database; }

    AcDbObjectId ModelSpaceId() {
        AcDbObjectPointer<AcDbBlockTable> table(Drawing().blockTableId());
        AcDbObjectId id;
        EXPECT_EQ(table->getAt(ACDB_MODEL_SPACE, id), Acad::eOk);
        return id;
    }

    // A new entity at the end of model space, closed.
    AcDbObjectId Append(AcDbEntity* entity) {
        AcDbObjectPointer<AcDbBlockTableRecord> space(ModelSpaceId(), AcDb::kForWrite);
        AcDbObjectId id;
        EXPECT_EQ(space->appendAcDbEntity(id, entity), Acad::eOk);
        EXPECT_EQ(entity->close(), Acad::eOk);
        return id;
    }

    AcDbObjectId ALine() { return Append(new AcDbLine({0, 0, 0}, {1, 2, 3})); }

    AcDbObjectId ABlock(const wchar_t* name) {
        AcDbObjectPointer<AcDbBlockTable> table(Drawing().blockTableId(), AcDb::kForWrite);
        auto* record = new AcDbBlockTableRecord;
        EXPECT_EQ(record->setName(name), Acad::eOk);
        AcDbObjectId id;
        EXPECT_EQ(table->add(id, record), Acad::eOk);
        record->close();
        return id;
    }

    SwitchedGuard m_guard;
    std::unique_ptr<AcDbDatabase> m_database;
};

}  // namespace workbench::test
