#include "lang/LoadText.h"
#include "platform/host/CInstallLocation.h"
#include "shell/commands/CommandConditions.h"
#include "shell/commands/ConsoleCounterparts.h"
#include "shell/frame/CFrameCommands.h"
#include "support/TestProgram.h"
#include "viewmodel/commands/BarButtons.h"
#include "viewmodel/commands/CommandWords.h"
#include "viewmodel/commands/MenuTable.h"

#include <QFile>
#include <QProcess>
#include <QTest>
#include <algorithm>
#include <set>

using namespace Qt::Literals::StringLiterals;

namespace {

const ConsoleCounterpart* CounterpartOf(const QString& name) {
    const auto* found = std::ranges::find_if(
        kConsoleCounterparts, [&](const ConsoleCounterpart& row) { return name == QLatin1String(row.name); });
    return found == std::end(kConsoleCounterparts) ? nullptr : found;
}

Menu TopOf(Menu menu) {
    const auto row = std::ranges::find(MenuTable(), menu, &MenuRow::menu);
    return row->parent == menu ? menu : TopOf(row->parent);
}

QString BarsOf(const CommandRow& row) {
    if (FindCommand(row.id) != &row) return {};  // the button is the other one's
    struct BarName {
        Bar bar;
        Text name;
    };
    constexpr BarName kBars[] = {{Bar::Records, Text::BarRecords}, {Bar::Filters, Text::BarFilters}};
    QStringList names;
    for (const BarName& bar : kBars)
        if (FactoryButtons(bar.bar).contains(row.id)) names << LoadText(bar.name);
    if (FactoryButtons(Bar::Report).contains(row.id)) names << u"Report"_s;
    return names.join(u", "_s);
}

QString ConsoleOf(const CommandRow& row) {
    const ConsoleCounterpart* counterpart = CounterpartOf(QString::fromLatin1(row.name));
    if (!counterpart) return u"?"_s;
    if (*counterpart->commands == '\0') return u"none: "_s + QString::fromLatin1(counterpart->why);
    QStringList commands = QString::fromLatin1(counterpart->commands).split(u", "_s);
    for (QString& command : commands) command = u'`' + command + u'`';
    return commands.join(u", "_s);
}

QString LineOf(const CommandRow& row) {
    return (QStringList{QString::number(row.id), u'`' + QString::fromLatin1(row.name) + u'`',
                        PlainCaption(LoadText(row.caption)), MenuPathOf(row), BarsOf(row),
                        ShortcutsOf(row).join(u", "_s), CommandConditions(row).InWords(), ConsoleOf(row)})
        .join(u" | "_s);
}

/// A heading for each menu of the menu bar, below it a table of its commands and those of its submenus.
QString Tables() {
    QString page;
    for (const MenuRow& menu : MenuTable()) {
        if (menu.parent != menu.menu) continue;
        page += u"\n## "_s + PlainCaption(LoadText(menu.caption)) +
                u"\n\n| Number | Name | Caption | Menu | Button on bar | Keys | Offered | Console |\n"
                "|---|---|---|---|---|---|---|---|\n"_s;
        for (const CommandRow& row : CommandTable())
            if (TopOf(row.menu) == menu.menu) page += u"| "_s + LineOf(row) + u" |\n"_s;
    }
    return page;
}

}  // namespace

/// docs/commands.md lists every command as it is: the part from its first menu on is made here, and rewritten
/// with UPDATE_EXPECTED=1.
class TestCommandsPage final : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void initTestCase() { QVERIFY(LoadLanguageLibrary(FolderOf(ModulePath()))); }

    void ThePageIsCurrent() {
        QFile file(QStringLiteral(DOCS_FOLDER "/commands.md"));
        QVERIFY(file.open(QIODevice::ReadWrite));
        const QString page = QString::fromUtf8(file.readAll());
        const qsizetype first = page.indexOf(u"\n## "_s);
        QVERIFY(first > 0);
        if (qEnvironmentVariableIsSet("UPDATE_EXPECTED")) {
            const QByteArray made = (page.left(first) + Tables()).toUtf8();
            QVERIFY(file.resize(0) && file.seek(0) && file.write(made) == made.size());
        } else {
            QCOMPARE(page.mid(first), Tables());
        }
    }
    void EveryCommandIsInIt() {
        const QString tables = Tables();
        QCOMPARE(tables.count(u"\n| "_s),
                 static_cast<qsizetype>(CommandTable().size()) + tables.count(u"\n| Number "_s));
    }

    /// There is a window in which it can be used, and a handler that does it.
    void NoCommandDoesNothing() {
        for (const CommandRow& row : CommandTable()) {
            QVERIFY2(!CommandConditions(row).InWords().isEmpty(), row.name);
            QVERIFY2(CFrameCommands::HasHandler(row.run), row.name);
        }
    }
    void Conditions_data() {
        QTest::addColumn<QString>("words");
        QTest::newRow("32818") << u"record list in front"_s;
        QTest::newRow("40147") << u"always"_s;
        QTest::newRow("103") << u"one record selected"_s;
        QTest::newRow("102") << u"records selected"_s;
        QTest::newRow("32839") << u"expenses, records selected"_s;
        QTest::newRow("32853") << u"time records"_s;
        QTest::newRow("32863") << u"time records, entry of the data tree selected"_s;
        QTest::newRow("32868") << u"time records, a timer"_s;
        QTest::newRow("40068") << u"data tree shown, selected entry with entries below it"_s;
        QTest::newRow("40067") << u"report in front"_s;
        QTest::newRow("40222") << u"report in front, text of the report selected"_s;
        QTest::newRow("32813") << u"record list in front, records listed"_s;
    }
    void Conditions() {
        const CommandRow& row = *FindCommand(QByteArray(QTest::currentDataTag()).toInt());
        QTEST(CommandConditions(row).InWords(), "words");
    }

    /// Each command has its line among the counterparts, none is there twice or for nothing, and what has no
    /// counterpart says why.
    void EveryCommandWasThoughtOf() {
        std::set<QString> names;
        for (const CommandRow& row : CommandTable()) {
            QVERIFY2(CounterpartOf(QString::fromLatin1(row.name)), row.name);
            names.insert(QString::fromLatin1(row.name));
        }
        for (const ConsoleCounterpart& row : kConsoleCounterparts) {
            QVERIFY2(names.erase(QString::fromLatin1(row.name)) == 1, row.name);
            QVERIFY2((*row.commands == '\0') != (*row.why == '\0'), row.name);
        }
    }
    void CounterpartsAreThere_data() {
        QTest::addColumn<QStringList>("words");
        std::set<QString> commands;
        for (const ConsoleCounterpart& row : kConsoleCounterparts)
            for (const QString& command :
                 QString::fromLatin1(row.commands).split(u", "_s, Qt::SkipEmptyParts))
                commands.insert(command);
        for (const QString& command : commands) QTest::newRow(qPrintable(command)) << command.split(u' ');
    }
    /// The console knows the command: it has help on it.
    void CounterpartsAreThere() {
        QFETCH(QStringList, words);
        QProcess console;
        console.start(QStringLiteral(TEST_BIN_DIR "/velmarch-cli"), words + QStringList{u"--help"_s});
        QVERIFY(console.waitForFinished());
        QCOMPARE(console.exitCode(), 0);
        QVERIFY(console.readAllStandardOutput().contains(words.join(u' ').toUtf8()));
    }
};

TEST_CLASS(TestCommandsPage);
#include "TestCommandsPage.moc"
