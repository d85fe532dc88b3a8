#include "platform/memory_registry.h"

#include "platform/letter_case.h"

namespace platform {

namespace {

constexpr size_t kDwordBytes = 4;
constexpr size_t kLongestText = 1023;

std::vector<std::wstring> SplitKey(const std::wstring& key) {
    std::vector<std::wstring> names;
    size_t start = 0;
    while (start < key.size()) {
        const size_t end = std::min(key.find(L'\\', start), key.size());
        if (end > start) names.push_back(key.substr(start, end - start));
        start = end + 1;
    }
    return names;
}

const wchar_t* GetHiveName(Hive hive) {
    switch (hive) {
        case Hive::kClassesRoot:
            return L"HKCR";
        case Hive::kCurrentUser:
            return L"HKCU";
        case Hive::kLocalMachine:
            return L"HKLM";
    }
    return L"";
}

std::uint32_t DecodeDword(const std::string& bytes) {
    std::uint32_t value = 0;
    for (size_t i = 0; i < bytes.size(); ++i) {
        value |= static_cast<std::uint32_t>(static_cast<unsigned char>(bytes[i])) << (8 * i);
    }
    return value;
}

std::string EncodeDword(std::uint32_t value) {
    std::string bytes;
    for (size_t i = 0; i < kDwordBytes; ++i)
        bytes += static_cast<char>((value >> (8 * i)) & 0xFF);
    return bytes;
}

// The text up to its first zero.
std::wstring DecodeText(const std::string& bytes) {
    std::wstring text;
    for (size_t i = 0; i + 1 < bytes.size(); i += 2) {
        std::uint32_t unit = static_cast<unsigned char>(bytes[i]) |
                             static_cast<std::uint32_t>(static_cast<unsigned char>(bytes[i + 1])) << 8;
        if (unit == 0) break;
        const bool isPair = sizeof(wchar_t) > 2 && unit >= 0xDC00 && unit < 0xE000 && !text.empty() &&
                            text.back() >= 0xD800 && text.back() < 0xDC00;
        if (isPair) {
            unit = 0x10000 + ((static_cast<std::uint32_t>(text.back()) - 0xD800) << 10) + (unit - 0xDC00);
            text.pop_back();
        }
        text += static_cast<wchar_t>(unit);
    }
    return text;
}

}  // namespace

std::string EncodeRegistryText(const std::wstring& text) {
    std::string bytes;
    const auto add = [&](std::uint32_t unit) {
        bytes += static_cast<char>(unit & 0xFF);
        bytes += static_cast<char>((unit >> 8) & 0xFF);
    };
    for (const wchar_t ch : text) {
        const auto code = static_cast<std::uint32_t>(ch);
        if (code >= 0x10000) {
            add(0xD800 + ((code - 0x10000) >> 10));
            add(0xDC00 + ((code - 0x10000) & 0x3FF));
        } else {
            add(code);
        }
    }
    add(0);
    return bytes;
}

struct MemoryRegistry::Value {
    std::wstring name;
    RegistryType type;
    std::string bytes;
};

struct MemoryRegistry::Key {
    std::wstring name;
    std::map<std::wstring, Value> values;                  // by upper-case name
    std::map<std::wstring, std::unique_ptr<Key>> subkeys;  // by upper-case name
};

MemoryRegistry::MemoryRegistry(CallLog& log) : m_log(log) {
    for (const Hive hive : {Hive::kClassesRoot, Hive::kCurrentUser, Hive::kLocalMachine}) {
        m_hives[hive] = std::make_unique<Key>();
    }
}

MemoryRegistry::~MemoryRegistry() = default;

bool MemoryRegistry::IsRefused(Access access, const wchar_t* operation, Hive hive, const std::wstring& key,
                               const std::wstring& name) {
    bool refused = m_log.Record(operation, std::wstring(GetHiveName(hive)) + L"\\" + key + L"|" + name);
    const std::wstring wanted = ToUpper(key) + L"\\";
    for (const FaultRule& rule : m_faults) {
        refused |= rule.access == access && rule.hive == hive && wanted.rfind(rule.key, 0) == 0;
    }
    return refused;
}

MemoryRegistry::Key* MemoryRegistry::FindKey(Hive hive, const std::wstring& key) {
    Key* found = m_hives[hive].get();
    for (const std::wstring& name : SplitKey(key)) {
        const auto subkey = found->subkeys.find(ToUpper(name));
        if (subkey == found->subkeys.end()) return nullptr;
        found = subkey->second.get();
    }
    return found;
}

MemoryRegistry::Key& MemoryRegistry::MakeKey(Hive hive, const std::wstring& key) {
    Key* found = m_hives[hive].get();
    for (const std::wstring& name : SplitKey(key)) {
        std::unique_ptr<Key>& subkey = found->subkeys[ToUpper(name)];
        if (!subkey) {
            subkey = std::make_unique<Key>();
            subkey->name = name;
        }
        found = subkey.get();
    }
    return *found;
}

const MemoryRegistry::Value* MemoryRegistry::FindValue(Hive hive, const std::wstring& key,
                                                       const std::wstring& name) {
    const Key* found = FindKey(hive, key);
    if (!found) return nullptr;
    const auto value = found->values.find(ToUpper(name));
    return value == found->values.end() ? nullptr : &value->second;
}

bool MemoryRegistry::ReadDword(Hive hive, const std::wstring& key, const std::wstring& name,
                               std::uint32_t& value) {
    if (IsRefused(Access::kRead, L"ReadDword", hive, key, name)) return false;
    const Value* found = FindValue(hive, key, name);
    if (!found || found->bytes.size() > kDwordBytes) return false;
    value = DecodeDword(found->bytes);
    return true;
}

bool MemoryRegistry::ReadString(Hive hive, const std::wstring& key, const std::wstring& name,
                                std::wstring& text) {
    text.clear();
    if (IsRefused(Access::kRead, L"ReadString", hive, key, name)) return false;
    const Value* found = FindValue(hive, key, name);
    if (!found) return false;
    if (found->bytes.size() > 2 * (kLongestText + 1)) return false;
    text = DecodeText(found->bytes);
    if (text.size() <= kLongestText) return true;
    text.clear();
    return false;
}

bool MemoryRegistry::WriteDword(Hive hive, const std::wstring& key, const std::wstring& name,
                                std::uint32_t value) {
    if (IsRefused(Access::kWrite, L"WriteDword", hive, key, name)) return false;
    SetBytes(hive, key, name, RegistryType::kDword, EncodeDword(value));
    return true;
}

bool MemoryRegistry::WriteString(Hive hive, const std::wstring& key, const std::wstring& name,
                                 const std::wstring& text) {
    if (IsRefused(Access::kWrite, L"WriteString", hive, key, name)) return false;
    SetBytes(hive, key, name, RegistryType::kString, EncodeRegistryText(text));
    return true;
}

void MemoryRegistry::SetBytes(Hive hive, const std::wstring& key, const std::wstring& name, RegistryType type,
                              std::string bytes) {
    MakeKey(hive, key).values[ToUpper(name)] = {name, type, std::move(bytes)};
}

bool MemoryRegistry::DeleteValue(Hive hive, const std::wstring& key, const std::wstring& name) {
    if (IsRefused(Access::kWrite, L"DeleteValue", hive, key, name)) return false;
    Key* found = FindKey(hive, key);
    return found && found->values.erase(ToUpper(name)) > 0;
}

bool MemoryRegistry::RemoveKey(Hive hive, const std::wstring& key) {
    const std::vector<std::wstring> names = SplitKey(key);
    if (names.empty() || !FindKey(hive, key)) return false;
    Key* parent = m_hives[hive].get();
    for (size_t i = 0; i + 1 < names.size(); ++i)
        parent = parent->subkeys[ToUpper(names[i])].get();
    return parent->subkeys.erase(ToUpper(names.back())) > 0;
}

bool MemoryRegistry::DeleteEmptyKey(Hive hive, const std::wstring& key) {
    if (IsRefused(Access::kWrite, L"DeleteEmptyKey", hive, key, L"")) return false;
    const Key* found = FindKey(hive, key);
    return found && found->values.empty() && found->subkeys.empty() && RemoveKey(hive, key);
}

bool MemoryRegistry::DeleteTree(Hive hive, const std::wstring& key) {
    return !IsRefused(Access::kWrite, L"DeleteTree", hive, key, L"") && RemoveKey(hive, key);
}

std::vector<std::wstring> MemoryRegistry::GetSubkeys(Hive hive, const std::wstring& key) {
    std::vector<std::wstring> names;
    if (IsRefused(Access::kRead, L"GetSubkeys", hive, key, L"")) return names;
    if (const Key* found = FindKey(hive, key)) {
        for (const auto& [upper, subkey] : found->subkeys)
            names.push_back(subkey->name);
    }
    return names;
}

void MemoryRegistry::RefuseReads(Hive hive, const std::wstring& key) {
    m_faults.push_back({Access::kRead, hive, key.empty() ? key : ToUpper(key) + L"\\"});
}

void MemoryRegistry::RefuseWrites(Hive hive, const std::wstring& key) {
    m_faults.push_back({Access::kWrite, hive, key.empty() ? key : ToUpper(key) + L"\\"});
}

void MemoryRegistry::ClearFaults() {
    m_faults.clear();
}

}  // namespace platform
