// CKV2D_IniFile: the in-memory ini document that every file of the project database passes through.
//
// A document is a table of rows (section, key, value) in the order in which they came. A file is read into it
// whole, changed there, and written back whole; the destructor saves a changed document. The grammar is the
// suite's own, shared with its other programs:
//
// - "[name]" on a line of its own, without blanks around it, begins a section; a section that comes again
// goes on.
// - "key = value" with one blank on either side of the first " = " is a row. Blanks belong to key and value.
//   The last row of a key wins. A key with an empty value is not there after reading.
// - Every other line, "Key=Value" and comments among them, is dropped and is gone after the next save.
// - Saving sorts by section and by key, both by character code, with a blank line between two sections.
//
// Files are narrow text without a byte-order mark; each line ends in CR LF. All bytes of a key and a value
// survive reading and saving. Nothing here throws of its own, and no message is shown.
//
//     CKV2D_IniFile ini;
//     ini.Open(GetDatafilePath(L"ClientDatafile.ini"));
//     ini.SetSection(L"ClientList");
//     ini.SetString(L"KV2D_CLIENT_7", L"Acme");  // on disk when `ini` goes out of scope
//
// Loading takes time in proportion to the rows, a look-up the same time in any document, saving a document
// that is in order again time in proportion to the rows. Copies share their rows until one of them is
// changed: a document and its copies belong to one thread.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/platform.h"
#include "storage/text_stream.h"

class CIniTable;

// Result codes of the document's file operations.
inline constexpr int kIniDone = 0;
inline constexpr int kIniCannotOpen = 2;
inline constexpr int kIniCannotCreate = 3;

class CKV2D_IniFile {
  public:
    CKV2D_IniFile();
    // Saves a changed document to its path; whether that worked is not told.
    ~CKV2D_IniFile();
    // A copy has the path and the changes too: a changed copy saves when it is destroyed, as its original
    // does.
    CKV2D_IniFile(const CKV2D_IniFile& other);
    CKV2D_IniFile& operator=(const CKV2D_IniFile& other);

    // The program's first argument with every trailing ".", "e" and "x" taken off, and ".ini" behind it: the
    // path of a document that was given none. L"axe.exe" gives L"a.ini".
    static std::wstring DefaultPath();

    // --- Files.

    // Sets the path and reads the file: kIniDone, or kIniCannotOpen, which leaves the rows as they were. A
    // document that could not be opened may be filled and saves at that path.
    int Open(const std::wstring& strPath);
    // Reads the file of the path, in place of the present rows. Results as with Open.
    int Read();
    void SetPath(const std::wstring& strPath);
    // Replaces the rows by those of the text; the document is unchanged afterwards. Always kIniDone.
    int ReloadFrom(CTextStream& stream);
    // Sets the rows of the text's rest, beginning in the current section, as if by SetString; the mark of a
    // changed document stays as it was. The current section becomes the last header's. Always kIniDone.
    int ReadFrom(CTextStream& stream);
    // Sorts and writes the document if it is changed or `bForce` is set: kIniDone, or kIniCannotCreate, after
    // which it counts as changed still. A file that cannot be created leaves rows and order as they were; a
    // write that breaks off leaves a cut-off file.
    int Save(bool bForce);
    // Removes all rows. A document without rows stays unchanged.
    void Clear();
    // Writes a file with the one line "[LineList]": kIniDone, or kIniCannotOpen if it cannot be written.
    static int CreateLineIni(const std::wstring& strPath);

    // --- The current section, to which everything below applies.

    // Brackets, blanks, tabs and line feeds are trimmed off both ends: L"[ A ]" is L"A".
    void SetSection(const std::wstring& strName);

    // --- Reading. Brackets, tabs and line feeds are trimmed off both ends of a key; blanks are not. A
    // missing key gives the default, converted to text and back: GetDouble with the default 0.00000001 gives
    // 0. A text that is no number gives 0, not the default.

    void GetString(const std::wstring& strKey, std::wstring& strResult, const std::wstring& strDefault) const;
    // The leading integer of the text: L"12 mm" gives 12.
    void GetInt(const std::wstring& strKey, int& nResult, int nDefault) const;
    void GetLong(const std::wstring& strKey, int& nResult, int nDefault) const;
    void GetDouble(const std::wstring& strKey, double& dResult, double dDefault) const;
    // True if the leading integer is not 0: L"true" gives false.
    void GetBool(const std::wstring& strKey, bool& bResult, bool bDefault) const;
    // Pieces that are missing or no hexadecimal number give 0.
    void GetGuid(const std::wstring& strKey, platform::Guid& guidResult,
                 const platform::Guid& guidDefault) const;

    // --- Writing. The value that the key already has leaves the document unchanged, and the empty text
    // counts as the value of a missing key. So a key goes from the file by emptying it: "Key = " is not read
    // again. A text of more than half a billion characters is not stored.

    void SetString(const std::wstring& strKey, const std::wstring& strValue);
    void SetInt(const std::wstring& strKey, int nValue);
    void SetLong(const std::wstring& strKey, int nValue);
    void SetDouble(const std::wstring& strKey, double dValue);  // six decimals
    void SetBool(const std::wstring& strKey, bool bValue);      // "1" or "0"
    // "%08lX-%04X-%04X-%02X%02X-%02X%02X%02X%02X%02X%02X", without braces.
    void SetGuid(const std::wstring& strKey, const platform::Guid& guidValue);

    // --- Lists.

    // Keys and values of the current section in the order of the rows: the order of the file, or of setting,
    // until a save sorts them. Both arrays are emptied first. Case counts whatever SetCaseSensitive says.
    void GetSectionEntries(std::vector<std::wstring>& astrKeys, std::vector<std::wstring>& astrValues) const;
    // The key of the first row of the current section with exactly this value; empty if there is none.
    void FindKeyByValue(const std::wstring& strValue, std::wstring& strKey) const;
    // How many rows the document holds, over all sections.
    size_t GetRowCount() const;

    // --- The document's marks.

    bool IsDirty() const { return m_bDirty; }
    const std::wstring& GetPath() const { return m_strPath; }
    const std::wstring& GetSection() const { return m_strSection; }

    // False: the destructor does not save.
    void SetAutoSave(bool bAutoSave) { m_bAutoSave = bAutoSave; }
    // False: look-ups compare without case. They go through all rows then, and the first one found counts; a
    // key that differs only in its case is a row of its own all the same.
    void SetCaseSensitive(bool bCaseSensitive) { m_bCaseSensitive = bCaseSensitive; }
    // The text between key and value. When a line is read, the value begins three characters behind the
    // separator's start, however long the separator is.
    void SetSeparator(const std::wstring& strSeparator) { m_strSeparator = strSeparator; }

  private:
    void ReadRow(const std::wstring& strLine);
    int SaveRows(bool bReorder);
    std::uint32_t FindCurrentSection() const;
    std::uint32_t FindRow(std::wstring_view strKey) const;
    std::uint32_t FindRowWithoutCase(std::wstring_view strKey) const;
    bool IsInCurrentSection(std::uint32_t nSection) const;
    CIniTable& GetTableForChange();

    bool m_bAutoSave = true;
    bool m_bCaseSensitive = true;
    bool m_bDirty = false;
    std::wstring m_strSeparator;
    std::wstring m_strPath;
    std::wstring m_strSection;
    // Sections, keys and values of the rows. Shared with copies; whoever changes it takes a table of its own.
    std::shared_ptr<CIniTable> m_pTable;
    // The current section in the table: looked up when it is first needed.
    mutable std::uint32_t m_nSection;
};
