// The walk over a drawing's record, with any items in any order. Besides not crashing, reading must depend on
// the items alone (twice gives the same) and on the first thirteen only.
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <string>

#include "unit/document/xdata_fields.h"
#include "unit/document/xdata_items.h"

namespace {

constexpr size_t kItemsOfARecord = 13;
// Longer ones only repeat what comes behind the last item that is read.
constexpr size_t kLongestInput = 512;
constexpr short kCodes[] = {1001, 1071, 1070, 1000, 1071, 1070, 1002, 1003,
                            1004, 1005, 1010, 1040, 1042, 0,    -4,   5005};

class Input {
  public:
    Input(const std::uint8_t* data, size_t size) : m_data(data), m_size(size) {}

    bool IsAtEnd() const { return m_size == 0; }

    // Zeros behind the end.
    template <class T>
    T Take() {
        T value{};
        const size_t count = m_size < sizeof value ? m_size : sizeof value;
        std::memcpy(&value, m_data, count);
        m_data += count;
        m_size -= count;
        return value;
    }

    std::wstring TakeText() {
        std::wstring text;
        for (size_t left = Take<std::uint8_t>() % 20; left > 0; --left) {
            text += static_cast<wchar_t>(Take<std::uint16_t>());
        }
        return text;
    }

  private:
    const std::uint8_t* m_data;
    size_t m_size;
};

bool IsText(short code) {
    return code >= 1000 && code <= 1005 && code != 1004;
}

XDataItems TakeItems(Input input) {
    XDataItems items;
    while (!input.IsAtEnd()) {
        const auto selector = input.Take<std::uint8_t>();
        const short code = kCodes[selector % std::size(kCodes)];
        if (IsText(code) && selector >= 0xF0) {
            items.NullText(code);
        } else if (IsText(code)) {
            items.Text(input.TakeText(), code);
        } else {
            items.Long(input.Take<std::int32_t>(), code);
        }
    }
    return items;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, size_t size) {
    if (size > kLongestInput) return 0;
    XDataItems items = TakeItems(Input(data, size));
    const XDataItems again = TakeItems(Input(data, size));
    const auto fields = ReadFields(items);
    if (ReadFields(again) != fields) std::abort();
    if (items.GetCount() > kItemsOfARecord) items.Cut(kItemsOfARecord);
    if (ReadFields(items) != fields) std::abort();
    return 0;
}
