#pragma once

#include "ChangesFixture.h"
#include "changes/CUndo.h"
#include "changes/ChangeNames.h"
#include "changes/HistorySteps.h"
#include "changes/HistoryTables.h"
#include "config/EntryCommand.h"
#include "records/CTRecord.h"

#include <sqlite3.h>

#include <QJsonDocument>
#include <QTest>

/// A home whose changes are written down, and what takes them back.
struct HistoryFixture : ChangesFixture<> {
    CHistory history{home.Path(), home.clock, *home.settings};
    CUndo undo{{.store = *home.store, .history = history, .timers = ownTimers, .settings = *home.settings}};

    HistoryFixture() : ChangesFixture(CRecordChanges::Partial::Undone) {
        home.settings->confirmCopy = home.settings->confirmDelete = home.settings->confirmMark = 0;
        home.manager.SetJournal(&history);
        history.Entries().Watch();
    }
    ~HistoryFixture() { home.manager.SetJournal(nullptr); }
    HistoryFixture(const HistoryFixture&) = delete;
    HistoryFixture& operator=(const HistoryFixture&) = delete;

    QString Add(const QString& client) {
        CTRecord record;
        record.item1 = client;
        record.date.Set(11, 19, 2026);
        return changes.Add(record, Identity::New).ids.value(0);
    }
    /// "delete 3 records, add a record", the newest first; what was undone in brackets.
    [[nodiscard]] QString Names() {
        QStringList names;
        for (const HistoryRow& row : ListedChanges(undo.Changes().value_or(std::vector<HistoryRow>()))) {
            const QString name = ChangeName(row);
            names.append(row.IsDone() ? name : u'[' + name + u']');
        }
        return names.join(QStringLiteral(", "));
    }
    UndoOutcome Undo() { return undo.Run(CHistory::Way::Undo); }
    UndoOutcome UndoPast() { return undo.RunPast(CHistory::Way::Undo); }
    UndoOutcome Redo() { return undo.Run(CHistory::Way::Redo); }

    /// A stored query about a client.
    void PutQuery(const QString& name, const QString& client) {
        QVERIFY(ChangeEntry({.key = LoadText(Text::KeyTimeQueries),
                             .entry = name,
                             .values = EntryContent({{QStringLiteral("Client"), client}})},
                            *home.settings));
    }
    /// What is stored under names, in its order.
    [[nodiscard]] QStringList DumpStored() {
        QStringList lines;
        for (const Text key : {Text::KeyTimeQueries, Text::KeyTimeDefaults}) {
            QStringList names;
            static_cast<void>(home.settings->EnumKeys(LoadText(key), names));
            for (const QString& name : names) {
                const auto content = home.settings->ReadEntryContent(LoadText(key), name);
                lines.append(name + QString::fromUtf8(QJsonDocument(ToJson(*content)).toJson()));
            }
        }
        return lines;
    }
    /// All timers with their seconds up to now and their states.
    [[nodiscard]] QStringList DumpTimers() {
        QStringList lines;
        set.FoldAll();
        for (int place = 0; place < set.Count(); ++place)
            lines.append(QStringLiteral("%1 %2 %3")
                             .arg(set.IdAt(place))
                             .arg(set.At(place).Seconds())
                             .arg(static_cast<int>(set.StateAt(place))));
        return lines;
    }
    /// All rows of the store with the types of their values, and the checksums beside them.
    [[nodiscard]] QStringList Dump() { return DumpOf(home.manager.File()); }
    [[nodiscard]] static QStringList DumpOf(CSqliteFile& file) {
        QStringList rows;
        for (const QByteArray& table : HistoryTables())
            for (const QByteArray& name : {table, table + "_checks"}) DumpTable(file, name, rows);
        return rows;
    }

 private:
    static void DumpTable(CSqliteFile& file, const QByteArray& name, QStringList& rows) {
        sqlite3_stmt* statement = file.Prepare("SELECT * FROM " + name + " ORDER BY identity");
        while (sqlite3_step(statement) == SQLITE_ROW) {
            QString row = QString::fromUtf8(name);
            for (int column = 0; column < sqlite3_column_count(statement); ++column)
                row += QStringLiteral(" %1:%2").arg(
                    QString::number(sqlite3_column_type(statement, column)),
                    QString::fromUtf8(reinterpret_cast<const char*>(sqlite3_column_text(statement, column))));
            rows.append(row);
        }
        sqlite3_reset(statement);
    }
};
