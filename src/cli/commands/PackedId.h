#pragma once

#include <QString>
#include <array>

/// The identity of a record in 16 bytes in place of 32 digits, in the same order.
using PackedId = std::array<unsigned char, 16>;

/// All 0 for what is no identity.
[[nodiscard]] PackedId PackedOf(const QString& id);
[[nodiscard]] QString UnpackedId(const PackedId& packed);
