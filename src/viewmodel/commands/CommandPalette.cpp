#include "viewmodel/commands/CommandPalette.h"

#include "viewmodel/commands/CommandWords.h"

std::vector<PaletteEntry> PaletteEntries(const CommandState& state, const FieldLabels& labels) {
    std::vector<PaletteEntry> entries;
    for (const CommandRow& row : CommandTable()) {
        // A user who looks for a command is in the palette already.
        if (row.run == Run::FindCommand || RouteCommand(row.id, state) != &row || !IsOffered(row, state))
            continue;
        const CommandWords words = WordsOf(row, state.timeMode, labels);
        entries.push_back({&row, words.name, MenuPathOf(row), words.status});
    }
    return entries;
}
