#pragma once

#include "fields/FieldId.h"
#include "lang/Text.h"

#include <QHash>
#include <QString>
#include <span>

class FieldLabels;

/// The two texts of a command: what the status bar says while it is pointed at, and its short tool tip.
struct CommandTexts {
    QString status;
    QString tip;
};

/// Where a command's texts come from. With a field both are formats that take the field's name.
struct CommandTextRow {
    int command;
    Text caption;
    Text tip;
    FieldId field = FieldId::None;  ///< none: plain texts
};
[[nodiscard]] std::span<const CommandTextRow> CommandTextRows();

/// The texts of all commands by their numbers, with the names that the fields have now.
[[nodiscard]] QHash<int, CommandTexts> MakeCommandTexts(const FieldLabels& labels);
