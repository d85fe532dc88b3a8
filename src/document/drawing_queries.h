// Questions about a drawing: the line numbers in it, its dictionaries, the host's system variables, and who
// has it open. Nothing here shows a message.
#pragma once

#include <string>
#include <vector>

#include "acadstrc.h"
#include "dbid.h"

class AcDbDatabase;

// The id of *Model_Space; the null id on any failure. A null `db` is the working database.
AcDbObjectId GetModelSpaceId(AcDbDatabase* db);

// The name of a block record, or of the record that a block reference stands for; empty for anything else.
std::wstring GetBlockNameOfEntity(const AcDbObjectId& id);

// True for block names that carry a line number, in any letter case: the fourteen tagged blocks, and
// balloons, which are named BAL, a number from 1 to 29, and end in a letter from A to H ("BAL12C").
bool IsTaggedBlockName(const std::wstring& strBlockName);

// True if `id` is a reference to a tagged block. `lineNumber` then takes its attribute LIN_NUM, without
// blanks around it; "-" means no line and gives an empty text. A block without the attribute leaves
// `lineNumber` alone.
bool GetLineNumberOfBlock(const AcDbObjectId& id, std::wstring& lineNumber);

// Adds the line numbers in the model space of a drawing to `out`, in the order of model space, each once and
// none that `out` holds already (the case of letters counts). Tagged blocks without a number give one empty
// text. An open drawing is read as it stands in memory, any other from its file, with the status of a failed
// reading.
Acad::ErrorStatus CollectLineNumbers(std::vector<std::wstring>& out, std::wstring path);

// The id of a dictionary in the named objects dictionary, or of an xrecord in such a dictionary. `create`
// makes what is missing, empty; without it the status is eKeyNotFound. FindOrCreateXrecord may leave a new
// empty dictionary behind if the xrecord cannot be made. A null `db` is the working database.
Acad::ErrorStatus FindOrCreateDictionary(const wchar_t* name, AcDbObjectId& id, bool create,
                                         AcDbDatabase* db);
Acad::ErrorStatus FindOrCreateXrecord(const wchar_t* key, const wchar_t* dictionary, AcDbObjectId& id,
                                      bool create, AcDbDatabase* db);

// A text or a short system variable. False, with `value` as it was, if it cannot be read or is of another
// type.
bool GetSysVarString(const wchar_t* name, std::wstring& value);
bool GetSysVarShort(const wchar_t* name, int& value);
// Sets the variable unless it has the value already, so that the host reports no change where there is none.
void SetSysVarShort(const wchar_t* name, int value);

// Who has a drawing open, from the lock file beside it ("a.dwl" for "a.DWG"): the first three lines. False if
// `dwgPath` is no drawing, if there is no lock file, or if it has fewer lines; the lines that it has are set
// then. All three are emptied first.
bool ReadDwgLockFile(const std::wstring& dwgPath, std::wstring& user, std::wstring& machine,
                     std::wstring& time);
