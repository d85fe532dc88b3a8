// What is wrong with a drawing file, and where. Thrown inside this folder only: the functions that read a
// drawing catch it and hand the text on.
#pragma once

#include <cstddef>
#include <string>

namespace workbench::drawing_file {

struct DrawingError {
    std::size_t line;      // counted from 1
    std::wstring message;  // a sentence for the user, without the line number
};

// "Line 12: the message", or the message alone where the line is 0.
std::wstring DescribeError(const DrawingError& error);

}  // namespace workbench::drawing_file
