#pragma once

#include "fields/FieldId.h"
#include "viewmodel/commands/CommandTable.h"

#include <QString>
#include <span>

class FieldLabels;

/// A command that is called as the user calls a field: which field in each mode.
struct FieldNameRow {
    int command;
    FieldId timeField;
    FieldId expenseField;
};
[[nodiscard]] std::span<const FieldNameRow> FieldNameTable();

/// How a command is called and described at present.
struct CommandWords {
    QString name;              ///< plain: "Edit", or the user's name of a field
    bool isFieldName = false;  ///< then a "&" in it is a letter, and it has no mnemonic of its own
    QString tip;               ///< short, for a tool tip
    QString status;            ///< what the command does, for the status bar
};
/// The texts of the command, with the names that its field has in the mode; those of the labels' defaults
/// where the user gave none.
[[nodiscard]] CommandWords WordsOf(const CommandRow& row, bool timeMode, const FieldLabels& labels);

/// "Record > Mark": the menus on the way to a command.
[[nodiscard]] QString MenuPathOf(const CommandRow& row);

/// A caption without the mark of its mnemonic and without the dots of a dialog: "&Edit..." is "Edit".
[[nodiscard]] QString PlainCaption(const QString& caption);
