#include "drawing_file/record_body.h"

#include <algorithm>

#include "drawing_file/group_codes.h"

namespace workbench::drawing_file {
namespace {

constexpr std::string_view kReactors = "{ACAD_REACTORS";
constexpr std::string_view kExtensionDictionary = "{ACAD_XDICTIONARY";
constexpr std::string_view kBlockReferences = "{BLKREFS";  // follows from the drawing's block references
constexpr int kCodeEmbeddedObject = 101;

// The index of the group that closes the list which `first` opens. No list goes on over a subclass marker.
std::size_t EndOfList(std::span<const Group> groups, std::size_t first) {
    for (std::size_t i = first + 1; i < groups.size() && groups[i].code != kCodeSubclass; ++i) {
        if (groups[i].code == kCodeControl && groups[i].value.starts_with('}')) return i;
    }
    throw DrawingError{groups[first].line, L"A list of an application is not closed."};
}

bool OpensList(const Group& group) {
    return group.code == kCodeControl && group.value.starts_with('{');
}

}  // namespace

RecordBody::RecordBody(const Record& record, int handleCode) : m_type(record.type), m_line(record.line) {
    const auto isName = [](const Group& group) { return group.code == kCodeXdataApp; };
    // The data of an extension record may use codes of extended data, but not that of an application's name.
    const auto xdata = std::find_if(record.groups.begin(), record.groups.end(), isName);
    const auto length = static_cast<std::size_t>(xdata - record.groups.begin());
    m_xdata = record.groups.subspan(length);
    const auto own = record.groups.first(length);
    m_groups.reserve(own.size());
    AddBody(own.subspan(ReadHeader(own, handleCode)), handleCode);
}

// Reads up to the first group that is not the same for every object, and returns its index.
std::size_t RecordBody::ReadHeader(std::span<const Group> groups, int handleCode) {
    std::size_t i = 0;
    while (i < groups.size()) {
        const Group& group = groups[i];
        if (group.code == handleCode && m_handle == 0) {
            m_handle = HandleOf(group);
        } else if (group.code == kCodeOwner && !m_owner) {
            m_owner = HandleOf(group);
        } else if (OpensList(group)) {
            i = ReadControlList(groups, i);
        } else {
            break;
        }
        ++i;
    }
    return i;
}

// Reads the list that `first` opens, and returns the index of its last group.
std::size_t RecordBody::ReadControlList(std::span<const Group> groups, std::size_t first) {
    const std::size_t end = EndOfList(groups, first);
    WordOf(groups[first]);
    const auto items = groups.subspan(first + 1, end - first - 1);
    if (groups[first].value == kReactors) {
        for (const Group& item : items) {
            if (item.code == kCodeOwner) m_reactors.push_back(HandleOf(item));
        }
    } else if (groups[first].value == kExtensionDictionary) {
        for (const Group& item : items) {
            if (item.code == kCodeHardOwner) m_extensionDictionary = HandleOf(item);
        }
    } else if (groups[first].value != kBlockReferences) {
        for (std::size_t i = first; i <= end; ++i)
            AddGroup(groups[i], true);
    }
    return end;
}

void RecordBody::AddBody(std::span<const Group> groups, int handleCode) {
    bool isEmbedded = false;
    for (std::size_t i = 0; i < groups.size(); ++i) {
        const Group& group = groups[i];
        if (m_markers.back() == kMarkerExtensionRecord) {
            AddGroup(group, false);  // the owner's data from here on, whatever its codes mean elsewhere
        } else if (group.code == kCodeSubclass) {
            m_markers.push_back(WordOf(group));
            isEmbedded = false;
        } else if (group.code == handleCode && m_handle == 0 && m_markers.size() == 1) {
            m_handle = HandleOf(group);  // old programs write it behind the layer
        } else if (group.code == kCodeOwner && !m_owner && m_markers.size() == 1) {
            m_owner = HandleOf(group);
        } else if (OpensList(group) && !isEmbedded) {
            i = ReadControlList(groups, i);
        } else {
            isEmbedded = isEmbedded || group.code == kCodeEmbeddedObject;
            AddGroup(group, isEmbedded);
        }
    }
}

void RecordBody::AddGroup(const Group& group, bool isSealed) {
    m_groups.push_back({group, static_cast<std::uint32_t>(m_markers.size() - 1), false, isSealed});
}

void RecordBody::EnterSubclass(std::string_view marker) {
    m_scope = marker;
    m_isScoped = std::find(m_markers.begin(), m_markers.end(), marker) != m_markers.end();
}

bool RecordBody::IsOpen(const BodyGroup& candidate) const {
    if (candidate.isTaken || candidate.isSealed) return false;
    return !m_isScoped || m_markers[candidate.chunk] == m_scope;
}

const Group* RecordBody::Find(int code) const {
    for (const BodyGroup& candidate : m_groups) {
        if (candidate.group.code == code && IsOpen(candidate)) return &candidate.group;
    }
    return nullptr;
}

const Group* RecordBody::FindName(std::string_view marker) {
    EnterSubclass(marker);
    const Group* own = Find(kCodeName);
    LeaveSubclass();
    return own != nullptr ? own : Find(kCodeName);
}

const Group* RecordBody::Take(int code) {
    const Group* first = nullptr;
    for (BodyGroup& candidate : m_groups) {
        if (candidate.group.code != code || !IsOpen(candidate)) continue;
        candidate.isTaken = true;
        if (first == nullptr) first = &candidate.group;
    }
    return first;
}

}  // namespace workbench::drawing_file
