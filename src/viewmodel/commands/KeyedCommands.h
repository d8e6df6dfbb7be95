#pragma once

#include "viewmodel/commands/CommandRow.h"

#include <QString>
#include <QStringList>
#include <vector>

class FieldLabels;

/// A command that has keys, as the sheet of all keys lists it.
struct KeyedCommand {
    const CommandRow* row;
    QString name;
    QString path;      ///< of its menu
    QString tip;       ///< what it does
    QStringList keys;  ///< in portable form
};
/// In the order of the menus; those that aren't offered now, too, as their keys are looked up all the same.
[[nodiscard]] std::vector<KeyedCommand> KeyedCommands(bool timeMode, const FieldLabels& labels);
