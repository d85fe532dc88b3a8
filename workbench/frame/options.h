// What the workbench's command line asks for.
#pragma once

#include <string>
#include <vector>

namespace frame {

struct Options {
    std::wstring lispFile;  // loaded into every document as it opens
    std::wstring module;    // path of the module to load; empty: the one beside the program
    bool withoutModule = false;
    std::wstring scriptFile;             // empty: the user works
    std::wstring transcriptFile;         // where all output goes; empty: nowhere
    std::wstring pictureFolder;          // where a script's pictures go; empty: they are left out
    std::wstring hostile;                // which calls of the module fail; empty: the host is an ordinary one
    bool withoutDrawing = false;         // starts without the new drawing
    std::vector<std::wstring> drawings;  // to be opened
    std::wstring error;                  // what is wrong with the arguments; empty for nothing
};

// Arguments without the program's name:
//   [/lisp FILE] [/module FILE | /nomodule] [/script FILE] [/transcript FILE] [/pictures DIR] [/nodrawing]
//   [/hostile PLAN] [DRAWING...]
// Switches may be written with '-' too, and in either case.
Options ParseOptions(const std::vector<std::wstring>& arguments);

}  // namespace frame
