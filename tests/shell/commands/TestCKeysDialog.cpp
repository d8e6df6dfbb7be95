#include "shell/commands/CKeysDialog.h"

#include "app/FieldLabels.h"
#include "lang/LoadText.h"
#include "support/TestHome.h"
#include "support/TestProgram.h"
#include "viewmodel/commands/CommandTable.h"

#include <QKeySequence>
#include <QLineEdit>
#include <QTest>
#include <QTreeView>
#include <algorithm>

using namespace Qt::Literals::StringLiterals;

/// The sheet of all keys.
class TestCKeysDialog final : public QObject {
    Q_OBJECT

    TestHome m_home;
    const FieldLabels m_labels;

    /// All that a row shows, for those that are shown.
    static QStringList Rows(const QDialog& dialog) {
        const QAbstractItemModel* model = dialog.findChild<QTreeView*>()->model();
        QStringList rows;
        for (int row = 0; row < model->rowCount(); ++row) {
            QString text;
            for (int column = 0; column < model->columnCount(); ++column)
                text += model->index(row, column).data().toString() + u'|';
            rows << text;
        }
        return rows;
    }

 private Q_SLOTS:
    void initTestCase() { QVERIFY(LoadLanguageLibrary(QStringLiteral(TEST_BIN_DIR))); }

    void EveryKeyOfTheTableIsThere() {
        const std::vector<KeyedCommand> keyed = KeyedCommands(true, m_labels);
        const auto withKeys = std::ranges::count_if(
            CommandTable(), [](const CommandRow& row) { return !ShortcutsOf(row).isEmpty(); });
        QCOMPARE(static_cast<std::ptrdiff_t>(keyed.size()), withKeys);
        CKeysDialog dialog(keyed, *m_home.profile);
        const QString rows = Rows(dialog).join(u'\n');
        for (const KeyedCommand& command : keyed)
            for (const QString& key : command.keys) QVERIFY2(rows.contains(key), qPrintable(key));
        QVERIFY(rows.contains(u"Return, Enter or F2"_s));
    }

    void KeysAndWordsAreFound_data() {
        QTest::addColumn<QString>("words");
        QTest::addColumn<QString>("expected");
        QTest::newRow("a key") << "ctrl+d"
                               << "Copy";
        QTest::newRow("a word of a command") << "guide"
                                             << "User guide";
    }
    void KeysAndWordsAreFound() {
        QFETCH(QString, words);
        QFETCH(QString, expected);
        CKeysDialog dialog(KeyedCommands(true, m_labels), *m_home.profile);
        dialog.show();
        QVERIFY(QTest::qWaitForWindowActive(&dialog));
        QTest::keyClicks(dialog.findChild<QLineEdit*>(), words);
        QVERIFY2(Rows(dialog).join(u'\n').contains(expected), qPrintable(Rows(dialog).join(u'\n')));
        QVERIFY(Rows(dialog).size() < 4);
    }
};

TEST_CLASS(TestCKeysDialog);
#include "TestCKeysDialog.moc"
