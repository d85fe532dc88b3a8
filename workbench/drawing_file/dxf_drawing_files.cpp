#include "drawing_file/dxf_drawing_files.h"

#include "drawing_file/drawing_reader.h"
#include "drawing_file/drawing_writer.h"
#include "platform/platform.h"

namespace workbench::drawing_file {
namespace {

constexpr std::wstring_view kUnfinished = L".writing";

}  // namespace

Acad::ErrorStatus DxfDrawingFiles::Read(const std::wstring& path, AcDbDatabase& database,
                                        std::wstring& error) {
    std::string bytes;
    switch (platform::Current().files.ReadBytes(path, platform::Sharing::kReadWrite, bytes)) {
        case platform::kDone:
            break;
        case platform::kFileNotFound:
        case platform::kPathNotFound:
            error = L"There is no file " + path + L".";
            return Acad::eFileNotFound;
        case platform::kSharingViolation:
            error = L"Another program has " + path + L" open.";
            return Acad::eFileSharingViolation;
        default:
            error = path + L" cannot be read.";
            return Acad::eFileAccessErr;
    }
    return ReadDrawing(bytes, database, error) ? Acad::eOk : Acad::eFilerError;
}

Acad::ErrorStatus DxfDrawingFiles::Write(const std::wstring& path, const AcDbDatabase& database,
                                         std::wstring& error) {
    platform::Files& files = platform::Current().files;
    const std::wstring unfinished = path + std::wstring(kUnfinished);
    error = path + L" cannot be written.";
    switch (files.WriteBytes(unfinished, WriteDrawing(database))) {
        case platform::WriteResult::kWritten:
            break;
        case platform::WriteResult::kCannotCreate:
            return Acad::eFileAccessErr;
        case platform::WriteResult::kWriteFailed:
            files.Remove(unfinished);
            return Acad::eOutOfDisk;
    }
    const bool isNew = files.GetAttributes(path) == platform::kInvalidAttributes;
    if ((!isNew && files.Remove(path) != platform::kDone) ||
        files.Move(unfinished, path) != platform::kDone) {
        files.Remove(unfinished);
        return Acad::eFileAccessErr;
    }
    error.clear();
    return Acad::eOk;
}

}  // namespace workbench::drawing_file
