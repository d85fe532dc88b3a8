// Files of the system and their texts.
#include "host/files.h"

#include <filesystem>

#include "host_fixture.h"

namespace workbench::test {
namespace {

namespace fs = std::filesystem;

class SystemFilesTest : public testing::Test {
  protected:
    SystemFilesTest() { fs::create_directories(m_folder); }
    ~SystemFilesTest() override {
        std::error_code error;
        fs::permissions(m_folder / L"a.txt", fs::perms::owner_write, fs::perm_options::add, error);
        fs::remove_all(m_folder, error);
    }
    std::wstring Path(const wchar_t* name) const { return (m_folder / name).wstring(); }

    fs::path m_folder =
        fs::temp_directory_path() /
        ("workbench_files_" + std::string(testing::UnitTest::GetInstance()->current_test_info()->name()));
    host::SystemFiles m_files;
};

TEST_F(SystemFilesTest, WrittenTextIsReadAgain) {
    EXPECT_TRUE(m_files.WriteText(Path(L"a.txt"), L"one\r\n\xE4\x20AC"));
    std::wstring text;
    EXPECT_TRUE(m_files.ReadText(Path(L"a.txt"), text));
    EXPECT_EQ(text, L"one\r\n\xE4\x20AC");
    m_files.Remove(Path(L"a.txt"));
    EXPECT_FALSE(m_files.Exists(Path(L"a.txt")));
    EXPECT_FALSE(m_files.ReadText(Path(L"a.txt"), text));
}

TEST_F(SystemFilesTest, Exists_IsForFilesOnly) {
    EXPECT_FALSE(m_files.Exists(m_folder.wstring()));
    EXPECT_FALSE(m_files.Exists(Path(L"none.txt")));
    EXPECT_FALSE(m_files.Exists(L""));
    EXPECT_FALSE(m_files.WriteText(Path(L"none/a.txt"), L"x"));
}

TEST_F(SystemFilesTest, WriteProtection_IsSeen) {
    m_files.WriteText(Path(L"a.txt"), L"x");
    EXPECT_FALSE(m_files.IsReadOnly(Path(L"a.txt")));
    constexpr auto kWrite = fs::perms::owner_write | fs::perms::group_write | fs::perms::others_write;
    fs::permissions(m_folder / L"a.txt", kWrite, fs::perm_options::remove);
    EXPECT_TRUE(m_files.IsReadOnly(Path(L"a.txt")));
    EXPECT_FALSE(m_files.IsReadOnly(Path(L"none.txt")));
}

TEST_F(SystemFilesTest, TimeText_HasItsForm) {
    const std::wstring text = m_files.TimeText();
    ASSERT_EQ(text.size(), 19u);
    EXPECT_EQ(text[4], L'-');
    EXPECT_EQ(text[13], L':');
}

TEST(HostTexts, DecodeText_ReadsBothEncodings) {
    EXPECT_EQ(host::DecodeText("\xEF\xBB\xBF\xC3\xA4"), L"\xE4");
    EXPECT_EQ(host::DecodeText("\xC3\xA4\xE2\x82\xAC"), L"\xE4\x20AC");
    EXPECT_EQ(host::DecodeText("\xE4x"), L"\xE4x");
    EXPECT_EQ(host::DecodeText("a\xC3"), L"a\xC3");
    EXPECT_EQ(host::EncodeText(L"\xE4\x20AC"), "\xC3\xA4\xE2\x82\xAC");
    EXPECT_EQ(host::EncodeText(host::DecodeText("\xF0\x9F\x98\x80")), "\xF0\x9F\x98\x80");
}

TEST(HostTexts, Paths) {
    EXPECT_EQ(host::FolderOf(L"C:\\a\\b.dwg"), L"C:\\a\\");
    EXPECT_EQ(host::FolderOf(L"b.dwg"), L"");
    EXPECT_EQ(host::NameOf(L"C:\\a/b.dwg"), L"b.dwg");
    EXPECT_EQ(host::StemOf(L"C:\\a.b\\c.dwg"), L"c");
    EXPECT_TRUE(host::IsSamePath(L"c:/A/b", L"C:\\a\\B"));
}

}  // namespace
}  // namespace workbench::test
