#include "support/ini_script.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <optional>
#include <vector>

#include "platform/memory_platform.h"
#include "storage/ini_file.h"
#include "support/reference_ini.h"
#include "support/two_byte_coding.h"

namespace {

constexpr wchar_t kPath[] = L"C:\\Document.ini";

// A disk with one file: nothing to look up and nothing to note, since a fuzzer comes here a million times.
class OneFile : public platform::Files {
  public:
    std::string m_bytes;
    bool m_refusesWriting = false;
    size_t m_writes = 0;

    platform::ErrorCode ReadBytes(const std::wstring&, platform::Sharing, std::string& bytes) override {
        bytes = m_bytes;
        return platform::kDone;
    }
    platform::WriteResult WriteBytes(const std::wstring&, std::string_view bytes) override {
        if (m_refusesWriting) return platform::WriteResult::kCannotCreate;
        m_bytes = bytes;
        ++m_writes;
        return platform::WriteResult::kWritten;
    }
    std::uint32_t GetAttributes(const std::wstring&) override { return 0; }
    platform::ErrorCode SetAttributes(const std::wstring&, std::uint32_t) override {
        return platform::kAccessDenied;
    }
    platform::ErrorCode GetStatus(const std::wstring&, platform::FileStatus&) override {
        return platform::kAccessDenied;
    }
    std::vector<platform::FoundEntry> Find(const std::wstring&) override { return {}; }
    platform::ErrorCode Move(const std::wstring&, const std::wstring&) override {
        return platform::kAccessDenied;
    }
    platform::ErrorCode Copy(const std::wstring&, const std::wstring&, bool) override {
        return platform::kAccessDenied;
    }
    platform::ErrorCode Remove(const std::wstring&) override { return platform::kAccessDenied; }
    platform::ErrorCode MakeFolder(const std::wstring&) override { return platform::kAccessDenied; }
    platform::ErrorCode RemoveFolder(const std::wstring&) override { return platform::kAccessDenied; }
};

struct Stage {
    OneFile file;
    TwoByteCoding twoByteCoding;
    platform::MemoryPlatform memory;
    platform::Platform singleByte{file,         memory.registry,  memory.environment, memory.clock,
                                  memory.guids, memory.processes, memory.boxes,       memory.text};
    platform::Platform twoByte{file,         memory.registry,  memory.environment, memory.clock,
                               memory.guids, memory.processes, memory.boxes,       twoByteCoding};
};

// Keys, values and sections of the operations: a few names that files use too, among them hard ones.
const std::array<std::wstring, 32> kTexts = {L"",
                                             L"a",
                                             L"A",
                                             L"b",
                                             L"B",
                                             L"ab",
                                             L"[a]",
                                             L" a ",
                                             L"[ A ]",
                                             L"\ta\n",
                                             L"a]b",
                                             L"1",
                                             L"2",
                                             L"10",
                                             L"x = y",
                                             L"KV2D_LINE_1",
                                             L"=",
                                             L"a\nb",
                                             L"\u00E4",
                                             L"\u20AC",
                                             L"\u03A9",
                                             L"?",
                                             L"\u4E00",
                                             L"\u4E1B\u4E1D",
                                             L"\xDC81",
                                             L"line 1\r",
                                             L"General",
                                             L"LineList",
                                             L"LINELIST",
                                             L"\u00C4\u4E00",
                                             L"KV2D_LINE_10",
                                             L" = "};

constexpr unsigned kMostOperations = 12;

class Player {
  public:
    Player(Stage& stage, std::string_view script) : m_stage(stage) {
        const auto take = [&script] {
            if (script.empty()) return 0u;
            const unsigned byte = static_cast<unsigned char>(script.front());
            script.remove_prefix(1);
            return byte;
        };
        const unsigned flags = take();
        m_isCaseSensitive = (flags & 3) != 3;
        m_usesTwoBytes = (flags & 4) != 0;
        m_separator = (flags & 0x18) == 0x18 ? L"=" : L" = ";
        const unsigned operations = take() % kMostOperations;
        for (unsigned i = 0; i < operations; ++i) {
            m_operations.push_back({take(), take(), take()});
        }
        m_stage.file.m_bytes = script;
    }

    void Play() {
        platform::Platform* previous =
            platform::Install(m_usesTwoBytes ? &m_stage.twoByte : &m_stage.singleByte);
        m_original = m_stage.file.m_bytes;
        m_stage.file.m_refusesWriting = false;
        m_ini.emplace();
        m_ini->SetCaseSensitive(m_isCaseSensitive);
        m_ini->SetSeparator(m_separator);
        m_reference.m_isCaseSensitive = m_isCaseSensitive;
        m_reference.m_separator = m_separator;
        Expect(m_ini->Open(kPath) == kIniDone, "Open");
        m_reference.Load(m_original);
        CompareAll();
        for (const Operation& operation : m_operations)
            Step(operation);
        CompareAll();
        Finish();
        platform::Install(previous);
    }

  private:
    struct Operation {
        unsigned code;
        unsigned first;
        unsigned second;
    };

    void Expect(bool condition, const char* what) {
        if (condition) return;
        std::fprintf(stderr, "The document differs from the reference: %s\n", what);
        std::abort();
    }

    static const std::wstring& Text(unsigned number) { return kTexts[number % kTexts.size()]; }

    // A key that the document holds, or one of the prepared texts.
    std::wstring Key(unsigned number) const {
        const auto& rows = m_reference.GetRows();
        return number < 128 || rows.empty() ? Text(number) : rows[number % rows.size()].key;
    }

    std::wstring Section(unsigned number) const {
        const auto& rows = m_reference.GetRows();
        return number < 128 || rows.empty() ? Text(number) : rows[number % rows.size()].section;
    }

    void Step(const Operation& operation) {
        const std::wstring key = Key(operation.first);
        const std::wstring value = Text(operation.second);
        switch (operation.code % 12) {
            case 0:
            case 1:
            case 2:
                m_ini->SetString(key, value);
                m_reference.SetString(key, value);
                break;
            case 3:
            case 4:
                m_ini->SetSection(Section(operation.first));
                m_reference.SetSection(Section(operation.first));
                break;
            case 5:
                CompareKey(key);
                break;
            case 6:
                CompareKeyOf(value);
                break;
            case 7:
                CompareSection();
                break;
            case 8:
                SaveBoth(operation.second % 4 == 0);
                break;
            case 9:
                MergeBoth();
                break;
            case 10:
                CopyAndReplace(key, value);
                break;
            case 11:
                ClearSometimes(operation.second);
                break;
        }
        Expect(m_ini->IsDirty() == m_reference.IsDirty(), "dirty mark");
    }

    void CompareKey(const std::wstring& key) {
        std::wstring text = L"rest";
        m_ini->GetString(key, text, L"default");
        Expect(text == m_reference.GetString(key, L"default"), "GetString");
    }

    void CompareKeyOf(const std::wstring& value) {
        std::wstring key = L"rest";
        m_ini->FindKeyByValue(value, key);
        Expect(key == m_reference.FindKeyByValue(value), "FindKeyByValue");
    }

    void CompareSection() {
        std::vector<std::wstring> keys = {L"rest"};
        std::vector<std::wstring> values;
        m_ini->GetSectionEntries(keys, values);
        const std::vector<ReferenceIni::Row> rows = m_reference.GetSectionRows();
        Expect(keys.size() == rows.size() && values.size() == rows.size(), "number of entries");
        for (size_t i = 0; i < rows.size(); ++i) {
            Expect(keys[i] == rows[i].key && values[i] == rows[i].value, "entry");
        }
    }

    void SaveBoth(bool refused) {
        m_stage.file.m_refusesWriting = refused;
        const bool dirty = m_ini->IsDirty();
        const size_t writes = m_stage.file.m_writes;
        const int result = m_ini->Save(false);
        m_stage.file.m_refusesWriting = false;
        if (!dirty || refused) {
            Expect(result == (dirty ? kIniCannotCreate : kIniDone), "result of Save");
            Expect(m_stage.file.m_writes == writes, "a clean document was written");
            return;
        }
        Expect(result == kIniDone && m_stage.file.m_bytes == m_reference.Save(), "saved bytes");
    }

    void MergeBoth() {
        CTextStream stream(m_original);
        m_ini->ReadFrom(stream);
        m_reference.Merge(m_original);
    }

    // Goes on with a copy, and changes the one it was taken from.
    void CopyAndReplace(const std::wstring& key, const std::wstring& value) {
        CKV2D_IniFile copy = *m_ini;
        m_ini->SetAutoSave(false);
        m_ini->SetString(key, value + L"x");
        m_ini->Clear();
        m_ini.emplace(copy);
        copy.SetAutoSave(false);
    }

    void ClearSometimes(unsigned number) {
        if (number % 8 != 0) return;
        m_ini->Clear();
        m_reference.Clear();
    }

    void CompareAll() {
        Expect(m_ini->GetSection() == m_reference.GetSection(), "current section");
        Expect(m_ini->GetRowCount() == m_reference.GetRows().size(), "number of rows");
        const std::wstring section = m_reference.GetSection();
        std::wstring last = L"\n";
        for (const ReferenceIni::Row& row : m_reference.GetRows()) {
            if (row.section == last) continue;
            last = row.section;
            m_ini->SetSection(row.section);
            m_reference.SetSection(row.section);
            CompareSection();
            CompareKey(row.key);
            CompareKeyOf(row.value);
        }
        m_ini->SetSection(section);
        m_reference.SetSection(section);
    }

    // The destructor saves what is changed; reading the result again gives what the reference reads.
    void Finish() {
        const std::string before = m_stage.file.m_bytes;
        const bool dirty = m_ini->IsDirty();
        m_ini.reset();
        Expect(m_stage.file.m_bytes == (dirty ? m_reference.Save() : before), "bytes at the end");
        m_ini.emplace();
        m_ini->SetCaseSensitive(m_isCaseSensitive);
        m_ini->SetSeparator(m_separator);
        m_ini->Open(kPath);
        ReferenceIni again;
        again.m_isCaseSensitive = m_isCaseSensitive;
        again.m_separator = m_separator;
        again.Load(m_stage.file.m_bytes);
        m_reference = again;
        CompareAll();
        Expect(!m_ini->IsDirty(), "dirty mark after loading");
        m_ini.reset();
    }

    Stage& m_stage;
    bool m_isCaseSensitive = true;
    bool m_usesTwoBytes = false;
    std::wstring m_separator;
    std::vector<Operation> m_operations;
    std::string m_original;
    std::optional<CKV2D_IniFile> m_ini;
    ReferenceIni m_reference;
};

}  // namespace

void PlayIniScript(std::string_view script) {
    static Stage stage;
    Player(stage, script).Play();
}
