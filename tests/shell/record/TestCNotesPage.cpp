#include "shell/record/CNotesPage.h"

#include "shell/record/RecordDialogHome.h"
#include "support/TestProgram.h"

#include <QPlainTextEdit>

/// The page with the notes.
class TestCNotesPage : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void ReturnInTheNotesIsALine() {
        RecordDialogHome t;
        t.Open();
        t.TurnTo(2);
        QTest::keyClick(t.Find<QPlainTextEdit>("notesField"), Qt::Key_Return);
        QVERIFY(t.dialog->isVisible());
    }

    void FullNotesTakeNothingInTheirMiddle() {
        RecordDialogHome t;
        t.record.notes = QString(31998, u'a') + QStringLiteral("zz");
        t.Open();
        t.TurnTo(2);
        auto* notes = t.Find<QPlainTextEdit>("notesField");
        QTest::keyClicks(notes, QStringLiteral("bbb"));
        QCOMPARE(notes->toPlainText(), t.record.notes);
        QCOMPARE(t.Label("notesRoom"), QStringLiteral("32000 of 32000 characters"));
    }

    void UntouchedNotesStayAsTheyAre() {
        RecordDialogHome t;
        t.record.notes = QStringLiteral("a\r\nb\u00a0c");
        t.Open();
        t.dialog->accept();
        QCOMPARE(t.dialog->GetDraft().Record().notes, QStringLiteral("a\r\nb\u00a0c"));
    }
};

TEST_CLASS(TestCNotesPage);
#include "TestCNotesPage.moc"
