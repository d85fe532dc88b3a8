// What the database asks of the program around it. Each is installed once at start and outlives every
// database.
#pragma once

#include <string>

#include "acadstrc.h"
#include "dbmain.h"

namespace workbench::database {

// Says whether an object of a database may be opened for write now. Without a guard every one may.
class WriteGuard {
  public:
    virtual ~WriteGuard() = default;
    virtual bool MayWrite(const AcDbDatabase& database) const = 0;
};
void InstallWriteGuard(const WriteGuard* guard);

// Reads and writes drawing files. On failure `error` is a text for the user, with the line number where there
// is one, and Read leaves the database empty.
class DrawingFiles {
  public:
    virtual ~DrawingFiles() = default;
    // eFileNotFound, eFileSharingViolation, eFileAccessErr, eFilerError (not a drawing, or damaged).
    virtual Acad::ErrorStatus Read(const std::wstring& path, AcDbDatabase& database, std::wstring& error) = 0;
    virtual Acad::ErrorStatus Write(const std::wstring& path, const AcDbDatabase& database,
                                    std::wstring& error) = 0;
};
void InstallDrawingFiles(DrawingFiles* files);
// Null if none is installed.
DrawingFiles* InstalledDrawingFiles();

// Code used an object in a way that it cannot go on from (read a value of one that is closed). The default
// ends the program with the text; a test may install its own, which must not return.
using FatalHandler = void (*)(const std::wstring& text);
void InstallFatalHandler(FatalHandler handler);

// What getUserRegistryProductRootKey and getMachineRegistryProductRootKey give.
void SetProductRootKey(const std::wstring& key);

// Empties a database and gives it what a new drawing has.
void BuildDefaultDrawing(AcDbDatabase& database);

// Objects of a database that are open now: whoever closes a drawing looks for what was left open.
long OpenObjects(const AcDbDatabase& database);

// Result items that were handed out and not freed yet, for tests that look for leaks.
long LiveResultBuffers();

// Whoever prints for acutPrintf; without one the text goes nowhere.
using PrintHandler = void (*)(const std::wstring& text);
void InstallPrintHandler(PrintHandler handler);

}  // namespace workbench::database
