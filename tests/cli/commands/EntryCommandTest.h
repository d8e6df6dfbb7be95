#pragma once

#include "cli/home/ConsoleHome.h"

#include "platform/settings/CSettingsTree.h"
#include "platform/sqlite/CSqliteFile.h"

#include <QTest>
#include <memory>

/// What the tests of commands share whose group keeps entries under names: "query", "report".
class EntryCommandTest : public QObject {
 protected:
    explicit EntryCommandTest(const QString& group) : m_group(group) {}

    void NewHome() { m_home = std::make_unique<ConsoleHome>(); }
    /// A command of the group, as words of a line.
    [[nodiscard]] Reply Command(const QString& line) const { return Command(Words(line)); }
    [[nodiscard]] Reply Command(const QStringList& words) const {
        return m_home->RunJson(QStringList(m_group) + words);
    }
    /// What a script outside the program does to the settings.
    void Change(const QByteArray& sql) const {
        CSqliteFile file;
        QVERIFY(file.Open(m_home->File(QStringLiteral("velmarch.settings")), CSettingsTree::kFileKind,
                          false) == OpenOutcome::Existed);
        QVERIFY(file.Execute(sql));
    }
    /// It ends with this exit code, says these words on standard error and nothing on standard output.
    static void CheckRefused(const Reply& reply, int exit, const QByteArray& words) {
        QCOMPARE(reply.exit, exit);
        QVERIFY2(reply.err.contains(words), reply.err.constData());
        QCOMPARE(reply.out, QByteArray());
    }
    /// It asks before it goes on, and with nobody to answer it does nothing.
    static void CheckAsks(const Reply& reply, const QByteArray& question) {
        QCOMPARE(reply.exit, 1);
        QVERIFY2(reply.err.contains(question), reply.err.constData());
    }
    /// Options, exit code and words of commands that are refused.
    static void AddRefusedColumns() {
        QTest::addColumn<QString>("options");
        QTest::addColumn<int>("exitCode");
        QTest::addColumn<QByteArray>("words");
    }
    static void AddRefused(const char* options, int exit, const char* words) {
        QTest::newRow(options) << QString::fromUtf8(options) << exit << QByteArray(words);
    }
    /// "delete" of two entries that are there: it asks by the setting.
    void CheckDelete(const QStringList& names, const QByteArray& question) const {
        CheckAsks(Command(QStringList{QStringLiteral("delete"), names[0]}), question);
        const Reply done = Command(QStringList{QStringLiteral("delete"), names[0], QStringLiteral("--yes")});
        QCOMPARE(done.out, QByteArray("{\"deleted\": 1}\n"));
        QCOMPARE(m_home->Run(Words(QStringLiteral("settings set confirmDelete 0"))).exit, 0);
        QCOMPARE(Command(QStringList{QStringLiteral("delete"), names[1]}).exit, 0);
    }
    /// An entry that lost a value: each of these commands fails and names it.
    void CheckUnusable(const QStringList& commands, const QByteArray& name) const {
        for (const QString& command : commands)
            CheckRefused(m_home->RunJson(Words(command)), 1, '"' + name + "\" can't be used");
    }

    std::unique_ptr<ConsoleHome> m_home;

 private:
    QString m_group;
};
