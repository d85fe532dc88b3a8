#include "drawing_file/drawing_error.h"

namespace workbench::drawing_file {

std::wstring DescribeError(const DrawingError& error) {
    if (error.line == 0) return error.message;
    return L"Line " + std::to_wstring(error.line) + L": " + error.message;
}

}  // namespace workbench::drawing_file
