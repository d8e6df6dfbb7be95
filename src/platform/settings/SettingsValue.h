#pragma once

#include <QByteArray>
#include <QString>
#include <cstdint>
#include <variant>

/// A value of a key.
using SettingsValue = std::variant<std::int32_t, QString, QByteArray>;
