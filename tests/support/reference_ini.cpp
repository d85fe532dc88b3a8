#include "support/reference_ini.h"

#include <algorithm>

#include "platform/letter_case.h"
#include "platform/platform.h"

namespace {

std::wstring Trim(const std::wstring& text, const wchar_t* set) {
    const size_t first = text.find_first_not_of(set);
    if (first == std::wstring::npos) return {};
    return text.substr(first, text.find_last_not_of(set) + 1 - first);
}

std::wstring TrimKey(const std::wstring& key) {
    return Trim(key, L"[]\n\t");
}

}  // namespace

void ReferenceIni::Load(std::string_view bytes) {
    Clear();
    Merge(bytes);
    m_isDirty = false;
}

void ReferenceIni::Merge(std::string_view bytes) {
    const bool wasDirty = m_isDirty;
    while (!bytes.empty()) {
        const size_t end = bytes.find('\n');
        std::string_view line = bytes.substr(0, end);
        if (end != std::string_view::npos && line.ends_with('\r')) line.remove_suffix(1);
        bytes.remove_prefix(end == std::string_view::npos ? bytes.size() : end + 1);
        ReadLine(platform::GetText().Widen(line));
    }
    m_isDirty = wasDirty;
}

void ReferenceIni::ReadLine(const std::wstring& line) {
    if (line.empty()) return;
    if (line.front() == L'[' && line.back() == L']') {
        SetSection(line.substr(1, line.size() - 2));
        return;
    }
    const size_t separator = line.find(m_separator);
    if (separator == std::wstring::npos) return;
    const size_t value = separator + 3;
    SetString(line.substr(0, separator), value < line.size() ? line.substr(value) : std::wstring());
}

void ReferenceIni::Clear() {
    if (m_rows.empty()) return;
    m_rows.clear();
    m_isDirty = true;
}

std::string ReferenceIni::Save() {
    std::stable_sort(m_rows.begin(), m_rows.end(), [](const Row& l, const Row& r) { return l.key < r.key; });
    std::stable_sort(m_rows.begin(), m_rows.end(),
                     [](const Row& l, const Row& r) { return l.section < r.section; });
    std::wstring text;
    std::wstring section;
    for (const Row& row : m_rows) {
        if (row.section != section) {
            if (!section.empty()) text += L"\n";
            text += L"[" + row.section + L"]\n";
            section = row.section;
        }
        text += row.key + m_separator + row.value + L"\n";
    }
    std::string bytes;
    for (const char ch : platform::GetText().Narrow(text)) {
        if (ch == '\n') bytes += '\r';
        bytes += ch;
    }
    m_isDirty = false;
    return bytes;
}

void ReferenceIni::SetSection(const std::wstring& name) {
    m_section = Trim(name, L"[]\n \t");
}

bool ReferenceIni::AreEqual(const std::wstring& left, const std::wstring& right) const {
    if (m_isCaseSensitive || left.size() != right.size()) return left == right;
    return platform::ToLower(left) == platform::ToLower(right);
}

std::wstring ReferenceIni::GetString(const std::wstring& key, const std::wstring& defaultText) const {
    const std::wstring trimmed = TrimKey(key);
    for (const Row& row : m_rows) {
        if (AreEqual(row.section, m_section) && AreEqual(row.key, trimmed)) return row.value;
    }
    return defaultText;
}

void ReferenceIni::SetString(const std::wstring& key, const std::wstring& value) {
    const std::wstring trimmed = TrimKey(key);
    if (GetString(trimmed, L"") == value) return;
    m_isDirty = true;
    for (Row& row : m_rows) {
        if (row.section == m_section && row.key == trimmed) {
            row.value = value;
            return;
        }
    }
    m_rows.push_back({m_section, trimmed, value});
}

std::wstring ReferenceIni::FindKeyByValue(const std::wstring& value) const {
    for (const Row& row : m_rows) {
        if (AreEqual(row.section, m_section) && AreEqual(row.value, value)) return row.key;
    }
    return {};
}

std::vector<ReferenceIni::Row> ReferenceIni::GetSectionRows() const {
    std::vector<Row> rows;
    std::copy_if(m_rows.begin(), m_rows.end(), std::back_inserter(rows),
                 [&](const Row& row) { return row.section == m_section; });
    return rows;
}
