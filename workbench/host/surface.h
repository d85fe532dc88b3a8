// What the host asks of the program with the windows.
#pragma once

#include <string>

namespace workbench::host {

enum class SaveAnswer { kSave, kDiscard, kCancel };

class Surface {
  public:
    virtual ~Surface() = default;

    // Text for the command line, without a line end of its own.
    virtual void Print(const std::wstring& text) = 0;
    // A document with unsaved changes is about to close.
    virtual SaveAnswer AskSave(const std::wstring& documentTitle) = 0;
    // Where to save a drawing that has no file yet; empty to cancel.
    virtual std::wstring AskSavePath(const std::wstring& documentTitle) = 0;
    // The user wants what runs to end.
    virtual bool IsCancelled() { return false; }
    // Documents came, went, changed their title or were activated.
    virtual void DocumentsChanged() {}
    // A command or an expression has run in the active document: its drawing may look different.
    virtual void DrawingChanged() {}
    // The command QUIT.
    virtual void Quit() {}
};

}  // namespace workbench::host
