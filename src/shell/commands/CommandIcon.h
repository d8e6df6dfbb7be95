#pragma once

#include <QIcon>

struct CommandRow;

/// The picture of a command: that of the flag which it sets or asks for, else the one of its row.
[[nodiscard]] QIcon CommandIcon(const CommandRow& row);
