// Appends groups to the text of a drawing file.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "database/object_data.h"
#include "drawing_file/dxf_text.h"

namespace workbench::drawing_file {

class GroupWriter {
  public:
    explicit GroupWriter(Encoding encoding) : m_encoding(encoding) {}

    void Name(int code, std::string_view ascii);  // as it stands
    void Text(int code, std::wstring_view text);  // encoded
    void Integer(int code, std::int64_t value);
    void Real(int code, double value);                   // the shortest text that reads as the same number
    void Point(int code, double x, double y, double z);  // three groups
    void Handle(int code, std::uint64_t handle);
    void Item(const database::DataItem& item);
    void Raw(const database::RawGroup& group) { Text(group.code, group.text); }

    const std::string& Bytes() const { return m_bytes; }

  private:
    void Code(int code);

    std::string m_bytes;
    Encoding m_encoding;
};

}  // namespace workbench::drawing_file
