#pragma once

#include <QByteArrayView>
#include <cstdint>

/// The page size that a file's header tells. Where that is damaged: the one with which most rows can be read.
[[nodiscard]] std::uint32_t PageSizeOf(QByteArrayView bytes);
