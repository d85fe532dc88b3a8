// Drawing files for the database: reads and writes them as ASCII DXF through the platform.
#pragma once

#include "database/services.h"

namespace workbench::drawing_file {

class DxfDrawingFiles : public database::DrawingFiles {
  public:
    Acad::ErrorStatus Read(const std::wstring& path, AcDbDatabase& database, std::wstring& error) override;

    // Writes beside the file and takes its place only when all is written: a full disk leaves the old
    // drawing. eFileAccessErr if the folder or the old file does not allow it, eOutOfDisk.
    Acad::ErrorStatus Write(const std::wstring& path, const AcDbDatabase& database,
                            std::wstring& error) override;
};

}  // namespace workbench::drawing_file
