#pragma once

#include "app/ListTable.h"
#include "cli/commands/CommandRow.h"

#include <QString>

// Steps that commands about lists share.

/// The list that was asked for by its number or title; null after telling that there is none. Lists of field
/// names aren't among them.
[[nodiscard]] const ListRow* FindList(const QString& typed, Console& console);
/// Tells the window that lists, dependencies or names changed, and the user when the window can't be told.
void AnnounceLists(Console& console, RecordContext& context);

inline constexpr int kLongestItem = 255;
