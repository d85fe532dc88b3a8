// Any bytes as the files of specs, of switched-on specs and of clients: the lists must be those of a plain
// search.
//
// Input: pieces that end in a zero byte: SpecDatafile.ini, Specs.ini, ClientDatafile.ini, a text to look up.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <utility>

#include "database/client_list.h"
#include "database/id_lists.h"
#include "database/spec_list.h"
#include "fuzz_database.h"
#include "platform/letter_case.h"
#include "storage/path_text.h"

namespace {

// What a long file shows, a short one shows too, in a hundredth of the time.
constexpr std::size_t kLongestInput = 768;

const std::wstring kSpecs = std::wstring(FuzzDatabase::kData) + L"SpecDatafile.ini";
const std::wstring kEnabled = std::wstring(FuzzDatabase::kData) + L"Projects\\KV2D_PRJ_5 - P\\Specs.ini";
const std::wstring kClients = std::wstring(FuzzDatabase::kData) + L"ClientDatafile.ini";

using Ids = std::vector<int>;
using Texts = std::vector<std::wstring>;

// The rows of a section that tells owners: spec and owner, in row order.
std::vector<std::pair<int, int>> ListOwners(CKV2D_IniFile& ini, const wchar_t* section) {
    ini.SetSection(section);
    Texts keys, values;
    ini.GetSectionEntries(keys, values);
    std::vector<std::pair<int, int>> owners;
    for (size_t i = 0; i < keys.size(); ++i)
        owners.emplace_back(SpecIdFromKey(keys[i], false), LeadingInteger(values[i]));
    return owners;
}

void CheckScopes() {
    Ids ids, scopes;
    Texts names;
    FUZZ_CHECK(GetSpecScopes(ids, scopes, names) == kSpecDone);
    FUZZ_CHECK(ids.size() == scopes.size() && ids.size() == names.size());
    CKV2D_IniFile ini;
    ini.Open(kSpecs);
    const auto clients = ListOwners(ini, L"ClientSpecs");
    const auto projects = ListOwners(ini, L"ProjectSpecs");
    // A search through the rows, one after the other.
    for (size_t i = 0; i < ids.size(); ++i) {
        const auto isRowOfSpec = [&](const std::pair<int, int>& row) { return row.first == ids[i]; };
        const auto client = std::find_if(clients.begin(), clients.end(), isRowOfSpec);
        const auto project = std::find_if(projects.begin(), projects.end(), isRowOfSpec);
        int scope = 0;
        if (client != clients.end()) {
            scope = static_cast<int>(0u - static_cast<unsigned>(client->second));
        } else if (project != projects.end()) {
            scope = project->second;
        }
        FUZZ_CHECK(scopes[i] == scope);
    }
}

int SearchSpec(const std::wstring& text, const Ids& ids, const Texts& names) {
    int id = 0;
    if (FindIdInText(text, L"KV2D_SPEC_", id)) return id;
    for (size_t i = 0; i < ids.size(); ++i) {
        if (platform::EqualWithoutCase(names[i], text)) return ids[i];
    }
    return 0;
}

void CheckEnabledSpecs(const std::wstring& text) {
    CKV2D_IniFile specs, enabled;
    specs.Open(kSpecs);
    Ids ids, enabledIds;
    Texts names, keys, values;
    GetSpecListFromIni(specs, ids, names);
    FUZZ_CHECK(SpecIdFromKey(text, true) == SearchSpec(text, ids, names));
    FUZZ_CHECK(GetProjectSpecIds(5, enabledIds) == kSpecDone);
    enabled.Open(kEnabled);
    enabled.SetSection(L"SpecList");
    enabled.GetSectionEntries(keys, values);
    FUZZ_CHECK(enabledIds.size() == keys.size());
    for (size_t i = 0; i < keys.size(); ++i)
        FUZZ_CHECK(enabledIds[i] == SearchSpec(keys[i], ids, names));
}

void CheckProjectSpecs() {
    Ids ids, enabledIds, expectedIds;
    Texts names, expectedNames;
    FUZZ_CHECK(GetProjectSpecs(5, ids, names) == kSpecDone);
    FUZZ_CHECK(ids.size() == names.size());
    int client = 0;
    std::wstring clientName;
    FUZZ_CHECK(GetClientOfProject(5, client, clientName));
    Ids blockIds[3];
    Texts blockNames[3];
    GetSpecsByScope(client, 5, blockIds[0], blockNames[0], blockIds[1], blockNames[1], blockIds[2],
                    blockNames[2], false);
    GetProjectSpecIds(5, enabledIds);
    for (int block = 0; block < 3; ++block) {
        FUZZ_CHECK(std::is_sorted(blockNames[block].begin(), blockNames[block].end()));
        for (size_t i = 0; i < blockIds[block].size(); ++i) {
            if (std::count(enabledIds.begin(), enabledIds.end(), blockIds[block][i]) == 0) continue;
            expectedIds.push_back(blockIds[block][i]);
            expectedNames.push_back(blockNames[block][i]);
        }
    }
    FUZZ_CHECK(ids == expectedIds && names == expectedNames);
}

void CheckClients() {
    Ids ids, projects;
    Texts names;
    FUZZ_CHECK(GetClientList(ids, names));
    FUZZ_CHECK(ids.size() == names.size());
    for (int id : ids)
        FUZZ_CHECK(GetClientProjects(id, projects) == (id > 0));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    size = std::min(size, kLongestInput);
    FuzzDatabase& database = FuzzDatabase::Get();
    database.Start();
    FuzzInput input(data, size);
    const std::string_view specs = input.TakePiece();
    const std::string_view enabled = input.TakePiece();
    const std::string_view clients = input.TakePiece();
    database.PutFile(kSpecs, specs);
    database.PutFile(kEnabled, enabled);
    database.PutFile(kClients, clients);
    CheckScopes();
    CheckEnabledSpecs(input.TakeText());
    CheckProjectSpecs();
    CheckClients();
    // Nobody writes these files here.
    FUZZ_CHECK(database.GetBytes(kSpecs) == specs && database.GetBytes(kEnabled) == enabled &&
               database.GetBytes(kClients) == clients);
    return 0;
}
