#include "services.h"

#include <cstdio>
#include <cstdlib>

#include "acutads.h"
#include "adscodes.h"
#include "class_members.h"
#include "database_data.h"
#include "dbapserv.h"
#include "fatal.h"
#include "format_text.h"
#include "installed.h"
#include "rxregsvc.h"

namespace workbench::database {
namespace {

const WriteGuard* g_writeGuard = nullptr;
DrawingFiles* g_drawingFiles = nullptr;
FatalHandler g_fatalHandler = nullptr;
PrintHandler g_printHandler = nullptr;

[[noreturn]] void EndProgram(const std::wstring& text) {
    std::string narrow;
    for (const wchar_t letter : text) {
        narrow.push_back(letter < 0x80 ? static_cast<char>(letter) : '?');
    }
    std::fprintf(stderr, "Fatal error: %s\n", narrow.c_str());
    std::abort();
}

class Services : public AcDbHostApplicationServices {
  public:
    AcDbDatabase* workingDatabase() const override { return m_working; }
    void setWorkingDatabase(AcDbDatabase* database) override { m_working = database; }
    const ACHAR* getUserRegistryProductRootKey() override { return m_rootKey.c_str(); }
    const ACHAR* getMachineRegistryProductRootKey() override { return m_rootKey.c_str(); }
    void SetRootKey(const std::wstring& key) { m_rootKey = key; }

  private:
    AcDbDatabase* m_working = nullptr;
    std::wstring m_rootKey = L"Software\\Workbench\\R1.0\\WB-1:409";
};

// Never destroyed: databases that end with the program still ask it.
Services& TheServices() {
    static Services& services = *new Services;
    return services;
}

}  // namespace

void InstallWriteGuard(const WriteGuard* guard) {
    g_writeGuard = guard;
}
void InstallDrawingFiles(DrawingFiles* files) {
    g_drawingFiles = files;
}
DrawingFiles* InstalledDrawingFiles() {
    return g_drawingFiles;
}
void InstallFatalHandler(FatalHandler handler) {
    g_fatalHandler = handler;
}
void InstallPrintHandler(PrintHandler handler) {
    g_printHandler = handler;
}
void SetProductRootKey(const std::wstring& key) {
    TheServices().SetRootKey(key);
}

bool MayWrite(const AcDbDatabase& database) {
    return DataOf(database).noDocument || g_writeGuard == nullptr || g_writeGuard->MayWrite(database);
}

void Fatal(const std::wstring& text) {
    if (g_fatalHandler != nullptr) {
        g_fatalHandler(text);
    }
    EndProgram(text);
}

}  // namespace workbench::database

using namespace workbench::database;

AcDbHostApplicationServices* acdbHostApplicationServices() {
    return &TheServices();
}

int acutPrintf(const ACHAR* format, ...) {
    if (format == nullptr) {
        return RTERROR;
    }
    std::va_list arguments;
    va_start(arguments, format);
    const std::wstring text = FormatText(format, arguments);
    va_end(arguments);
    if (g_printHandler != nullptr) {
        g_printHandler(text);
    }
    return RTNORM;
}

void acrx_abort(const ACHAR* format, ...) {
    std::va_list arguments;
    va_start(arguments, format);
    const std::wstring text = FormatText(format == nullptr ? L"" : format, arguments);
    va_end(arguments);
    Fatal(text);
}
