// Drawings written by hand for tests, and what is read from them.
#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <string_view>

#include "database/builder.h"
#include "drawing_file/drawing_reader.h"
#include "drawing_file/drawing_writer.h"

namespace workbench::test {

inline std::string Section(std::string_view name, std::string_view records) {
    return "0\nSECTION\n2\n" + std::string(name) + "\n" + std::string(records) + "0\nENDSEC\n";
}

// A file of the sections, with its end mark.
inline std::string File(std::string_view sections) {
    return std::string(sections) + "0\nEOF\n";
}

inline std::string Header(std::string_view version) {
    return Section("HEADER", "9\n$ACADVER\n1\n" + std::string(version) + "\n");
}

// A file of release 12 with nothing but entities: the entities begin in line 5.
inline std::string Entities(std::string_view records) {
    return File(Section("ENTITIES", records));
}

// A line on the layer PIPES from (1.5, 2, -1) to (4, 5, 6).
constexpr std::string_view kLine = "0\nLINE\n8\nPIPES\n62\n3\n10\n1.5\n20\n2\n30\n-1\n11\n4\n21\n5\n31\n6\n";

// A block of release 12 with its entities.
inline std::string BlockText(std::string_view name, std::string_view entities) {
    return "0\nBLOCK\n8\n0\n2\n" + std::string(name) + "\n70\n0\n10\n1\n20\n2\n30\n3\n" +
           std::string(entities) + "0\nENDBLK\n8\n0\n";
}

// The name of a table's record.
inline std::string NameOf(const AcDbStub* record) {
    const auto* data = database::DataAs<database::RecordData>(record);
    return data != nullptr ? std::string(data->name.begin(), data->name.end()) : "(null)";
}

// A drawing that has been read.
class Read {
  public:
    explicit Read(std::string_view bytes) : m_database(std::make_unique<AcDbDatabase>(false, true)) {
        m_isRead = drawing_file::ReadDrawing(bytes, *m_database, m_error);
    }

    bool IsRead() const { return m_isRead; }
    const std::wstring& Error() const { return m_error; }
    AcDbDatabase& Database() { return *m_database; }
    AcDbImpDatabase& Data() { return database::DataOf(*m_database); }
    std::string Written() { return drawing_file::WriteDrawing(*m_database); }

    const database::BlockRecordData& Block(const wchar_t* name) {
        const auto* block =
            database::DataAs<database::BlockRecordData>(Data().FindRecord(Data().blockTable, name));
        if (block == nullptr) throw std::runtime_error("no such block");
        return *block;
    }

    // The entity of that kind and number in model space.
    template <class Kind>
    const Kind& Entity(std::size_t index = 0) {
        const auto& entities = Block(ACDB_MODEL_SPACE).entities;
        const auto* entity = index < entities.size() ? database::DataAs<Kind>(entities[index]) : nullptr;
        if (entity == nullptr) throw std::runtime_error("no such entity");
        return *entity;
    }

    // The object of a handle.
    template <class Kind>
    const Kind& Object(std::uint64_t handle) {
        const auto found = Data().byHandle.find(handle);
        const auto* object = found != Data().byHandle.end() ? database::DataAs<Kind>(found->second) : nullptr;
        if (object == nullptr) throw std::runtime_error("no such object");
        return *object;
    }

  private:
    std::unique_ptr<AcDbDatabase> m_database;
    bool m_isRead = false;
    std::wstring m_error;
};

// The error of a file that is refused; a refused file leaves an empty database.
inline std::wstring ErrorOf(std::string_view bytes) {
    Read drawing(bytes);
    EXPECT_FALSE(drawing.IsRead());
    EXPECT_TRUE(drawing.Data().stubs.empty());
    return drawing.Error();
}

}  // namespace workbench::test
