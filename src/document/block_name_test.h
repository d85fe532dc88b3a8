// A test of block names that is made once for each block record: thousands of references in a drawing share a
// handful of them.
#pragma once

#include <map>
#include <string>

#include "dbid.h"
#include "document/drawing_queries.h"

class CBlockNameTest {
  public:
    using Test = bool (*)(const std::wstring& strBlockName);

    explicit CBlockNameTest(Test pfnTest) : m_pfnTest(pfnTest) {}

    // What the test says of the record's name.
    bool Passes(const AcDbObjectId& recordId) {
        const auto [it, bNew] = m_known.try_emplace(recordId, false);
        if (bNew) it->second = m_pfnTest(GetBlockNameOfEntity(recordId));
        return it->second;
    }

  private:
    Test m_pfnTest;
    std::map<AcDbObjectId, bool> m_known;
};
