// A database in memory for fuzz targets, made once and changed by each execution: project 5 keeps its lines
// in one file, project 6 per drawing.
#pragma once

#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "database/line_list.h"
#include "fuzz_check.h"
#include "platform/memory_platform.h"
#include "sizes/size_table.h"

// Files by their exact paths and nothing else: millions of executions want little work for a call.
class FuzzFiles : public platform::Files {
  public:
    platform::ErrorCode ReadBytes(const std::wstring& path, platform::Sharing, std::string& bytes) override {
        const auto file = m_files.find(path);
        bytes = file == m_files.end() ? std::string() : file->second;
        return file == m_files.end() ? platform::kFileNotFound : platform::kDone;
    }
    platform::WriteResult WriteBytes(const std::wstring& path, std::string_view bytes) override {
        m_files[path] = bytes;
        return platform::WriteResult::kWritten;
    }
    std::uint32_t GetAttributes(const std::wstring& path) override {
        const bool isFolder = m_folders.count(path) != 0;
        return isFolder ? platform::kAttributeDirectory : platform::kInvalidAttributes;
    }
    platform::ErrorCode SetAttributes(const std::wstring&, std::uint32_t) override { return platform::kDone; }
    platform::ErrorCode GetStatus(const std::wstring&, platform::FileStatus&) override {
        return platform::kFileNotFound;
    }
    std::vector<platform::FoundEntry> Find(const std::wstring&) override { return {}; }
    platform::ErrorCode Move(const std::wstring&, const std::wstring&) override {
        return platform::kFileNotFound;
    }
    platform::ErrorCode Copy(const std::wstring&, const std::wstring&, bool) override {
        return platform::kFileNotFound;
    }
    platform::ErrorCode Remove(const std::wstring& path) override {
        return m_files.erase(path) != 0 ? platform::kDone : platform::kFileNotFound;
    }
    platform::ErrorCode MakeFolder(const std::wstring&) override { return platform::kDone; }
    platform::ErrorCode RemoveFolder(const std::wstring&) override { return platform::kDone; }

    void AddFolder(const std::wstring& path) { m_folders.insert(path); }

  private:
    std::unordered_map<std::wstring, std::string> m_files;
    std::unordered_set<std::wstring> m_folders;
};

// A registry with one value, the folder of the database, which every call reads anew.
class FuzzRegistry : public platform::Registry {
  public:
    explicit FuzzRegistry(std::wstring dataFolder) : m_dataFolder(std::move(dataFolder)) {}

    bool ReadDword(platform::Hive, const std::wstring&, const std::wstring&, std::uint32_t&) override {
        return false;
    }
    bool ReadString(platform::Hive, const std::wstring&, const std::wstring& name,
                    std::wstring& text) override {
        const bool isFound = name == L"DatafilesPath";
        text = isFound ? m_dataFolder : std::wstring();
        return isFound;
    }
    bool WriteDword(platform::Hive, const std::wstring&, const std::wstring&, std::uint32_t) override {
        return false;
    }
    bool WriteString(platform::Hive, const std::wstring&, const std::wstring&, const std::wstring&) override {
        return false;
    }
    bool DeleteValue(platform::Hive, const std::wstring&, const std::wstring&) override { return false; }
    bool DeleteEmptyKey(platform::Hive, const std::wstring&) override { return false; }
    bool DeleteTree(platform::Hive, const std::wstring&) override { return false; }
    std::vector<std::wstring> GetSubkeys(platform::Hive, const std::wstring&) override { return {}; }

  private:
    std::wstring m_dataFolder;
};

class FuzzDatabase {
  public:
    static constexpr wchar_t kData[] = L"C:\\D\\";
    static constexpr wchar_t kLocal[] = L"C:\\L\\";

    static FuzzDatabase& Get() {
        static FuzzDatabase database;
        return database;
    }

    void PutFile(const std::wstring& path, std::string_view bytes) { m_files.WriteBytes(path, bytes); }
    // Empty if there is no such file.
    std::string GetBytes(const std::wstring& path) {
        std::string bytes;
        m_files.ReadBytes(path, platform::Sharing::kReadOnly, bytes);
        return bytes;
    }

    // Forgets what an earlier execution left in memory.
    void Start() {
        DropLineCache();
        DropSizeTableCache();
    }

  private:
    FuzzDatabase() {
        platform::Install(&m_services);
        PutFile(kData + std::wstring(L"ProjectDatafile.ini"),
                "[ProjectList]\r\nKV2D_PRJ_5 = P\r\nKV2D_PRJ_6 = Q\r\n");
        const std::wstring projects = kData + std::wstring(L"Projects\\");
        m_files.AddFolder(projects + L"KV2D_PRJ_5 - P");
        m_files.AddFolder(projects + L"KV2D_PRJ_6 - Q");
        PutFile(projects + L"KV2D_PRJ_6 - Q\\General.ini",
                "[General]\r\nLocalLineIniPath = C:\\L\r\nProjectGuid = "
                "00000001-0000-0000-0000-000000000000\r\n");
    }

    FuzzFiles m_files;
    FuzzRegistry m_registry{kData};
    platform::MemoryPlatform m_memory;
    platform::Platform m_services{m_files,        m_registry,         m_memory.environment, m_memory.clock,
                                  m_memory.guids, m_memory.processes, m_memory.boxes,       m_memory.text};
};

// Hands out the input piece by piece.
class FuzzInput {
  public:
    FuzzInput(const unsigned char* data, size_t size) : m_rest(reinterpret_cast<const char*>(data), size) {}

    // The bytes up to the next zero byte.
    std::string_view TakePiece() {
        const size_t end = m_rest.find('\0');
        const std::string_view piece = m_rest.substr(0, end);
        m_rest.remove_prefix(end == std::string_view::npos ? m_rest.size() : end + 1);
        return piece;
    }
    std::wstring TakeText() { return platform::GetText().Widen(TakePiece()); }
    std::string_view TakeRest() { return m_rest; }
    bool IsEmpty() const { return m_rest.empty(); }

  private:
    std::string_view m_rest;
};
