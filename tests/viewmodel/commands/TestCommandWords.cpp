#include "viewmodel/commands/CommandWords.h"

#include "app/FieldLabels.h"
#include "lang/LoadText.h"
#include "support/TestProgram.h"

#include <QTest>

using namespace Qt::Literals::StringLiterals;

/// How commands are called, with the names that fields have in a mode.
class TestCommandWords final : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void initTestCase() { QVERIFY(LoadLanguageLibrary(QStringLiteral(TEST_BIN_DIR))); }

    void FieldsOfCommands_data() {
        QTest::addColumn<int>("timeField");
        QTest::addColumn<int>("expenseField");
        QTest::newRow("32804") << 109 << 131;
        QTest::newRow("32805") << 110 << 132;
        QTest::newRow("32806") << 111 << 111;
        QTest::newRow("32807") << 112 << 112;
        QTest::newRow("32808") << 133 << 133;
        QTest::newRow("32809") << 134 << 134;
        QTest::newRow("32832") << 117 << 138;
        QTest::newRow("32833") << 118 << 139;
        QTest::newRow("32834") << 141 << 141;
        QTest::newRow("32835") << 142 << 142;
        QTest::newRow("32836") << 140 << 140;
        QTest::newRow("32838") << 117 << 138;
        QTest::newRow("40055") << 118 << 139;
        QTest::newRow("32839") << 141 << 141;
        QTest::newRow("40058") << 142 << 142;
        QTest::newRow("32840") << 140 << 140;
    }
    void FieldsOfCommands() {
        QFETCH(int, timeField);
        QFETCH(int, expenseField);
        const int command = QByteArray(QTest::currentDataTag()).toInt();
        FieldLabels labels;
        labels.Set(expenseField, u"Of expenses"_s);
        labels.Set(timeField, u"Of time"_s);
        const CommandWords ofTime = WordsOf(*FindCommand(command), true, labels);
        const CommandWords ofExpenses = WordsOf(*FindCommand(command), false, labels);
        QCOMPARE(ofTime.name, u"Of time"_s);
        QVERIFY(ofTime.isFieldName);
        QCOMPARE(ofExpenses.name, timeField == expenseField ? u"Of time"_s : u"Of expenses"_s);
    }
    void SixteenOfThem() { QCOMPARE(FieldNameTable().size(), 16U); }

    void Words_data() {
        QTest::addColumn<int>("command");
        QTest::addColumn<bool>("timeMode");
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("tip");
        QTest::addColumn<QString>("status");
        QTest::newRow("mark and dots of a dialog go")
            << 103 << true << u"Edit"_s << u"Edit"_s << u"Edit the selected record"_s;
        QTest::newRow("a field without a name of the user")
            << 32804 << true << u"Client"_s << u"Client"_s
            << u"Show only the records with one value in this field: Client"_s;
        QTest::newRow("a field with one")
            << 32805 << true << u"R & D 100% <b>"_s << u"R & D 100% <b>"_s
            << u"Show only the records with one value in this field: R & D 100% <b>"_s;
        QTest::newRow("the same command of expenses")
            << 32805 << false << u"Job"_s << u"Job"_s
            << u"Show only the records with one value in this field: Job"_s;
        QTest::newRow("a mark") << 40055 << true << u"Paid"_s << u"Mark as Paid"_s
                                << u"Mark the selected records as Paid"_s;
        QTest::newRow("a flag") << 32833 << true << u"Paid"_s << u"Paid"_s
                                << u"Show only the records with this mark, or without it: Paid"_s;
        QTest::newRow("a command of the window alone")
            << 40200 << true << u"Find a command"_s << u"Find a command"_s
            << u"Find a command by its words and run it"_s;
        QTest::newRow("the layout, not the period of that number")
            << 32823 << true << u"Large icons"_s << u"Large icons"_s
            << u"Layout with one text for each record and a large icon"_s;
    }
    void Words() {
        QFETCH(int, command);
        QFETCH(bool, timeMode);
        FieldLabels labels;
        labels.Set(110, u"R & D 100% <b>"_s);
        labels.Set(132, u"Job"_s);
        labels.Set(118, u"Paid"_s);
        const CommandWords words = WordsOf(*FindCommand(command), timeMode, labels);
        QTEST(words.name, "name");
        QTEST(words.tip, "tip");
        QTEST(words.status, "status");
    }
    void PeriodOfTheNumberThatStandsTwice() {
        for (const CommandRow& row : CommandTable())
            if (row.id == 32823 && row.run == Run::PeriodPreset)
                QCOMPARE(WordsOf(row, true, FieldLabels()).tip, u"Last year"_s);
    }
    void NoWordsAreMissing() {
        for (const CommandRow& row : CommandTable())
            for (const bool timeMode : {true, false}) {
                const CommandWords words = WordsOf(row, timeMode, FieldLabels());
                QVERIFY2(!words.name.isEmpty() && !words.tip.isEmpty() && !words.status.isEmpty(), row.name);
                QVERIFY2(!words.name.contains(u'&') && !words.tip.contains(u'%'), row.name);
                QVERIFY2(!words.status.contains(u'%'), row.name);
            }
    }

    void MenuPaths() {
        QCOMPARE(MenuPathOf(*FindCommand(101)), u"Record"_s);
        QCOMPARE(MenuPathOf(*FindCommand(32852)), u"Record > Quick entry"_s);
        QCOMPARE(MenuPathOf(*FindCommand(32773)), u"View > Data tree"_s);
        QCOMPARE(MenuPathOf(*FindCommand(32891)), u"Lists"_s);
    }

    void PlainCaptions() {
        QCOMPARE(PlainCaption(u"&Edit..."_s), u"Edit"_s);
        QCOMPARE(PlainCaption(u"Cut && &paste"_s), u"Cut & paste"_s);
        QCOMPARE(PlainCaption(u"Odd&"_s), u"Odd"_s);
        QCOMPARE(PlainCaption({}), QString());
    }
};

TEST_CLASS(TestCommandWords);
#include "TestCommandWords.moc"
