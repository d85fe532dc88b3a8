// Handles: numbers that name an object within its drawing for good.
#pragma once

#include <compare>
#include <cstddef>
#include <cstdint>

#include "adachar.h"
#include "arx_port.h"

class ARX_PORT AcDbHandle {
  public:
    AcDbHandle() = default;
    explicit AcDbHandle(std::uint64_t value) : m_value(value) {}
    // Hexadecimal digits; anything else gives the null handle.
    explicit AcDbHandle(const ACHAR* text);

    bool isNull() const { return m_value == 0; }
    std::uint64_t value() const { return m_value; }
    // Upper-case hexadecimal without leading zeros. False if `length` is too small: 17 always suffice.
    bool getIntoAsciiBuffer(ACHAR* buffer, std::size_t length) const;

    friend bool operator==(const AcDbHandle&, const AcDbHandle&) = default;
    friend auto operator<=>(const AcDbHandle&, const AcDbHandle&) = default;

  private:
    std::uint64_t m_value = 0;
};
