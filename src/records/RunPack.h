#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <optional>

/// Byte-oriented run-length coding: a control byte 0 to 127 announces that many plus one literal bytes, 128
/// to 255 the next byte repeated (c - 128) + 2 times. A single byte gives nothing, as no byte does, and is
/// lost: the stored form is so, and no content of one byte is ever stored.
[[nodiscard]] QByteArray RunPack(QByteArrayView plain);
/// The reverse; nothing when a group is cut short or the result would exceed the limit.
[[nodiscard]] std::optional<QByteArray> RunUnpack(QByteArrayView packed, qsizetype limit);
