#include "shell/list/CEmptyNote.h"

#include "lang/LoadText.h"
#include "support/TestProgram.h"
#include "viewmodel/commands/CommandTable.h"

#include <QLabel>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>

using namespace Qt::Literals::StringLiterals;

class TestCEmptyNote final : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void initTestCase() { QVERIFY(LoadLanguageLibrary(QStringLiteral(TEST_BIN_DIR))); }

    void SaysWhyAndOffersOneThing_data() {
        QTest::addColumn<int>("reason");
        QTest::addColumn<int>("mode");
        QTest::addColumn<QString>("sentence");
        QTest::addColumn<QString>("button");
        QTest::addColumn<int>("command");
        QTest::addColumn<bool>("offersGuide");
        const auto row = [](const char* name, EmptyReason reason, RecordMode mode, Text sentence, Text button,
                            int command, bool offersGuide) {
            QTest::newRow(name) << static_cast<int>(reason) << static_cast<int>(mode) << LoadText(sentence)
                                << LoadText(button) << command << offersGuide;
        };
        row("no time records", EmptyReason::NoRecords, RecordMode::Time, Text::EmptyNoRecords,
            Text::ButtonNew, Command::kNew, true);
        row("no expenses", EmptyReason::NoRecords, RecordMode::Expense, Text::EmptyNoExpenses,
            Text::ButtonNewExpense, Command::kNew, true);
        row("unreadable", EmptyReason::Unreadable, RecordMode::Time, Text::EmptyUnreadable, Text::ButtonNew,
            Command::kNew, false);
        row("loading", EmptyReason::Loading, RecordMode::Time, Text::EmptyLoading, Text::ButtonNew,
            Command::kNew, false);
    }
    void SaysWhyAndOffersOneThing() {
        QFETCH(int, reason);
        QFETCH(int, mode);
        QFETCH(bool, offersGuide);
        CEmptyNote note;
        note.Show(static_cast<EmptyReason>(reason), static_cast<RecordMode>(mode), u"This month"_s);
        QTEST(note.findChild<QLabel*>(u"emptySentence"_s)->text(), "sentence");
        auto* button = note.findChild<QPushButton*>(u"emptyButton"_s);
        QTEST(button->text(), "button");
        auto* guide = note.findChild<QPushButton*>(u"emptyGuide"_s);
        QCOMPARE(!guide->isHidden(), offersGuide);
        QSignalSpy wanted(&note, &CEmptyNote::CommandWanted);
        button->click();
        QTEST(wanted.last().first().toInt(), "command");
        guide->click();
        QCOMPARE(wanted.last().first().toInt(), Command::kGuide);
    }

    void ExpensesAreCalledExpenses() {
        CEmptyNote note;
        const auto* sentence = note.findChild<QLabel*>(u"emptySentence"_s);
        for (const EmptyReason reason : {EmptyReason::NoRecords, EmptyReason::InPeriod, EmptyReason::NotFound,
                                         EmptyReason::NotAnywhere}) {
            note.Show(reason, RecordMode::Expense, u"lunch"_s);
            QVERIFY2(sentence->text().contains(u"expense"_s), qPrintable(sentence->text()));
            note.Show(reason, RecordMode::Time, u"lunch"_s);
            QVERIFY2(sentence->text().contains(u"record"_s), qPrintable(sentence->text()));
        }
    }
};

TEST_CLASS(TestCEmptyNote);
#include "TestCEmptyNote.moc"
