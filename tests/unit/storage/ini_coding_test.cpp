// The ini document in a code page with characters of two bytes, whose second byte may look like a bracket.
#include <gtest/gtest.h>

#include "storage/ini_file.h"
#include "support/test_platform.h"
#include "support/two_byte_coding.h"

namespace {

constexpr wchar_t kPath[] = L"C:\\Document.ini";

class IniCodingTest : public testing::Test {
  protected:
    IniCodingTest() { m_previous = platform::Install(&m_services); }
    ~IniCodingTest() override { platform::Install(m_previous); }

    std::string SaveWith(const std::string& bytes, const std::wstring& section, const std::wstring& key,
                         const std::wstring& value) {
        m_memory.files.AddFile(kPath, bytes);
        {
            CKV2D_IniFile ini;
            ini.Open(kPath);
            ini.SetSection(section);
            ini.SetString(key, value);
        }
        std::string saved;
        m_memory.files.PeekBytes(kPath, saved);
        return saved;
    }

    platform::MemoryPlatform m_memory;
    TwoByteCoding m_coding;
    platform::Platform m_services{m_memory.files, m_memory.registry,  m_memory.environment, m_memory.clock,
                                  m_memory.guids, m_memory.processes, m_memory.boxes,       m_coding};
    platform::Platform* m_previous = nullptr;
};

std::wstring Decoded(const char* bytes) {
    return TwoByteCoding().Widen(bytes);
}

TEST_F(IniCodingTest, SecondByteLikeABracket_IsNoBracket) {
    // The last character of the first line ends in the byte of "]", so the line is no header.
    EXPECT_EQ(SaveWith("[\x81\x5D\r\n\x81\x5B = \x81\x5D\r\n", L"", L"a", L"1"),
              "a = 1\r\n\x81\x5B = \x81\x5D\r\n");
    EXPECT_EQ(SaveWith("[\x81\x5D]\r\nk = v\r\n", Decoded("\x81\x5D"), L"a", L"1"),
              "[\x81\x5D]\r\na = 1\r\nk = v\r\n");
}

TEST_F(IniCodingTest, KeysAreFoundByTheirCharacters) {
    m_memory.files.AddFile(kPath, "\x90\x5B\x91\x40 = \x81\x5D\r\n");
    CKV2D_IniFile ini;
    ini.Open(kPath);
    std::wstring text;
    ini.GetString(Decoded("\x90\x5B\x91\x40"), text, L"");
    EXPECT_EQ(text, Decoded("\x81\x5D"));
}

TEST_F(IniCodingTest, BytesThatDoNotDecode_Survive) {
    const std::string row = "\xFF\x81 = \x81 \xA0\r\n";
    EXPECT_EQ(SaveWith(row, L"", L"a", L"1"), "a = 1\r\n" + row);
}

TEST_F(IniCodingTest, SecondCodeOfACharacter_IsTheSameKeyButKeepsItsBytes) {
    m_coding.m_hasDoublets = true;
    const std::string row = "\xE0\x41 = \xE0\x42\r\n";
    EXPECT_EQ(SaveWith("[\xE0\x43]\r\n" + row, m_coding.Widen("\x90\x43"), L"a", L"1"),
              "[\xE0\x43]\r\na = 1\r\n" + row);
    // The value is replaced, the key's bytes stay.
    EXPECT_EQ(SaveWith(row, L"", m_coding.Widen("\x90\x41"), L"2"), "\xE0\x41 = 2\r\n");
    // Setting the value that it has changes nothing.
    EXPECT_EQ(SaveWith(row, L"", m_coding.Widen("\x90\x41"), m_coding.Widen("\x90\x42")), row);
}

TEST_F(IniCodingTest, SortingIsByCharacterCode) {
    // The second row's first byte is smaller, its character is not ASCII and greater.
    EXPECT_EQ(SaveWith("\x81\x40 = 1\r\nz = 2\r\n\x90\x40 = 3\r\n", L"", L"a", L"0"),
              "a = 0\r\nz = 2\r\n\x81\x40 = 1\r\n\x90\x40 = 3\r\n");
}

TEST_F(IniCodingTest, CharacterOutsideTheCodePage_IsWrittenAsQuestionMark) {
    EXPECT_EQ(SaveWith("", L"\u20AC", L"\u20AC", L"\u20AC\n"), "[?]\r\n? = ?\r\n\r\n");
}

}  // namespace
