#include "storage/ini_file.h"

#include <algorithm>

#include "platform/letter_case.h"
#include "storage/ini_table.h"
#include "storage/ini_trim.h"
#include "storage/ini_values.h"
#include "storage/ini_writer.h"
#include "storage/path_text.h"

namespace {

constexpr size_t kLongestText = 0x1FFFFFFF;

// The section has not been looked up since it or the rows changed.
constexpr std::uint32_t kNotLookedUp = CIniTable::kNone - 1;

}  // namespace

CKV2D_IniFile::CKV2D_IniFile()
    : m_strSeparator(kUsualSeparator),
      m_strPath(DefaultPath()),
      m_pTable(std::make_shared<CIniTable>()),
      m_nSection(kNotLookedUp) {}

CKV2D_IniFile::~CKV2D_IniFile() {
    if (m_bAutoSave && m_bDirty) SaveRows(false);
}

CKV2D_IniFile::CKV2D_IniFile(const CKV2D_IniFile& other) = default;

CKV2D_IniFile& CKV2D_IniFile::operator=(const CKV2D_IniFile& other) = default;

CIniTable& CKV2D_IniFile::GetTableForChange() {
    if (m_pTable.use_count() > 1) m_pTable = std::make_shared<CIniTable>(*m_pTable);
    return *m_pTable;
}

std::wstring CKV2D_IniFile::DefaultPath() {
    std::wstring strPath = platform::GetEnvironment().GetProgramArgument();
    strPath.erase(strPath.find_last_not_of(L".exe") + 1);
    return strPath + L".ini";
}

int CKV2D_IniFile::Open(const std::wstring& strPath) {
    SetPath(strPath);
    return Read();
}

int CKV2D_IniFile::Read() {
    std::string strBytes;
    const auto error = platform::GetFiles().ReadBytes(m_strPath, platform::Sharing::kReadOnly, strBytes);
    if (error != platform::kDone) return kIniCannotOpen;
    CTextStream stream(std::move(strBytes));
    return ReloadFrom(stream);
}

void CKV2D_IniFile::SetPath(const std::wstring& strPath) {
    m_strPath = strPath;
}

int CKV2D_IniFile::ReloadFrom(CTextStream& stream) {
    Clear();
    ReadFrom(stream);
    m_bDirty = false;
    return kIniDone;
}

int CKV2D_IniFile::ReadFrom(CTextStream& stream) {
    const bool bDirty = m_bDirty;
    if (m_bCaseSensitive && m_strSeparator == kUsualSeparator) {
        CIniTable& table = GetTableForChange();
        const CIniTextMaker section(m_strSection);
        const auto end =
            table.ReadLines(stream.GetBytes(), stream.TakeRest(), table.AddSection(section.Get()));
        if (end.m_bHeader) WidenText(table.GetSection(end.m_nSection).m_text, m_strSection);
        m_nSection = end.m_nSection;
    } else {
        std::wstring strLine;
        while (stream.ReadLine(strLine))
            ReadRow(strLine);
    }
    m_bDirty = bDirty;
    return kIniDone;
}

// One line of a document whose separator or comparison is its own.
void CKV2D_IniFile::ReadRow(const std::wstring& strLine) {
    if (strLine.empty()) return;
    if (strLine.front() == L'[' && strLine.back() == L']') return SetSection(strLine);
    const size_t nSeparator = strLine.find(m_strSeparator);
    if (nSeparator == std::wstring::npos) return;
    const size_t nValue = std::min(nSeparator + kSeparatorLength, strLine.size());
    SetString(strLine.substr(0, nSeparator), strLine.substr(nValue));
}

int CKV2D_IniFile::Save(bool bForce) {
    return m_bDirty || bForce ? SaveRows(true) : kIniDone;
}

// The destructor has no use for the new order of the rows.
int CKV2D_IniFile::SaveRows(bool bReorder) {
    const std::vector<std::uint32_t> anOrder = m_pTable->GetSavingOrder();
    const CIniWriter writer(*m_pTable, anOrder, m_strSeparator);
    const platform::WriteResult result = platform::GetFiles().WriteBytes(m_strPath, writer.GetBytes());
    if (result == platform::WriteResult::kCannotCreate) return kIniCannotCreate;
    if (bReorder && !anOrder.empty()) GetTableForChange().Reorder(anOrder);
    if (result == platform::WriteResult::kWriteFailed) return kIniCannotCreate;
    m_bDirty = false;
    return kIniDone;
}

void CKV2D_IniFile::Clear() {
    if (GetRowCount() == 0) return;
    m_pTable = std::make_shared<CIniTable>();
    m_nSection = kNotLookedUp;
    m_bDirty = true;
}

int CKV2D_IniFile::CreateLineIni(const std::wstring& strPath) {
    const platform::WriteResult result = platform::GetFiles().WriteBytes(strPath, "[LineList]\r\n");
    return result == platform::WriteResult::kWritten ? kIniDone : kIniCannotOpen;
}

void CKV2D_IniFile::SetSection(const std::wstring& strName) {
    const std::wstring_view strTrimmed = TrimSection<wchar_t>(strName);
    const bool bSame =
        strTrimmed.size() == m_strSection.size() &&
        short_text::AreEqual(strTrimmed.data(), m_strSection.data(), strTrimmed.size() * sizeof(wchar_t));
    if (bSame) return;
    m_strSection = strTrimmed;
    m_nSection = kNotLookedUp;
}

std::uint32_t CKV2D_IniFile::FindCurrentSection() const {
    if (m_nSection == kNotLookedUp) m_nSection = m_pTable->FindSection(CIniTextMaker(m_strSection).Get());
    return m_nSection;
}

// Compares as look-ups do.
bool CKV2D_IniFile::IsInCurrentSection(std::uint32_t nSection) const {
    if (m_bCaseSensitive) return nSection == FindCurrentSection();
    return platform::ToLower(WidenText(m_pTable->GetSection(nSection).m_text)) ==
           platform::ToLower(m_strSection);
}

std::uint32_t CKV2D_IniFile::FindRow(std::wstring_view strKey) const {
    if (!m_bCaseSensitive) return FindRowWithoutCase(strKey);
    const CIniTextMaker key(strKey);
    return m_pTable->FindRow(FindCurrentSection(), key.Get());
}

std::uint32_t CKV2D_IniFile::FindRowWithoutCase(std::wstring_view strKey) const {
    const std::wstring strWanted = platform::ToLower(strKey);
    std::wstring strPresent;
    for (std::uint32_t nRow = 0; nRow < m_pTable->GetRowCount(); ++nRow) {
        const CIniRow& row = m_pTable->GetRow(nRow);
        WidenText(row.GetKey(), strPresent);
        if (platform::ToLower(strPresent) == strWanted && IsInCurrentSection(row.m_nSection)) return nRow;
    }
    return CIniTable::kNone;
}

void CKV2D_IniFile::GetString(const std::wstring& strKey, std::wstring& strResult,
                              const std::wstring& strDefault) const {
    const std::uint32_t nRow = FindRow(TrimKey<wchar_t>(strKey));
    if (nRow == CIniTable::kNone) {
        strResult = strDefault;
    } else {
        WidenText(m_pTable->GetRow(nRow).GetValue(), strResult);
    }
}

void CKV2D_IniFile::GetInt(const std::wstring& strKey, int& nResult, int nDefault) const {
    std::wstring strText;
    GetString(strKey, strText, FormatInteger(nDefault));
    nResult = LeadingInteger(strText);
}

void CKV2D_IniFile::GetLong(const std::wstring& strKey, int& nResult, int nDefault) const {
    GetInt(strKey, nResult, nDefault);
}

void CKV2D_IniFile::GetDouble(const std::wstring& strKey, double& dResult, double dDefault) const {
    std::wstring strText;
    GetString(strKey, strText, FormatDouble(dDefault));
    dResult = LeadingDouble(strText);
}

void CKV2D_IniFile::GetBool(const std::wstring& strKey, bool& bResult, bool bDefault) const {
    int nResult = 0;
    GetInt(strKey, nResult, bDefault ? 1 : 0);
    bResult = nResult != 0;
}

void CKV2D_IniFile::GetGuid(const std::wstring& strKey, platform::Guid& guidResult,
                            const platform::Guid& guidDefault) const {
    std::wstring strText;
    GetString(strKey, strText, FormatGuid(guidDefault));
    guidResult = ParseGuid(strText);
}

void CKV2D_IniFile::SetString(const std::wstring& strKey, const std::wstring& strValue) {
    const std::wstring_view strTrimmed = TrimKey<wchar_t>(strKey);
    if (strTrimmed.size() > kLongestText || strValue.size() > kLongestText) return;
    const CIniTextMaker value(strValue);
    std::uint32_t nRow = FindRow(strTrimmed);
    const bool bPresent = nRow != CIniTable::kNone;
    if (bPresent ? m_pTable->GetRow(nRow).GetValue() == value.Get() : strValue.empty()) return;
    m_bDirty = true;
    CIniTable& table = GetTableForChange();
    const CIniTextMaker key(strTrimmed);
    // What was found may differ in its case.
    if (!m_bCaseSensitive) nRow = table.FindRow(FindCurrentSection(), key.Get());
    if (nRow != CIniTable::kNone) {
        table.SetValue(nRow, value.Get());
    } else {
        m_nSection = table.AddSection(CIniTextMaker(m_strSection).Get());
        table.AppendRow(m_nSection, key.Get(), value.Get());
    }
}

void CKV2D_IniFile::SetInt(const std::wstring& strKey, int nValue) {
    SetString(strKey, FormatInteger(nValue));
}

void CKV2D_IniFile::SetLong(const std::wstring& strKey, int nValue) {
    SetInt(strKey, nValue);
}

void CKV2D_IniFile::SetDouble(const std::wstring& strKey, double dValue) {
    SetString(strKey, FormatDouble(dValue));
}

void CKV2D_IniFile::SetBool(const std::wstring& strKey, bool bValue) {
    SetInt(strKey, bValue ? 1 : 0);
}

void CKV2D_IniFile::SetGuid(const std::wstring& strKey, const platform::Guid& guidValue) {
    SetString(strKey, FormatGuid(guidValue));
}

void CKV2D_IniFile::GetSectionEntries(std::vector<std::wstring>& astrKeys,
                                      std::vector<std::wstring>& astrValues) const {
    astrKeys.clear();
    astrValues.clear();
    const std::uint32_t nSection = FindCurrentSection();
    if (nSection == CIniTable::kNone) return;
    const CIniSection& section = m_pTable->GetSection(nSection);
    astrKeys.reserve(section.m_nRows);
    astrValues.reserve(section.m_nRows);
    for (std::uint32_t nRow = section.m_nFirstRow; nRow < section.m_nEndRow; ++nRow) {
        const CIniRow& row = m_pTable->GetRow(nRow);
        if (row.m_nSection != nSection) continue;
        WidenText(row.GetKey(), astrKeys.emplace_back());
        WidenText(row.GetValue(), astrValues.emplace_back());
    }
}

void CKV2D_IniFile::FindKeyByValue(const std::wstring& strValue, std::wstring& strKey) const {
    const CIniTextMaker value(strValue);
    const std::wstring strLower = m_bCaseSensitive ? std::wstring() : platform::ToLower(strValue);
    const auto isWanted = [&](const CIniRow& row) {
        return m_bCaseSensitive ? row.GetValue() == value.Get()
                                : platform::ToLower(WidenText(row.GetValue())) == strLower;
    };
    for (std::uint32_t nRow = 0; nRow < m_pTable->GetRowCount(); ++nRow) {
        const CIniRow& row = m_pTable->GetRow(nRow);
        if (isWanted(row) && IsInCurrentSection(row.m_nSection)) return WidenText(row.GetKey(), strKey);
    }
    strKey.clear();
}

size_t CKV2D_IniFile::GetRowCount() const {
    return m_pTable->GetRowCount();
}
