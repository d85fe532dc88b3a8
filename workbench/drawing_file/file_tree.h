// A drawing interchange file as sections of records, before any of it means anything: "0 LINE" and the groups
// up to the next "0" are a record.
#pragma once

#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

#include "drawing_file/group_reader.h"

namespace workbench::drawing_file {

struct Record {
    std::string_view type;          // "LINE"
    std::uint32_t line = 0;         // of the type
    std::span<const Group> groups;  // behind the type
};

struct Section {
    std::string_view name;           // "ENTITIES"
    std::uint32_t line = 0;          // of the name
    std::span<const Group> leading;  // the groups ahead of the first record: all of them in a HEADER section
    std::vector<Record> records;
};

// The sections of a file. It holds views into the text that it was made of, which outlives it.
class FileTree {
  public:
    // Throws DrawingError for a text that is empty, binary, malformed or ends ahead of its "0 EOF". Comments
    // and whatever follows "EOF" are left out.
    explicit FileTree(std::string_view text);
    FileTree(const FileTree&) = delete;
    FileTree& operator=(const FileTree&) = delete;

    const std::vector<Section>& Sections() const { return m_sections; }
    // The first section of that name, or null.
    const Section* Find(std::string_view name) const;
    std::uint32_t LastLine() const { return m_lastLine; }

  private:
    void ReadGroups(std::string_view text);
    void ReadSections();
    std::size_t ReadSection(std::size_t first);

    std::vector<Group> m_groups;
    std::vector<Section> m_sections;
    std::uint32_t m_lastLine = 0;
};

// The first group of that code, or null.
const Group* FindGroup(std::span<const Group> groups, int code);

// The value of a text group without blanks around it, "" without such a group.
std::string_view NameIn(std::span<const Group> groups, int code);

}  // namespace workbench::drawing_file
