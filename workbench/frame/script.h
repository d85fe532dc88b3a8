// The text of a scripted session, taken apart into steps.
//
// A line is command-line input unless it begins with '@', which makes it a directive for the session itself.
// An empty line is input too: it presses Enter on the empty command line. Lines that begin with "@#" are
// comments. The directives, with the words a script uses, are described for writers of scripts in
// docs/workbench.md; a test holds that list and the table in script.cpp together.
//
// Arguments of a directive are separated by blanks. An argument in quotes may hold blanks; in it, two quotes
// are one. A backslash is always itself, so paths are written as they are.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace frame {

enum class ScriptAction {
    kInput,           // line for the command line
    kWait,            // part of a window's title
    kWaitText,        // part of a text in the top dialog
    kWaitControl,     // control
    kWaitGone,        // part of a window's title
    kWaitIdle,        //
    kClick,           // control
    kClickAt,         // control, x, y
    kDoubleClickAt,   // control, x, y
    kRightClickAt,    // control, x, y
    kHoldAt,          // control, x, y
    kDragTo,          // control, x, y
    kRelease,         //
    kPress,           // key, such as Enter or Ctrl+S
    kType,            // text
    kSetText,         // control, text
    kChoose,          // control, text of the item of a combo or list box
    kTree,            // control, texts of the items from the root on, separated by '\'
    kRightClickTree,  // control, texts of the items
    kRow,             // control, text of the row
    kClickRow,        // control, text of the row
    kDoubleClickRow,  // control, text of the row
    kRightClickRow,   // control, text of the row
    kMenu,            // texts of the menu items, separated by '\'
    kDock,            // palette set, one of left, right, floating
    kResize,          // palette set, width, height
    kCloseDialog,     //
    kResizeDialog,    // width, height
    kPicture,         // name without extension
    kAssertText,      // control, text
    kAssertEnabled,   // control, yes or no
    kAssertVisible,   // control, yes or no
    kAssertRow,       // control, text of the row
    kAssertNoRow,     // control, text of the row
    kAssertChoice,    // control, text of the chosen item of a combo or list box
    kAssertDocument,  // file name of the current drawing, or "none"
    kAssertTitle,     // part of the title of the top window
    kAssertPalette,   // palette set, one of left, right, floating, hidden
    kAssertOutput,    // text that the program has said
    kAssertFile,      // path of a file that exists
    kRun,             // command line of a program that ends with status 0
    kResources,       //
    kTimeout,         // seconds that every wait from here on may take
    kQuit,            //
};

struct ScriptStep {
    ScriptAction action = ScriptAction::kInput;
    std::vector<std::wstring> arguments;
    std::size_t line = 0;  // from 1
    std::wstring text;     // the line as written
};

struct Script {
    std::vector<ScriptStep> steps;
    // Empty if every line was understood. Otherwise a message for the first that was not, and no steps:
    // "line 3: @click wants 1 argument, has 2".
    std::wstring error;
};

// Takes the whole text of a script apart; lines end with LF or CR LF.
Script ParseScript(const std::wstring& text);

// The directives in the order of the table, with the number of arguments that each wants.
struct ScriptDirective {
    const wchar_t* name;  // without the '@'
    ScriptAction action;
    std::size_t arguments;
};
const std::vector<ScriptDirective>& ScriptDirectives();

// A text in quotes, as messages about a script show it.
std::wstring Quoted(const std::wstring& text);

}  // namespace frame
