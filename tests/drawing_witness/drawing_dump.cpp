// Reads a drawing and prints what it holds; writes it again if a second name is given.
//
//   drawing_dump DRAWING [COPY]
//
// Exit status 1, and the reader's text on the error output, for a drawing that cannot be read.
#include <cstdio>
#include <fstream>
#include <iterator>
#include <string>

#include "database/database_data.h"
#include "drawing_content.h"
#include "drawing_file/drawing_reader.h"
#include "drawing_file/drawing_writer.h"

int main(int argc, char** argv) {
    if (argc < 2) return 2;
    std::ifstream file(argv[1], std::ios::binary);
    if (!file) {
        std::fprintf(stderr, "There is no file %s\n", argv[1]);
        return 1;
    }
    const std::string bytes((std::istreambuf_iterator<char>(file)), {});
    AcDbDatabase drawing(false, true);
    std::wstring error;
    if (!workbench::drawing_file::ReadDrawing(bytes, drawing, error)) {
        std::fprintf(stderr, "%ls\n", error.c_str());
        return 1;
    }
    std::fputs(DescribeContent(drawing).c_str(), stdout);
    if (argc > 2) std::ofstream(argv[2], std::ios::binary) << workbench::drawing_file::WriteDrawing(drawing);
    return 0;
}
