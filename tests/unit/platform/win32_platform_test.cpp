// What only the platform of the product has: processes, boxes and code pages.
#include "platform/win32_platform.h"

#include <windows.h>

#include "platform/ansi_coding.h"
#include "support/test_platform.h"

namespace {

using platform::AnsiCoding;

constexpr UINT kClickInterval = 20;  // milliseconds

TEST(Win32Platform, RunAndWait_GivesTheExitStatus) {
    wchar_t shell[MAX_PATH] = {};
    GetEnvironmentVariableW(L"ComSpec", shell, MAX_PATH);
    EXPECT_EQ(platform::GetWin32Platform().processes.RunAndWait(shell, {L"cmd", L"/c", L"exit", L"3"}), 3);
}

TEST(Win32Platform, RunAndWait_OfMissingProgram_IsMinusOne) {
    EXPECT_EQ(platform::GetWin32Platform().processes.RunAndWait(L"C:\\no\\such.exe", {L"such"}), -1);
}

void CALLBACK ClickYes(HWND, UINT, UINT_PTR timer, DWORD) {
    const HWND box = FindWindowW(L"#32770", L"Tessarc box test");
    if (!box) return;
    wchar_t text[64] = {};
    GetDlgItemTextW(box, 0xFFFF, text, 64);
    KillTimer(nullptr, timer);
    PostMessageW(box, WM_COMMAND, std::wstring(text) == L"100 %s" ? IDYES : IDNO, 0);
}

TEST(Win32Platform, Box_ShowsTheTextAndGivesTheAnswer) {
    SetTimer(nullptr, 0, kClickInterval, ClickYes);
    EXPECT_EQ(platform::GetWin32Platform().boxes.Show(platform::BoxOwner::kHostMainWindow, L"100 %s",
                                                      L"Tessarc box test", MB_YESNO),
              platform::kAnswerYes);
}

TEST(AnsiCodingTest, TwoByteCodePage_DecodesWholeCharacters) {
    AnsiCoding coding(932);
    EXPECT_EQ(coding.GetByteTable(), nullptr);
    EXPECT_EQ(coding.Widen("a\x83\x5C]"), L"a\u30BD]");  // the second byte is the code of a backslash
    EXPECT_EQ(coding.Narrow(L"a\u30BD]"), "a\x83\x5C]");
}

TEST(AnsiCodingTest, TwoByteCodePage_HalfACharacter_Survives) {
    AnsiCoding coding(932);
    for (const std::string bytes : {"abc\x83", "\x83 = x", "\xFF\xFE", "\xA0\x83\x83\x83"}) {
        EXPECT_EQ(coding.Narrow(coding.Widen(bytes)), bytes);
    }
}

TEST(AnsiCodingTest, Utf8_DecodesAndKeepsWhatDoesNotDecode) {
    AnsiCoding coding(CP_UTF8);
    EXPECT_EQ(coding.Widen("\xC3\xA4 \xF0\x9F\x98\x80"), L"\u00E4 \xD83D\xDE00");
    EXPECT_EQ(coding.Narrow(L"\u00E4 \xD83D\xDE00"), "\xC3\xA4 \xF0\x9F\x98\x80");
    for (const std::string bytes :
         {"\xC3", "x\xC3 = y", "\xFF", "\xED\xA0\x80", "\xF0\x9F\x98", "\xED\xB2\x80"}) {
        EXPECT_EQ(coding.Narrow(coding.Widen(bytes)), bytes);
    }
}

TEST(AnsiCodingTest, EveryPairOfBytes_Survives_WhereTheCodePageHasNoDoublets) {
    for (const unsigned codePage : {1250u, 1251u, 1252u, 1253u, 936u, 65001u}) {
        AnsiCoding coding(codePage);
        size_t lost = 0;
        for (int first = 0x80; first < 0x100; ++first) {
            for (int second = 0; second < 0x100; ++second) {
                const std::string bytes = {static_cast<char>(first), static_cast<char>(second)};
                lost += coding.Narrow(coding.Widen(bytes)) != bytes;
            }
        }
        EXPECT_EQ(lost, 0u) << codePage;
    }
}

TEST(AnsiCodingTest, SingleByteCodePages_HaveATable) {
    EXPECT_NE(AnsiCoding(1252).GetByteTable(), nullptr);
    EXPECT_NE(AnsiCoding(1251).GetByteTable(), nullptr);
    EXPECT_EQ(AnsiCoding(CP_UTF8).GetByteTable(), nullptr);
}

}  // namespace
