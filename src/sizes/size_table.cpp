#include "sizes/size_table.h"

#include <algorithm>
#include <charconv>
#include <iterator>
#include <map>
#include <vector>

#include "platform/letter_case.h"
#include "platform/platform.h"
#include "sizes/old_size_table.h"
#include "storage/ini_values.h"
#include "storage/install_paths.h"

namespace {

constexpr size_t kKeyNumberWidth = 5;
constexpr int kKeyNumberDecimals = 2;

// The tables that every standard has.
constexpr const wchar_t* kKnownTables[] = {
    L"API-SIZE.TP", L"BRANCH.TP",  L"EQUAL.TP", L"RED-CRS.TP", L"RED-ELL.TP", L"RED-TEE.TP",
    L"REDUCER.TP",  L"S-EQUAL.TP", L"SIZE.TP",  L"S-SIZE.TP",  L"SWAGE.TP",   L"THERMAL.TP",
};

bool IsKnownTable(const std::wstring& strCapitals) {
    return std::find(std::begin(kKnownTables), std::end(kKnownTables), strCapitals) != std::end(kKnownTables);
}

using CTableCache = std::map<std::wstring, CKV2D_IniFile>;  // by name in capitals

CTableCache& GetTableCache() {
    static CTableCache cache;
    return cache;
}

// "%5.2f", with the point in every locale.
std::wstring FormatKeyNumber(const std::wstring& strText) {
    char szText[400];  // the largest double has 309 digits ahead of the point
    const std::to_chars_result end =
        std::to_chars(std::begin(szText), std::end(szText), LeadingDouble(strText), std::chars_format::fixed,
                      kKeyNumberDecimals);
    std::wstring strNumber(szText, end.ptr);
    if (strNumber.size() < kKeyNumberWidth) strNumber.insert(0, kKeyNumberWidth - strNumber.size(), L' ');
    return strNumber;
}

bool IsIniForm(const std::wstring& strFirstLine) {
    return !strFirstLine.empty() && (strFirstLine.front() == L'[' || strFirstLine.back() == L']');
}

void SetSizeRow(CKV2D_IniFile& ini, const CSizeRow& row) {
    const auto set = [&](int nSizeSet, const std::wstring& strText) {
        ini.SetSection(GetSizeSetName(nSizeSet));
        ini.SetString(row.strKey, strText);
    };
    set(kSizeSetImperialUs, row.strInch);
    set(kSizeSetImperialNps, row.strInchNps);
    set(kSizeSetMetricOd, row.strOutsideDiameter);
    set(kSizeSetMetricNps, row.strMetricNominal);
}

// Fills the document, which has its path. A table in the old form leaves it changed.
void ReadTable(CKV2D_IniFile& ini, std::string strBytes) {
    CTextStream stream(std::move(strBytes));
    CTextStream firstLine(stream);
    std::wstring strFirstLine;
    firstLine.ReadLine(strFirstLine);
    if (IsIniForm(strFirstLine)) {
        ini.ReloadFrom(stream);
        return;
    }
    // All lines are parsed before the first row is set: a malformed one must leave the file as it is.
    for (const CSizeRow& row : ParseOldSizeTable(stream))
        SetSizeRow(ini, row);
}

}  // namespace

std::wstring GetSizeSetName(int nSizeSet) {
    switch (nSizeSet) {
        case kSizeSetMetricOd:
            return L"Metric OD Sizes";
        case kSizeSetMetricNps:
            return L"Metric NPS Sizes";
        case kSizeSetImperialNps:
            return L"Imperial NPS Sizes";
        default:
            return L"Imperial US Sizes";
    }
}

void SplitSizeKey(const std::wstring& strText, std::wstring& strFirst, std::wstring& strSecond) {
    const std::wstring strCapitals = platform::ToUpper(strText);
    const size_t nCross = strCapitals.find(L'X');
    strFirst = FormatKeyNumber(strCapitals.substr(0, nCross));
    strSecond =
        nCross == std::wstring::npos ? std::wstring() : FormatKeyNumber(strCapitals.substr(nCross + 1));
}

void NormaliseSizeKey(std::wstring& strText) {
    std::wstring strFirst, strSecond;
    SplitSizeKey(strText, strFirst, strSecond);
    strText = strSecond.empty() ? strFirst : strFirst + L"X" + strSecond;
}

CKV2D_IniFile LoadSizeTable(const std::wstring& strFileName, const std::wstring& strStandard) {
    const std::wstring strName = platform::ToUpper(strFileName);
    const auto cached = GetTableCache().find(strName);
    if (cached != GetTableCache().end()) return cached->second;

    CKV2D_IniFile ini;
    ini.SetPath(GetPipingStandardPath(strStandard) + strFileName);
    std::string strBytes;
    const platform::ErrorCode error =
        platform::GetFiles().ReadBytes(ini.GetPath(), platform::Sharing::kReadOnly, strBytes);
    if (error != platform::kDone) return ini;
    ReadTable(ini, std::move(strBytes));
    // Only `ini` itself writes a converted table, sorted, when it goes out of scope. Copies keep the rows in
    // the order of the old form, and must never write over what other programs make of the file later.
    CKV2D_IniFile copy = ini;
    copy.SetAutoSave(false);
    // A table without a row counts as not cached: it is read again the next time.
    if (IsKnownTable(strName) && copy.GetRowCount() > 0) GetTableCache().emplace(strName, copy);
    return copy;
}

void DropSizeTableCache() {
    GetTableCache().clear();
}
