#include "changes/HistoryTables.h"

#include "app/HomeFiles.h"
#include "lang/LoadText.h"

const QByteArrayList& HistoryTables() {
    static const QByteArrayList kTables = [] {
        QByteArrayList names;
        for (const Text prefix : {Text::TimeTablePrefix, Text::ExpenseTablePrefix, Text::ItemTablePrefix,
                                  Text::DependencyTablePrefix})
            names.append((LoadText(prefix) + DataSourceName()).toLower().toUtf8());
        return names;
    }();
    return kTables;
}
