// The ini grammar written down as plainly as possible, to compare the real document with: rows in a list,
// every look-up a walk through all of them, every line read as a change of its own.
#pragma once

#include <string>
#include <string_view>
#include <vector>

class ReferenceIni {
  public:
    struct Row {
        std::wstring section;
        std::wstring key;
        std::wstring value;
    };

    // Replaces the rows; the mark of a change is off afterwards.
    void Load(std::string_view bytes);
    // Merges into the rows; the mark of a change stays.
    void Merge(std::string_view bytes);
    void Clear();
    // The file's bytes; sorts the rows and takes the mark of a change off.
    std::string Save();

    void SetSection(const std::wstring& name);
    // The default if there is no such key.
    std::wstring GetString(const std::wstring& key, const std::wstring& defaultText) const;
    void SetString(const std::wstring& key, const std::wstring& value);
    std::wstring FindKeyByValue(const std::wstring& value) const;
    // The rows of the current section.
    std::vector<Row> GetSectionRows() const;

    const std::vector<Row>& GetRows() const { return m_rows; }
    const std::wstring& GetSection() const { return m_section; }
    bool IsDirty() const { return m_isDirty; }

    bool m_isCaseSensitive = true;
    std::wstring m_separator = L" = ";

  private:
    bool AreEqual(const std::wstring& left, const std::wstring& right) const;
    void ReadLine(const std::wstring& line);

    std::vector<Row> m_rows;
    std::wstring m_section;
    bool m_isDirty = false;
};
