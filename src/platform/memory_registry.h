// A registry in memory: keys and values keep their case and compare without it, values have a type and bytes.
#pragma once

#include <map>
#include <memory>
#include <string>
#include <vector>

#include "platform/call_log.h"
#include "platform/platform.h"

namespace platform {

// The types of registry values, by their published numbers.
enum class RegistryType : std::uint32_t { kString = 1, kExpandableString = 2, kBinary = 3, kDword = 4 };

class MemoryRegistry : public Registry {
  public:
    explicit MemoryRegistry(CallLog& log);
    ~MemoryRegistry() override;

    bool ReadDword(Hive hive, const std::wstring& key, const std::wstring& name,
                   std::uint32_t& value) override;
    bool ReadString(Hive hive, const std::wstring& key, const std::wstring& name,
                    std::wstring& text) override;
    bool WriteDword(Hive hive, const std::wstring& key, const std::wstring& name,
                    std::uint32_t value) override;
    bool WriteString(Hive hive, const std::wstring& key, const std::wstring& name,
                     const std::wstring& text) override;
    bool DeleteValue(Hive hive, const std::wstring& key, const std::wstring& name) override;
    bool DeleteEmptyKey(Hive hive, const std::wstring& key) override;
    bool DeleteTree(Hive hive, const std::wstring& key) override;
    std::vector<std::wstring> GetSubkeys(Hive hive, const std::wstring& key) override;

    // Setting the scene. These neither count as calls nor fail by faults.
    void SetBytes(Hive hive, const std::wstring& key, const std::wstring& name, RegistryType type,
                  std::string bytes);

    // Every read or write of the key and of keys below it fails until ClearFaults. The empty key means all.
    void RefuseReads(Hive hive, const std::wstring& key);
    void RefuseWrites(Hive hive, const std::wstring& key);
    void ClearFaults();

  private:
    struct Key;
    struct Value;
    enum class Access { kRead, kWrite };
    struct FaultRule {
        Access access;
        Hive hive;
        std::wstring key;  // upper-case, ending in a backslash unless empty
    };

    bool IsRefused(Access access, const wchar_t* operation, Hive hive, const std::wstring& key,
                   const std::wstring& name);
    Key* FindKey(Hive hive, const std::wstring& key);
    Key& MakeKey(Hive hive, const std::wstring& key);
    const Value* FindValue(Hive hive, const std::wstring& key, const std::wstring& name);
    bool RemoveKey(Hive hive, const std::wstring& key);

    CallLog& m_log;
    std::map<Hive, std::unique_ptr<Key>> m_hives;
    std::vector<FaultRule> m_faults;
};

// Wide text as the registry stores it: two bytes a unit, the low one first, with an ending zero.
std::string EncodeRegistryText(const std::wstring& text);

}  // namespace platform
