// The files that the host itself looks at.
#pragma once

#include <string>

namespace workbench::host {

class Files {
  public:
    virtual ~Files() = default;
    virtual bool Exists(const std::wstring& path) = 0;
    virtual bool IsReadOnly(const std::wstring& path) = 0;
    // False if the file cannot be read. The text is decoded from UTF-8 where it is that, else from
    // Windows-1252.
    virtual bool ReadText(const std::wstring& path, std::wstring& text) = 0;
    // Creates or replaces a small text file in UTF-8.
    virtual bool WriteText(const std::wstring& path, const std::wstring& text) = 0;
    virtual void Remove(const std::wstring& path) = 0;
    // The present local time, as lock files tell it: "2026-11-21 10:30:00".
    virtual std::wstring TimeText() = 0;
};

// The files of the system.
class SystemFiles : public Files {
  public:
    bool Exists(const std::wstring& path) override;
    bool IsReadOnly(const std::wstring& path) override;
    bool ReadText(const std::wstring& path, std::wstring& text) override;
    bool WriteText(const std::wstring& path, const std::wstring& text) override;
    void Remove(const std::wstring& path) override;
    std::wstring TimeText() override;
};

// Bytes of a text file as text, and back as UTF-8.
std::wstring DecodeText(const std::string& bytes);
std::string EncodeText(const std::wstring& text);

// Parts of a path with backslashes or slashes: the folder with its separator, the last component, and that
// without its extension.
std::wstring FolderOf(const std::wstring& path);
std::wstring NameOf(const std::wstring& path);
std::wstring StemOf(const std::wstring& path);
// Slashes and backslashes, upper and lower case do not count.
bool IsSamePath(const std::wstring& left, const std::wstring& right);

}  // namespace workbench::host
