#pragma once

#include "viewmodel/commands/CommandRow.h"

#include <QStringList>
#include <span>

/// All commands in the order of menus and tool bars.
[[nodiscard]] std::span<const CommandRow> CommandTable();

/// The first row with a number: for the number that stands twice, the view's. Null for an unknown one.
[[nodiscard]] const CommandRow* FindCommand(int command);

/// Which row carries a command out: the view is asked first while the list is the active view, the frame
/// afterwards; null for an unknown number.
/// The number 32823 stands twice, as the view's layout of large icons and as the frame's period "last year".
/// So while the list is active, with records or without, it means the layout, from either menu entry; the
/// period is reached from the period button or with another view in front. That is wanted and stays.
[[nodiscard]] const CommandRow* RouteCommand(int id, const CommandState& state);

[[nodiscard]] bool IsOffered(const CommandRow& row, const CommandState& state);
[[nodiscard]] bool IsChecked(const CommandRow& row, const CommandState& state);
/// The shortcuts of a row, one by one.
[[nodiscard]] QStringList ShortcutsOf(const CommandRow& row);
