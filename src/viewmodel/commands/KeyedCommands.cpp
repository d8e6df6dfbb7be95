#include "viewmodel/commands/KeyedCommands.h"

#include "viewmodel/commands/CommandTable.h"
#include "viewmodel/commands/CommandWords.h"

std::vector<KeyedCommand> KeyedCommands(bool timeMode, const FieldLabels& labels) {
    std::vector<KeyedCommand> keyed;
    for (const CommandRow& row : CommandTable()) {
        const QStringList keys = ShortcutsOf(row);
        if (keys.isEmpty()) continue;
        const CommandWords words = WordsOf(row, timeMode, labels);
        keyed.push_back({&row, words.name, MenuPathOf(row), words.status, keys});
    }
    return keyed;
}
