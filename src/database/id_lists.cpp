#include "database/id_lists.h"

#include <algorithm>
#include <numeric>

#include "platform/letter_case.h"
#include "storage/path_text.h"

namespace {

// The places of the names in sorted order.
std::vector<size_t> GetSortedOrder(const std::vector<std::wstring>& astrNames) {
    std::vector<size_t> order(astrNames.size());
    std::iota(order.begin(), order.end(), size_t{0});
    std::stable_sort(order.begin(), order.end(),
                     [&](size_t left, size_t right) { return astrNames[left] < astrNames[right]; });
    return order;
}

template <typename T>
void Arrange(const std::vector<size_t>& order, std::vector<T>& list) {
    std::vector<T> arranged;
    arranged.reserve(list.size());
    for (size_t place : order)
        arranged.push_back(std::move(list[place]));
    list = std::move(arranged);
}

// The first text that is not empty of looking in the live section, then in the deleted one.
template <typename LookUp>
std::wstring SearchSections(CKV2D_IniFile& ini, const CLiveAndDeleted& sections, bool bSearchLive,
                            bool bSearchDeleted, LookUp lookUp) {
    std::wstring strResult;
    if (bSearchLive) {
        ini.SetSection(sections.pszLive);
        lookUp(strResult);
    }
    if (strResult.empty() && bSearchDeleted) {
        ini.SetSection(sections.pszDeleted);
        lookUp(strResult);
    }
    return strResult;
}

}  // namespace

std::wstring KeyFromId(const std::wstring& strPrefix, int nId) {
    return nId > 0 ? strPrefix + std::to_wstring(nId) : std::wstring();
}

bool FindIdInText(const std::wstring& strText, const std::wstring& strPrefix, int& nId) {
    nId = 0;
    // Nearly every key begins with the prefix as it is.
    const size_t nFound = strText.starts_with(strPrefix) ? 0 : platform::ToUpper(strText).find(strPrefix);
    if (nFound == std::wstring::npos) return false;
    nId = LeadingInteger(strText.substr(nFound + strPrefix.size()));
    return true;
}

void SortIdsAndNames(std::vector<int>& anIds, std::vector<std::wstring>& astrNames) {
    const std::vector<size_t> order = GetSortedOrder(astrNames);
    Arrange(order, anIds);
    Arrange(order, astrNames);
}

void SortIdsNamesFlags(std::vector<int>& anIds, std::vector<std::wstring>& astrNames,
                       std::vector<bool>& abFlags) {
    const std::vector<size_t> order = GetSortedOrder(astrNames);
    Arrange(order, anIds);
    Arrange(order, astrNames);
    Arrange(order, abFlags);
}

std::wstring GetNameByKey(CKV2D_IniFile& ini, const CLiveAndDeleted& sections, const std::wstring& strKey,
                          bool bSearchLive, bool bSearchDeleted) {
    return SearchSections(ini, sections, bSearchLive, bSearchDeleted,
                          [&](std::wstring& strName) { ini.GetString(strKey, strName, L""); });
}

std::wstring FindKeyByName(CKV2D_IniFile& ini, const CLiveAndDeleted& sections, const std::wstring& strName,
                           bool bSearchLive, bool bSearchDeleted) {
    return SearchSections(ini, sections, bSearchLive, bSearchDeleted,
                          [&](std::wstring& strKey) { ini.FindKeyByValue(strName, strKey); });
}
