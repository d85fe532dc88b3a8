// The bytes of an ini document as it is saved.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "storage/ini_table.h"

class CIniWriter {
  public:
    // `anOrder` tells the order of the rows; empty, they come as they stand. All lines end in CR LF, and so
    // does a line feed inside a text.
    CIniWriter(const CIniTable& table, const std::vector<std::uint32_t>& anOrder,
               const std::wstring& strSeparator);

    // Lives as long as this object.
    std::string_view GetBytes() const { return {m_pBytes.get(), m_nSize}; }

  private:
    template <typename Sink>
    void Write(Sink& sink) const;
    template <typename Sink>
    void WriteHeader(Sink& sink, const CIniSection& section) const;
    template <typename Sink>
    void WriteRow(Sink& sink, const CIniRow& row) const;
    template <typename Sink>
    void WriteText(Sink& sink, const CIniText& text, bool bLineFeed) const;

    const CIniTable& m_table;
    const std::vector<std::uint32_t>& m_anOrder;
    std::string m_strSeparator;
    bool m_bUsualSeparator;
    size_t m_nSize = 0;
    std::unique_ptr<char[]> m_pBytes;
};
