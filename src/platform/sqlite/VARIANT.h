#pragma once

#include <QString>
#include <cstdint>
#include <variant>

/// One value on its way between a record and the store. Written: VT_I4, VT_R4, VT_BSTR; read: also VT_I2,
/// VT_R8.
using VARIANT = std::variant<std::monostate,  // VT_EMPTY
                             std::int16_t,    // VT_I2
                             std::int32_t,    // VT_I4
                             float,           // VT_R4
                             double,          // VT_R8
                             QString>;        // VT_BSTR

/// The value as a 32-bit integer; 0 for an empty value, leading digits of a text, truncated for floats.
[[nodiscard]] std::int32_t ToInt32(const VARIANT& value);
/// The value as a 32-bit float; 0 for an empty value or a text that is no number.
[[nodiscard]] float ToFloat(const VARIANT& value);
/// The value as text; integers in decimal digits, floats with six significant digits.
[[nodiscard]] QString ToText(const VARIANT& value);
