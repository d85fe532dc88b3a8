// A narrow text file in memory, read line by line as wide text.
#pragma once

#include <memory>
#include <string>
#include <string_view>

class CTextStream {
  public:
    // Takes the bytes of a file. A carriage return ahead of a line feed belongs to the line end.
    explicit CTextStream(std::string strBytes);

    // The next line without its line end; false at the end of the text. A last line without a line end
    // counts.
    bool ReadLine(std::wstring& strLine);

    // The same line as bytes of the file; the view lives as long as the stream, or a holder of its bytes.
    bool ReadLineBytes(std::string_view& line);

    // Everything behind the last line that was read; the stream is at its end then.
    std::string_view TakeRest();

    // All bytes of the file, for a reader that keeps views of its lines.
    const std::shared_ptr<const std::string>& GetBytes() const { return m_pBytes; }

  private:
    std::shared_ptr<const std::string> m_pBytes;
    size_t m_nPosition = 0;
};
