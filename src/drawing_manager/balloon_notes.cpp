#include "drawing_manager/balloon_notes.h"

#include "storage/message_format.h"

namespace {

constexpr unsigned kErrorIcon = 32513;
constexpr unsigned kNoteIcon = 32516;
constexpr wchar_t kNoteTitle[] = L"Note";
constexpr int kLockedLines = 3;

}  // namespace

CBalloonNote MakeInvalidLocationNote() {
    return {L"Error", kErrorIcon,
            L"An invalid drawing location is specified in the standard. Use\n"
            L"the Standards Manager to specify the location of your drawings.",
            true};
}

CBalloonNote MakeDefaultDrawingNote() {
    return {
        kNoteTitle, kNoteIcon,
        L"Use the Standards Manager to specify the location of your drawings. Then they will appear here for "
        L"quick access."};
}

CBalloonNote MakeReadOnlyNote() {
    return {kNoteTitle, kNoteIcon, L"This drawing is marked as Read-Only"};
}

CBalloonNote MakeLockedNote(const std::wstring& strUser, const std::wstring& strMachine,
                            const std::wstring& strTime) {
    return {kNoteTitle, kNoteIcon,
            FormatMessageText(L"This drawing has been locked by AutoCAD\nUser: %s on %s\nDate: %s",
                              {strUser, strMachine, strTime}),
            false, kLockedLines};
}
