#pragma once

#include "viewmodel/commands/CommandTable.h"

#include <QString>
#include <vector>

class FieldLabels;

/// A command as the palette lists it.
struct PaletteEntry {
    const CommandRow* row;
    QString name;
    QString path;  ///< of its menu
    QString tip;   ///< what it does, which is searched, too
};
/// Every command that is offered and does what its own row says, in the order of the menus. So of the two
/// commands with the number 32823 only the one that would be carried out is here.
[[nodiscard]] std::vector<PaletteEntry> PaletteEntries(const CommandState& state, const FieldLabels& labels);
