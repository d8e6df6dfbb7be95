#include "shell/record/EditRecord.h"

#include "shell/record/RecordDialogHome.h"
#include "support/TestProgram.h"

/// The texts for the pick lists that a dialog leaves behind, to be stored with its record.
class TestEditRecord : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void NewItems_data() {
        QTest::addColumn<bool>("isAccepted");
        QTest::addColumn<QStringList>("items");
        QTest::newRow("accepted: those of the record") << true << QStringList{QStringLiteral("Acme")};
        QTest::newRow("cancelled: none, those that were left before neither") << false << QStringList();
    }
    void NewItems() {
        QFETCH(bool, isAccepted);
        RecordDialogHome t;
        t.entered.Add(16, QStringLiteral("Never stored"));
        t.record.item1 = QStringLiteral("Acme");
        QTimer::singleShot(0, qApp, [isAccepted] {
            auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
            if (!dialog) qFatal("no dialog came");
            isAccepted ? dialog->accept() : dialog->reject();
        });
        QCOMPARE(EditRecord(nullptr, t.record, t.Context()), isAccepted);
        QTEST(t.ItemsOf(16), "items");
    }
};

TEST_CLASS(TestEditRecord);
#include "TestEditRecord.moc"
