#include "storage/ini_writer.h"

#include <cstring>

#include "platform/platform.h"

namespace {

constexpr std::string_view kLineEnd = "\r\n";

std::string WithDiskLineEnds(std::string_view bytes) {
    std::string strResult;
    for (const char ch : bytes) {
        if (ch == '\n') strResult += '\r';
        strResult += ch;
    }
    return strResult;
}

// Counts what the second pass will write.
class CCounter {
  public:
    void Put(std::string_view bytes) { m_nSize += bytes.size(); }
    void PutCopy(std::string_view bytes) { Put(bytes); }
    size_t GetSize() const { return m_nSize; }

  private:
    size_t m_nSize = 0;
};

// Copies pieces into a buffer that is large enough. Pieces that follow each other in memory are copied at
// once: a file whose rows stay as they are is copied section by section.
class CCopier {
  public:
    explicit CCopier(char* pTarget) : m_pTarget(pTarget) {}
    ~CCopier() { Flush(); }
    CCopier(const CCopier&) = delete;
    CCopier& operator=(const CCopier&) = delete;

    void Put(std::string_view bytes) {
        if (bytes.data() != m_pPending + m_nPending) {
            Flush();
            m_pPending = bytes.data();
        }
        m_nPending += bytes.size();
    }

    // For pieces that do not live on.
    void PutCopy(std::string_view bytes) {
        Flush();
        std::memcpy(m_pTarget, bytes.data(), bytes.size());
        m_pTarget += bytes.size();
    }

  private:
    void Flush() {
        if (m_nPending > 0) std::memcpy(m_pTarget, m_pPending, m_nPending);
        m_pTarget += m_nPending;
        m_nPending = 0;
    }

    char* m_pTarget;
    const char* m_pPending = nullptr;
    size_t m_nPending = 0;
};

}  // namespace

CIniWriter::CIniWriter(const CIniTable& table, const std::vector<std::uint32_t>& anOrder,
                       const std::wstring& strSeparator)
    : m_table(table),
      m_anOrder(anOrder),
      m_strSeparator(WithDiskLineEnds(platform::GetText().Narrow(strSeparator))),
      m_bUsualSeparator(strSeparator == kUsualSeparator) {
    CCounter counter;
    Write(counter);
    m_nSize = counter.GetSize();
    m_pBytes.reset(new char[m_nSize]);
    CCopier copier(m_pBytes.get());
    Write(copier);
}

template <typename Sink>
void CIniWriter::Write(Sink& sink) const {
    std::uint32_t nSection = CIniTable::kNone;
    bool bBlankLine = false;
    for (std::uint32_t i = 0; i < m_table.GetRowCount(); ++i) {
        const CIniRow& row = m_table.GetRow(m_anOrder.empty() ? i : m_anOrder[i]);
        if (row.m_nSection != nSection) {
            nSection = row.m_nSection;
            const CIniSection& section = m_table.GetSection(nSection);
            // Rows without a section come first: they have no header, and no blank line follows them.
            if (section.m_text.m_nSize > 0) {
                if (bBlankLine) sink.Put(kLineEnd);
                WriteHeader(sink, section);
                bBlankLine = true;
            }
        }
        WriteRow(sink, row);
    }
}

template <typename Sink>
void CIniWriter::WriteHeader(Sink& sink, const CIniSection& section) const {
    sink.Put("[");
    WriteText(sink, section.m_text, section.m_bLineFeed);
    sink.Put("]\r\n");
}

template <typename Sink>
void CIniWriter::WriteRow(Sink& sink, const CIniRow& row) const {
    if (row.Is(CIniRow::kIntact) && m_bUsualSeparator) {
        const size_t nLine = row.m_nKeySize + m_strSeparator.size() + row.m_nValueSize + kLineEnd.size();
        return sink.Put({row.m_pKey, nLine});
    }
    WriteText(sink, row.GetKey(), row.Is(CIniRow::kHasLineFeed));
    sink.Put(m_strSeparator);
    WriteText(sink, row.GetValue(), row.Is(CIniRow::kHasLineFeed));
    sink.Put(kLineEnd);
}

template <typename Sink>
void CIniWriter::WriteText(Sink& sink, const CIniText& text, bool bLineFeed) const {
    if (!text.m_bWide && !bLineFeed && !m_table.HasOriginals()) return sink.Put(text.GetBytes());
    std::string strBuffer;
    const std::string_view bytes = m_table.GetOriginal(text, strBuffer);
    if (bLineFeed) {
        sink.PutCopy(WithDiskLineEnds(bytes));
    } else {
        sink.PutCopy(bytes);
    }
}
