#pragma once

#include "reports/definition/CReportStore.h"
#include "support/TestHome.h"

#include <QtEndian>
#include <cstdint>

/// The settings of a scratch home, and the values of an entry as a script outside the program writes them.
struct ReportFixture {
    TestHome home;

    [[nodiscard]] CCfgStore& Settings() const { return *home.settings; }
    [[nodiscard]] PeriodContext Periods() const { return home.document->GetPeriodContext(); }

    void PutText(const QString& key, const QString& entry, const QString& name, const QString& text) const {
        QVERIFY(Settings().WriteSubText(key, entry, name, text, true));
    }
    void PutBytes(const QString& key, const QString& entry, const QString& name,
                  const QByteArray& bytes) const {
        QVERIFY(Settings().WriteSubBinary(key, entry, name, bytes, true));
    }
    void DropValue(const QString& key, const QString& entry, const QString& name) const {
        CSettingsTree& tree = Settings().Tree();
        const CSettingsKey base = tree.OpenKey(tree.Root(), QStringLiteral("Software\\Velmarch\\Settings"));
        QVERIFY(tree.DeleteValue(tree.OpenKey(tree.OpenKey(base, key), entry), name));
    }
    /// The names of an entry's values, and their types and content, in the order of their names.
    [[nodiscard]] EntryContent Content(const QString& key, const QString& entry) const {
        return Settings().ReadEntryContent(key, entry).value_or(EntryContent());
    }
};

/// 32-bit numbers, the lowest byte first.
[[nodiscard]] inline QByteArray Words32(const QList<qint64>& numbers) {
    QByteArray bytes;
    for (const qint64 number : numbers) {
        char word[4];
        qToLittleEndian(static_cast<std::int32_t>(static_cast<std::uint32_t>(number)), word);
        bytes.append(word, 4);
    }
    return bytes;
}
