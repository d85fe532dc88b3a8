// The balloons' words and measures.
#include "drawing_manager/balloon_notes.h"

#include <gtest/gtest.h>

namespace {

void ExpectNote(const CBalloonNote& note, const std::wstring& text, int lines) {
    EXPECT_EQ(note.strTitle, L"Note");
    EXPECT_EQ(note.uIconId, 32516u);
    EXPECT_EQ(note.strText, text);
    EXPECT_FALSE(note.bUp);
    EXPECT_EQ(note.nLines, lines);
}

}  // namespace

TEST(BalloonNotes, InvalidLocation_IsAnErrorAboveItsPlace) {
    const CBalloonNote note = MakeInvalidLocationNote();
    EXPECT_EQ(note.strTitle, L"Error");
    EXPECT_EQ(note.uIconId, 32513u);
    EXPECT_EQ(
        note.strText,
        L"An invalid drawing location is specified in the standard. Use\nthe Standards Manager to specify "
        L"the location of your drawings.");
    EXPECT_TRUE(note.bUp);
    EXPECT_EQ(note.nLines, -1);
}

TEST(BalloonNotes, OnlyTheDefaultDrawing_IsANoteBelow) {
    ExpectNote(
        MakeDefaultDrawingNote(),
        L"Use the Standards Manager to specify the location of your drawings. Then they will appear here "
        L"for quick access.",
        -1);
}

TEST(BalloonNotes, ReadOnly_IsANoteBelow) {
    ExpectNote(MakeReadOnlyNote(), L"This drawing is marked as Read-Only", -1);
}

TEST(BalloonNotes, Locked_TellsWhoWhereAndWhenInThreeLines) {
    ExpectNote(MakeLockedNote(L"anna 100%s", L"WS%d", L"today"),
               L"This drawing has been locked by AutoCAD\nUser: anna 100%s on WS%d\nDate: today", 3);
}
