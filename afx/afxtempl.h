// Collections that the framework hands over: arrays and maps. Indices are signed; one outside the array
// raises the invalid argument failure.
#pragma once

#include <unordered_map>
#include <vector>

#include "afx_port.h"
#include "afxv_w32.h"

[[noreturn]] AFX_PORT void AfxThrowInvalidArgException();

struct AFX_POSITION;
using POSITION = AFX_POSITION*;

template <class TYPE, class ARG_TYPE = const TYPE&>
class CArray {
  public:
    INT_PTR GetSize() const { return static_cast<INT_PTR>(m_aData.size()); }
    INT_PTR GetCount() const { return GetSize(); }
    bool IsEmpty() const { return m_aData.empty(); }
    // `nGrowBy` is a hint that is not needed.
    void SetSize(INT_PTR nNewSize, INT_PTR nGrowBy = -1) {
        (void)nGrowBy;
        if (nNewSize < 0) AfxThrowInvalidArgException();
        m_aData.resize(static_cast<size_t>(nNewSize));
    }
    void RemoveAll() { m_aData.clear(); }

    const TYPE& GetAt(INT_PTR nIndex) const { return m_aData[Checked(nIndex)]; }
    TYPE& GetAt(INT_PTR nIndex) { return m_aData[Checked(nIndex)]; }
    const TYPE& operator[](INT_PTR nIndex) const { return m_aData[Checked(nIndex)]; }
    TYPE& operator[](INT_PTR nIndex) { return m_aData[Checked(nIndex)]; }
    void SetAt(INT_PTR nIndex, ARG_TYPE newElement) { m_aData[Checked(nIndex)] = newElement; }
    // Null for an empty array.
    TYPE* GetData() { return m_aData.empty() ? nullptr : m_aData.data(); }
    const TYPE* GetData() const { return m_aData.empty() ? nullptr : m_aData.data(); }

    // The index of the new element.
    INT_PTR Add(ARG_TYPE newElement) {
        m_aData.push_back(newElement);
        return GetSize() - 1;
    }
    void Append(const CArray& src) {
        const auto copy = src.m_aData;
        m_aData.insert(m_aData.end(), copy.begin(), copy.end());
    }
    void Copy(const CArray& src) { m_aData = src.m_aData; }
    // Beyond the end, the array first grows to the index.
    void InsertAt(INT_PTR nIndex, ARG_TYPE newElement) {
        if (nIndex < 0) AfxThrowInvalidArgException();
        const TYPE element = newElement;
        if (nIndex > GetSize()) SetSize(nIndex);
        m_aData.insert(m_aData.begin() + nIndex, element);
    }
    void RemoveAt(INT_PTR nIndex, INT_PTR nCount = 1) {
        if (nIndex < 0 || nCount < 0 || nIndex > GetSize() || nCount > GetSize() - nIndex) {
            AfxThrowInvalidArgException();
        }
        m_aData.erase(m_aData.begin() + nIndex, m_aData.begin() + nIndex + nCount);
    }

  private:
    size_t Checked(INT_PTR nIndex) const {
        if (nIndex < 0 || nIndex >= GetSize()) AfxThrowInvalidArgException();
        return static_cast<size_t>(nIndex);
    }

    std::vector<TYPE> m_aData;
};

// A hash map. `nBlockSize` and InitHashTable shape the memory in the published class and are hints here.
template <class KEY, class ARG_KEY, class VALUE, class ARG_VALUE>
class CMap {
  public:
    explicit CMap(INT_PTR nBlockSize = 10) { (void)nBlockSize; }

    INT_PTR GetCount() const { return static_cast<INT_PTR>(m_map.size()); }
    INT_PTR GetSize() const { return GetCount(); }
    bool IsEmpty() const { return m_map.empty(); }
    void InitHashTable(UINT nHashSize) { m_map.rehash(nHashSize); }

    // False leaves `rValue` as it was.
    BOOL Lookup(ARG_KEY key, VALUE& rValue) const {
        const auto found = m_map.find(key);
        if (found == m_map.end()) return FALSE;
        rValue = found->second;
        return TRUE;
    }
    VALUE& operator[](ARG_KEY key) { return m_map[key]; }
    void SetAt(ARG_KEY key, ARG_VALUE newValue) { m_map[key] = newValue; }
    BOOL RemoveKey(ARG_KEY key) { return m_map.erase(key) != 0; }
    void RemoveAll() { m_map.clear(); }

  private:
    std::unordered_map<KEY, VALUE> m_map;
};
