#include "quiet_host.h"

#include "platform/letter_case.h"

QuietHost::QuietHost() {
    workbench::database::InstallDrawingFiles(this);
    m_host = std::make_unique<workbench::host::Host>(*this, *this, *this, workbench::host::Settings());
}

QuietHost::~QuietHost() {
    m_host.reset();
    workbench::database::InstallDrawingFiles(nullptr);
}

void QuietHost::AddDrawing(const std::wstring& path, const Fill& fill) {
    m_drawings[platform::ToUpper(path)] = fill;
}

bool QuietHost::Exists(const std::wstring& path) {
    return m_drawings.contains(platform::ToUpper(path));
}

Acad::ErrorStatus QuietHost::Read(const std::wstring& path, AcDbDatabase& database, std::wstring&) {
    const auto drawing = m_drawings.find(platform::ToUpper(path));
    if (drawing == m_drawings.end()) return Acad::eFileNotFound;
    workbench::database::BuildDefaultDrawing(database);
    drawing->second(database);
    return Acad::eOk;
}

Acad::ErrorStatus QuietHost::Write(const std::wstring&, const AcDbDatabase&, std::wstring&) {
    return Acad::eFileAccessErr;
}
