#include "frame/transcript.h"

#include <windows.h>

namespace frame {

Transcript::~Transcript() {
    if (m_file != nullptr) CloseHandle(m_file);
}

bool Transcript::WriteTo(const std::wstring& path) {
    const HANDLE file = CreateFileW(path.c_str(), GENERIC_WRITE, FILE_SHARE_READ, nullptr, CREATE_ALWAYS,
                                    FILE_ATTRIBUTE_NORMAL, nullptr);
    if (file == INVALID_HANDLE_VALUE) return false;
    m_file = file;
    return true;
}

void Transcript::Add(const std::wstring& text) {
    m_text += text;
    if (m_file == nullptr || text.empty()) return;
    const int wide = static_cast<int>(text.size());
    std::string bytes(static_cast<std::size_t>(
                          WideCharToMultiByte(CP_UTF8, 0, text.data(), wide, nullptr, 0, nullptr, nullptr)),
                      '\0');
    WideCharToMultiByte(CP_UTF8, 0, text.data(), wide, bytes.data(), static_cast<int>(bytes.size()), nullptr,
                        nullptr);
    DWORD written = 0;
    WriteFile(m_file, bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr);
}

void Transcript::AddLine(const std::wstring& text) {
    const bool open = !m_text.empty() && m_text.back() != L'\n';
    Add((open ? L"\n" : L"") + text + L"\n");
}

}  // namespace frame
