// The lock files of a folder, found in one look.
#pragma once

#include <string>
#include <unordered_set>

class CLockFiles {
  public:
    // Lists the folder, which ends in a backslash. One that cannot be listed has none.
    explicit CLockFiles(const std::wstring& strFolder);

    // Whether a file "title.dwl" is there, in any case of letters. What it says is another matter.
    bool Has(const std::wstring& strTitle) const;

  private:
    std::unordered_set<std::wstring> m_titles;  // in upper case
};
