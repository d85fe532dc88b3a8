// A record of a drawing file taken apart into what every object has (handle, owner, reactors, extension
// dictionary, extended data) and the groups of its own kind.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string_view>
#include <vector>

#include "drawing_file/file_tree.h"

namespace workbench::drawing_file {

// A group of an object's own data, under the subclass marker that stands before it.
struct BodyGroup {
    Group group;
    std::uint32_t chunk = 0;  // index in RecordBody::Markers()
    bool isTaken = false;
    bool isSealed = false;  // belongs to an application's list or an embedded object: nobody looks inside
};

class RecordBody {
  public:
    // `handleCode` is 105 for dimension styles, in which 5 is something else, and 5 otherwise. Throws
    // DrawingError for a handle that is none and a list of an application that is not closed.
    explicit RecordBody(const Record& record, int handleCode = 5);

    std::string_view Type() const { return m_type; }
    std::uint32_t Line() const { return m_line; }
    std::uint64_t Handle() const { return m_handle; }
    // 0 if none is given, and if that is what is given.
    std::uint64_t Owner() const { return m_owner.value_or(0); }
    std::uint64_t ExtensionDictionary() const { return m_extensionDictionary; }
    const std::vector<std::uint64_t>& Reactors() const { return m_reactors; }
    // From the first application name on.
    std::span<const Group> Xdata() const { return m_xdata; }

    // The subclass markers in order; the first one is empty and stands for what comes before any.
    const std::vector<std::string_view>& Markers() const { return m_markers; }
    std::vector<BodyGroup>& Groups() { return m_groups; }

    // Looks only below the markers of that name from now on; everywhere if the record has none, as before
    // release 13.
    void EnterSubclass(std::string_view marker);
    void LeaveSubclass() { m_isScoped = false; }
    // True for a group that nobody has taken, in scope, and not sealed.
    bool IsOpen(const BodyGroup& candidate) const;
    // The first name (2) below the markers of that name, else the first one anywhere; null if there is none.
    const Group* FindName(std::string_view marker);
    // The first group of that code in scope that nobody has taken; null if there is none.
    const Group* Find(int code) const;
    // The same, and takes it along with others of that code: a damaged record repeats a value.
    const Group* Take(int code);

  private:
    std::size_t ReadHeader(std::span<const Group> groups, int handleCode);
    std::size_t ReadControlList(std::span<const Group> groups, std::size_t first);
    void AddBody(std::span<const Group> groups, int handleCode);
    void AddGroup(const Group& group, bool isSealed);

    std::string_view m_type;
    std::uint32_t m_line;
    std::uint64_t m_handle = 0;
    // An owner that is none is one too: a second pointer of the record stays what it is.
    std::optional<std::uint64_t> m_owner;
    std::uint64_t m_extensionDictionary = 0;
    std::vector<std::uint64_t> m_reactors;
    std::span<const Group> m_xdata;
    std::vector<std::string_view> m_markers{std::string_view()};
    std::vector<BodyGroup> m_groups;
    std::string_view m_scope;
    bool m_isScoped = false;
};

}  // namespace workbench::drawing_file
