#include "changes/RecordQuestions.h"

#include "app/FieldLabels.h"
#include "entry/RecordMarks.h"
#include "fields/FieldId.h"
#include "lang/LoadText.h"
#include "support/TestProgram.h"

#include <QTest>

using namespace Qt::Literals::StringLiterals;

/// The words of the questions before records are changed.
class TestRecordQuestions final : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void initTestCase() { QVERIFY(LoadLanguageLibrary(QStringLiteral(TEST_BIN_DIR))); }

    void DeletingAndCopying() {
        QCOMPARE(DeleteQuestion(1).words, u"Delete this record?"_s);
        QCOMPARE(DeleteQuestion(3).words, u"Delete 3 records?"_s);
        QCOMPARE(DeleteQuestion(3).onReturn, Answer::No);
        QCOMPARE(CopyQuestion(1).words, u"Copy this record?"_s);
        QCOMPARE(CopyQuestion(2).words, u"Copy 2 records?"_s);
        QCOMPARE(CopyQuestion(2).onReturn, Answer::Yes);
    }

    void Marking_data() {
        QTest::addColumn<int>("records");
        QTest::addColumn<int>("kind");
        QTest::addColumn<int>("mark");
        QTest::addColumn<QString>("expected");
        const auto row = [](const char* name, int records, RecordKind kind, RecordMark mark,
                            const char* expected) {
            QTest::newRow(name) << records << static_cast<int>(kind) << static_cast<int>(mark)
                                << QString::fromLatin1(expected);
        };
        row("one, billable", 1, RecordKind::Time, RecordMark::First, "Mark this record as billable?");
        row("of a pair the second counts", 3, RecordKind::Time, RecordMark::FirstAndSecond,
            "Mark 3 records as billed?");
        row("exported", 3, RecordKind::Time, RecordMark::Exported, "Mark 3 records as exported?");
        row("not exported", 3, RecordKind::Expense, RecordMark::NotExported,
            "Mark 3 records as not exported?");
        row("a name of the user's own", 2, RecordKind::Expense, RecordMark::Fifth,
            "Mark 2 records as \"Family\"?");
    }
    void Marking() {
        QFETCH(int, records);
        QFETCH(int, kind);
        QFETCH(int, mark);
        FieldLabels labels;
        labels.Set(NumberOf(FieldId::Flag5), u"Family"_s);
        QTEST(MarkQuestion(records, RecordKind{kind}, RecordMark{mark}, labels).words, "expected");
        QCOMPARE(MarkQuestion(records, RecordKind{kind}, RecordMark{mark}, labels).onReturn, Answer::No);
    }
};

TEST_CLASS(TestRecordQuestions);
#include "TestRecordQuestions.moc"
