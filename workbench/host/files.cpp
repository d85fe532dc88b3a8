#include "files.h"

#include <cstdint>
#include <ctime>
#include <cwchar>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <system_error>

#include "database/object_data.h"

namespace workbench::host {
namespace {

namespace fs = std::filesystem;

// Decodes one letter at `at`; false if the bytes are no UTF-8.
bool DecodeLetter(const std::string& bytes, std::size_t& at, std::uint32_t& code) {
    const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(bytes[i]); };
    const unsigned first = byte(at);
    const int more = first < 0x80 ? 0 : first >= 0xF0 && first < 0xF5 ? 3 : first >= 0xE0 ? 2 : 1;
    const bool isStart = first < 0x80 || (first >= 0xC2 && first < 0xF5);
    if (!isStart || at + static_cast<std::size_t>(more) >= bytes.size()) {
        return false;
    }
    constexpr unsigned kMasks[] = {0x7F, 0x1F, 0x0F, 0x07};
    code = first & kMasks[more];
    for (int i = 1; i <= more; ++i) {
        const unsigned next = byte(at + static_cast<std::size_t>(i));
        if ((next & 0xC0) != 0x80) {
            return false;
        }
        code = code << 6 | (next & 0x3F);
    }
    at += static_cast<std::size_t>(more) + 1;
    return true;
}

void AppendLetter(std::wstring& text, std::uint32_t code) {
    if (sizeof(wchar_t) == 2 && code > 0xFFFF) {
        text.push_back(static_cast<wchar_t>(0xD800 + ((code - 0x10000) >> 10)));
        text.push_back(static_cast<wchar_t>(0xDC00 + ((code - 0x10000) & 0x3FF)));
    } else {
        text.push_back(static_cast<wchar_t>(code));
    }
}

void AppendBytes(std::string& bytes, std::uint32_t code) {
    const auto put = [&bytes](std::uint32_t byte) { bytes.push_back(static_cast<char>(byte)); };
    if (code < 0x80) {
        put(code);
    } else if (code < 0x800) {
        put(0xC0 | code >> 6);
        put(0x80 | (code & 0x3F));
    } else if (code < 0x10000) {
        put(0xE0 | code >> 12);
        put(0x80 | (code >> 6 & 0x3F));
        put(0x80 | (code & 0x3F));
    } else {
        put(0xF0 | code >> 18);
        put(0x80 | (code >> 12 & 0x3F));
        put(0x80 | (code >> 6 & 0x3F));
        put(0x80 | (code & 0x3F));
    }
}

bool IsSeparator(wchar_t letter) {
    return letter == L'\\' || letter == L'/';
}

}  // namespace

std::wstring DecodeText(const std::string& bytes) {
    std::wstring text;
    const bool hasMark = bytes.starts_with("\xEF\xBB\xBF");
    std::size_t at = hasMark ? 3 : 0;
    std::uint32_t code = 0;
    while (at < bytes.size()) {
        if (!DecodeLetter(bytes, at, code)) {
            text.clear();
            for (const char byte : bytes) {
                text.push_back(static_cast<wchar_t>(static_cast<unsigned char>(byte)));
            }
            return text;
        }
        AppendLetter(text, code);
    }
    return text;
}

std::string EncodeText(const std::wstring& text) {
    std::string bytes;
    for (std::size_t i = 0; i < text.size(); ++i) {
        auto code = static_cast<std::uint32_t>(text[i]);
        const bool isPair = code >= 0xD800 && code < 0xDC00 && i + 1 < text.size();
        if (isPair) {
            code = 0x10000 + ((code - 0xD800) << 10) + (static_cast<std::uint32_t>(text[++i]) - 0xDC00);
        }
        AppendBytes(bytes, code);
    }
    return bytes;
}

bool SystemFiles::Exists(const std::wstring& path) {
    std::error_code error;
    return fs::is_regular_file(fs::path(path), error);
}

bool SystemFiles::IsReadOnly(const std::wstring& path) {
    std::error_code error;
    const fs::perms permissions = fs::status(fs::path(path), error).permissions();
    return !error && (permissions & fs::perms::owner_write) == fs::perms::none;
}

bool SystemFiles::ReadText(const std::wstring& path, std::wstring& text) {
    std::ifstream file(fs::path(path), std::ios::binary);
    if (!file) {
        return false;
    }
    text = DecodeText(std::string(std::istreambuf_iterator<char>(file), {}));
    return true;
}

bool SystemFiles::WriteText(const std::wstring& path, const std::wstring& text) {
    std::ofstream file(fs::path(path), std::ios::binary | std::ios::trunc);
    file << EncodeText(text);
    file.close();
    return !file.fail();
}

void SystemFiles::Remove(const std::wstring& path) {
    std::error_code error;
    fs::remove(fs::path(path), error);
}

std::wstring SystemFiles::TimeText() {
    const std::time_t now = std::time(nullptr);
    wchar_t text[40] = {};
    if (const std::tm* local = std::localtime(&now)) {
        std::wcsftime(text, std::size(text), L"%Y-%m-%d %H:%M:%S", local);
    }
    return text;
}

std::wstring FolderOf(const std::wstring& path) {
    const std::size_t separator = path.find_last_of(L"\\/");
    return separator == std::wstring::npos ? L"" : path.substr(0, separator + 1);
}

std::wstring NameOf(const std::wstring& path) {
    return path.substr(FolderOf(path).size());
}

std::wstring StemOf(const std::wstring& path) {
    const std::wstring name = NameOf(path);
    return name.substr(0, name.find_last_of(L'.'));
}

bool IsSamePath(const std::wstring& left, const std::wstring& right) {
    const auto normal = [](const std::wstring& path) {
        std::wstring text = database::UpperCase(path);
        for (wchar_t& letter : text) {
            letter = IsSeparator(letter) ? L'\\' : letter;
        }
        return text;
    };
    return normal(left) == normal(right);
}

}  // namespace workbench::host
