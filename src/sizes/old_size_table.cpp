#include "sizes/old_size_table.h"

#include <array>

#include "platform/invalid_argument.h"
#include "sizes/size_table.h"

namespace {

constexpr wchar_t kEndOfFile[] = L"END OF FILE";  // a line like any other to us: rows may follow it
constexpr size_t kColumnCount = 4;

enum EColumn { eColumnSize, eColumnInch, eColumnMetricNominal, eColumnOutsideDiameter };

struct CColumnPlace {
    size_t nStart;
    size_t nLength;
};
constexpr std::array<CColumnPlace, kColumnCount> kPlaces = {{{0, 12}, {12, 18}, {30, 20}, {50, 22}}};

// Splits at commas. A double quote protects commas only where it opens a field, since elsewhere it is an inch
// mark: `1",25` has two fields. In a protected field a doubled quote is one quote.
std::vector<std::wstring> SplitFields(const std::wstring& strLine) {
    std::vector<std::wstring> astrFields;
    std::wstring strField;
    bool bAtStart = true;
    bool bProtected = false;
    for (size_t i = 0; i < strLine.size(); ++i) {
        const wchar_t ch = strLine[i];
        if (bProtected) {
            if (ch != L'"') {
                strField += ch;
            } else if (i + 1 < strLine.size() && strLine[i + 1] == L'"') {
                strField += strLine[++i];
            } else {
                bProtected = false;
            }
        } else if (ch == L',') {
            astrFields.push_back(std::move(strField));
            strField.clear();
            bAtStart = true;
            continue;
        } else if (ch == L'"' && bAtStart) {
            bProtected = true;
        } else {
            strField += ch;
        }
        bAtStart = false;
    }
    astrFields.push_back(std::move(strField));
    return astrFields;
}

std::wstring CutColumn(const std::wstring& strLine, const CColumnPlace& place) {
    if (place.nStart >= strLine.size()) return std::wstring();
    std::wstring strColumn = strLine.substr(place.nStart, place.nLength);
    strColumn.erase(strColumn.find_last_not_of(L' ') + 1);
    return strColumn;
}

std::vector<std::wstring> GetColumns(const std::wstring& strLine) {
    if (strLine.empty()) platform::ThrowInvalidArgument();
    std::vector<std::wstring> astrColumns = SplitFields(strLine);
    if (astrColumns.size() == 1) {
        astrColumns.clear();
        for (const CColumnPlace& place : kPlaces)
            astrColumns.push_back(CutColumn(strLine, place));
    }
    if (astrColumns.size() < kColumnCount) platform::ThrowInvalidArgument();
    return astrColumns;
}

void ReplaceAll(std::wstring& strText, const std::wstring& strOld, const std::wstring& strNew) {
    std::wstring strResult;
    size_t nStart = 0;
    for (size_t nFound; (nFound = strText.find(strOld, nStart)) != std::wstring::npos;
         nStart = nFound + strOld.size()) {
        strResult.append(strText, nStart, nFound - nStart);
        strResult += strNew;
    }
    strText = strResult.append(strText, nStart);
}

}  // namespace

std::vector<CSizeRow> ParseOldSizeTable(CTextStream& stream) {
    std::vector<CSizeRow> aRows;
    std::wstring strLine;
    while (stream.ReadLine(strLine)) {
        if (strLine == kEndOfFile) continue;
        const std::vector<std::wstring> astrColumns = GetColumns(strLine);
        CSizeRow row;
        row.strKey = astrColumns[eColumnSize];
        NormaliseSizeKey(row.strKey);
        row.strInch = astrColumns[eColumnInch];
        row.strInchNps = MakeNpsWording(row.strInch);
        row.strMetricNominal = astrColumns[eColumnMetricNominal];
        row.strOutsideDiameter = astrColumns[eColumnOutsideDiameter];
        aRows.push_back(std::move(row));
    }
    return aRows;
}

std::wstring MakeNpsWording(const std::wstring& strInch) {
    std::wstring strText = L"NPS " + strInch;
    ReplaceAll(strText, L"\" X ", L" X NPS ");
    ReplaceAll(strText, L"\" x ", L" x NPS ");
    std::erase(strText, L'"');
    return strText;
}
