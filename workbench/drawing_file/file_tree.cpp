#include "drawing_file/file_tree.h"

#include <algorithm>
#include <string>

#include "drawing_file/group_codes.h"

namespace workbench::drawing_file {
namespace {

constexpr std::string_view kBinarySentinel = "AutoCAD Binary DXF";
constexpr std::string_view kDwgSentinel = "AC10";

bool IsType(const Group& group, std::string_view type) {
    return group.code == kCodeType && Trimmed(group.value) == type;
}

void RefuseOtherFormats(std::string_view text) {
    if (text.empty()) throw DrawingError{1, L"The file is empty."};
    if (text.starts_with(kBinarySentinel)) {
        throw DrawingError{
            1, L"The file is in the binary form of the interchange format; only the text form can be read."};
    }
    if (text.starts_with(kDwgSentinel)) {
        throw DrawingError{
            1, L"The file is in the binary drawing format; only drawings in text form can be read."};
    }
}

}  // namespace

FileTree::FileTree(std::string_view text) {
    RefuseOtherFormats(text);
    ReadGroups(text);
    ReadSections();
}

const Section* FileTree::Find(std::string_view name) const {
    const auto found = std::find_if(m_sections.begin(), m_sections.end(),
                                    [&](const Section& section) { return section.name == name; });
    return found != m_sections.end() ? &*found : nullptr;
}

void FileTree::ReadGroups(std::string_view text) {
    m_groups.reserve(static_cast<std::size_t>(std::count(text.begin(), text.end(), '\n')) / 2 + 1);
    GroupReader reader(text);
    Group group;
    while (reader.Next(group)) {
        m_lastLine = group.line;
        if (group.code == kCodeComment) continue;
        m_groups.push_back(group);
        if (IsType(group, "EOF")) return;
    }
    throw DrawingError{reader.Line(), L"The file ends ahead of its end mark (EOF)."};
}

void FileTree::ReadSections() {
    std::size_t next = 0;
    while (!IsType(m_groups[next], "EOF")) {
        if (!IsType(m_groups[next], "SECTION")) {
            throw DrawingError{m_groups[next].line, L"A section (SECTION) is expected here."};
        }
        next = ReadSection(next + 1);
    }
}

// Takes the section whose name is the group `first`, and returns the index of the group behind its end.
std::size_t FileTree::ReadSection(std::size_t first) {
    if (m_groups[first].code != kCodeName) {
        throw DrawingError{m_groups[first].line, L"The name of a section is expected here."};
    }
    Section section{WordOf(m_groups[first]), m_groups[first].line, {}, {}};
    const auto nextType = [this](std::size_t from) {
        // "EOF" is always the last group, so there is a next one.
        while (m_groups[from].code != kCodeType)
            ++from;
        return from;
    };
    const std::span<const Group> groups(m_groups);
    std::size_t at = nextType(first + 1);
    section.leading = groups.subspan(first + 1, at - first - 1);
    while (!IsType(m_groups[at], "ENDSEC")) {
        if (IsType(m_groups[at], "EOF") || IsType(m_groups[at], "SECTION")) {
            throw DrawingError{m_groups[at].line, L"A section ends without its end mark (ENDSEC)."};
        }
        const std::size_t end = nextType(at + 1);
        section.records.push_back(
            {WordOf(m_groups[at]), m_groups[at].line, groups.subspan(at + 1, end - at - 1)});
        at = end;
    }
    m_sections.push_back(std::move(section));
    return nextType(at + 1);
}

const Group* FindGroup(std::span<const Group> groups, int code) {
    const auto found =
        std::find_if(groups.begin(), groups.end(), [code](const Group& group) { return group.code == code; });
    return found != groups.end() ? &*found : nullptr;
}

std::string_view NameIn(std::span<const Group> groups, int code) {
    const Group* group = FindGroup(groups, code);
    return group != nullptr ? Trimmed(group->value) : std::string_view();
}

}  // namespace workbench::drawing_file
