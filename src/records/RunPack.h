#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <optional>

/// Byte-oriented run-length coding: a control byte 0 to 127 announces that many plus one literal bytes, 128
/// to 255 the next byte repeated (c - 128) + 2 times.
[[nodiscard]] QByteArray RunPack(QByteArrayView plain);
/// The reverse; nothing when a group is cut short or the result would exceed the limit.
[[nodiscard]] std::optional<QByteArray> RunUnpack(QByteArrayView packed, qsizetype limit);
