// Result lists and the items that drawings keep: each into the other.
#pragma once

#include <string>

#include "acutads.h"
#include "group_data.h"

class AcDbDatabase;

namespace workbench::database {

// The text of a string that crosses the host interface, with the interface's own allocation.
ACHAR* NewText(std::wstring_view text);

// Appends items to a list. `Tail` is where the next item goes.
class ListBuilder {
  public:
    resbuf& Append(int type);
    void AppendText(int type, std::wstring_view text) { Append(type).resval.rstring = NewText(text); }
    resbuf* Take();

  private:
    resbuf* m_first = nullptr;
    resbuf* m_last = nullptr;
};

// A list that is lent to code which may free it or leave it: frees it at the end if it is still there.
class LentList {
  public:
    explicit LentList(resbuf* list);
    ~LentList();
    LentList(const LentList&) = delete;
    LentList& operator=(const LentList&) = delete;
    // Null once the list has been freed.
    resbuf* Get() const { return m_list; }
    // Told of every list that is freed.
    static void OnRelease(const resbuf* list);

  private:
    resbuf* m_list;
    LentList* m_outer;
    static LentList* s_innermost;
};

// Handles become ids of `database` where the code says so; 0 for one that it does not have.
resbuf* ListFromItems(const DataItems& items, const AcDbDatabase* database);
// Only the items of the application with that name, in any letter case.
resbuf* ListOfApplication(const DataItems& items, const std::wstring& name, const AcDbDatabase* database);

// eInvalidResBuf for a code that no item can have, a string that is missing, an id that is none.
Acad::ErrorStatus ItemsFromList(const resbuf* list, DataItems& items);

// Hexadecimal digits of a handle; `value` is 0 and false is returned for anything else.
bool ParseHandle(std::wstring_view text, std::uint64_t& value);
std::wstring HandleText(std::uint64_t value);

}  // namespace workbench::database
