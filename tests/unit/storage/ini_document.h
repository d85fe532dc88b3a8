// An ini document over a file of the test, for the tests of the ini engine.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

#include "storage/ini_file.h"
#include "support/test_platform.h"

using Texts = std::vector<std::wstring>;

class IniDocumentTest : public SystemTest {
  protected:
    std::wstring Path() const { return InRoot(L"Document.ini"); }

    // The document of a file with these bytes; the current section is `section`.
    CKV2D_IniFile Open(std::string_view bytes, const std::wstring& section = L"") {
        PutFile(Path(), bytes);
        CKV2D_IniFile ini;
        EXPECT_EQ(ini.Open(Path()), kIniDone);
        ini.SetSection(section);
        return ini;
    }

    static std::wstring Get(const CKV2D_IniFile& ini, const std::wstring& key) {
        std::wstring text;
        ini.GetString(key, text, L"(missing)");
        return text;
    }

    static Texts GetKeys(const CKV2D_IniFile& ini) {
        Texts keys = {L"rest"};
        Texts values = {L"rest"};
        ini.GetSectionEntries(keys, values);
        EXPECT_EQ(keys.size(), values.size());
        return keys;
    }

    // The file after the document `bytes` was opened and one value was set.
    std::string SaveWith(std::string_view bytes, const std::wstring& section, const std::wstring& key,
                         const std::wstring& value) {
        {
            CKV2D_IniFile ini = Open(bytes, section);
            ini.SetString(key, value);
        }
        return GetBytes(Path());
    }
};
