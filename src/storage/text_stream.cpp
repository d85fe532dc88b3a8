#include "storage/text_stream.h"

#include <cstring>

#include "platform/platform.h"

CTextStream::CTextStream(std::string strBytes)
    : m_pBytes(std::make_shared<const std::string>(std::move(strBytes))) {}

bool CTextStream::ReadLine(std::wstring& strLine) {
    std::string_view line;
    const bool bFound = ReadLineBytes(line);
    strLine = platform::GetText().Widen(line);
    return bFound;
}

bool CTextStream::ReadLineBytes(std::string_view& line) {
    line = {};
    const size_t nRest = m_pBytes->size() - m_nPosition;
    if (nRest == 0) return false;
    const char* pLine = m_pBytes->data() + m_nPosition;
    const auto* pEnd = static_cast<const char*>(std::memchr(pLine, '\n', nRest));
    if (!pEnd) {
        line = {pLine, nRest};
        m_nPosition = m_pBytes->size();
        return true;
    }
    const auto nLength = static_cast<size_t>(pEnd - pLine);
    const bool bCarriageReturn = nLength > 0 && pLine[nLength - 1] == '\r';
    line = {pLine, bCarriageReturn ? nLength - 1 : nLength};
    m_nPosition += nLength + 1;
    return true;
}

std::string_view CTextStream::TakeRest() {
    const std::string_view rest = std::string_view(*m_pBytes).substr(m_nPosition);
    m_nPosition = m_pBytes->size();
    return rest;
}
