#include "shell/record/CCodedTextDialog.h"

#include "app/ListTable.h"
#include "shell/record/ExpenseDialogHome.h"
#include "support/TestProgram.h"

namespace {

QString S(const char* text) {
    return QString::fromUtf8(text);
}

class CodesHome : public DialogHome {
 public:
    void Open(const CodedItems& items = {}) {
        dialog = std::make_unique<CCodedTextDialog>(Context());
        dialog->SetDraft(items);
        Show(*dialog);
    }

    std::unique_ptr<CCodedTextDialog> dialog;
};

}  // namespace

/// Codes and names of an expense's items under keys and clicks.
class TestCCodedTextDialog : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void OpensOnTheParts_data() {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("code");
        QTest::addColumn<QString>("name");
        QTest::addColumn<bool>("isReplaced");
        QTest::newRow("code and name") << "[4711] Acme"
                                       << "4711"
                                       << "Acme" << false;
        QTest::newRow("a code alone") << "[4711] "
                                      << "4711"
                                      << "" << false;
        QTest::newRow("a name alone") << "[] Acme"
                                      << ""
                                      << "Acme" << false;
        QTest::newRow("a separator in the name") << "[1] a] b"
                                                 << "1"
                                                 << "a] b" << false;
        QTest::newRow("no prefix") << "Acme"
                                   << ""
                                   << "" << true;
        QTest::newRow("no separator") << "[4711]"
                                      << ""
                                      << "" << true;
        QTest::newRow("nothing") << ""
                                 << ""
                                 << "" << false;
    }
    void OpensOnTheParts() {
        QFETCH(QString, text);
        CodesHome t;
        t.Open({S("[1] one"), text, {}, {}});
        QTEST(t.Shown("item2Code"), "code");
        QTEST(t.Shown("item2Name"), "name");
        QFETCH(bool, isReplaced);
        QCOMPARE(t.Find<QLabel>("replacedNote")->isVisible(), isReplaced);
        if (isReplaced) QVERIFY(t.Label("replacedNote").contains(text));
    }

    void JoinsThePartsAgain_data() {
        QTest::addColumn<QString>("code");
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("expected");
        QTest::newRow("both") << "12"
                              << "M\u00fcller \"&%"
                              << "[12] M\u00fcller \"&%";
        QTest::newRow("a code alone") << "12"
                                      << ""
                                      << "[12] ";
        QTest::newRow("a name alone") << ""
                                      << "Acme"
                                      << "[] Acme";
        QTest::newRow("both empty: the item is empty") << ""
                                                       << ""
                                                       << "";
    }
    void JoinsThePartsAgain() {
        QFETCH(QString, code);
        QFETCH(QString, name);
        CodesHome t;
        t.Open({S("[4711] Acme"), S("plain"), {}, {}});
        t.Enter("item1Code", code);
        t.Enter("item1Name", name);
        t.Press("acceptButton");
        QTEST(t.dialog->GetDraft()[0], "expected");
        QCOMPARE(t.dialog->GetDraft()[1], S("plain"));
    }

    void APlainTextIsReplacedByWhatIsEnteredForIt() {
        CodesHome t;
        t.Open({S("plain"), {}, {}, {}});
        t.Enter("item1Name", S("Acme"));
        QCOMPARE(t.dialog->GetDraft()[0], S("[] Acme"));
        t.Enter("item1Name", QString());
        QCOMPARE(t.dialog->GetDraft()[0], S("plain"));
    }

    void PaymentOffersItsKinds() {
        CodesHome t;
        t.Open({QString(), {}, {}, S("my own card")});
        QCOMPARE(t.Shown("paymentField"), S("my own card"));
        const QStringList offered = t.Offered("paymentField");
        QCOMPARE(offered.size(), 19);
        QCOMPARE(offered.front(), S("CA: Cash"));
        t.Pick("paymentField", S("CA: Cash"));
        t.Press("acceptButton");
        QCOMPARE(t.dialog->GetDraft()[3], S("CA: Cash"));
    }

    void BothPartsShareTheRoomOfOneText() {
        CodesHome t;
        t.Open();
        t.Line("item1Name")->insert(QString(300, u'n'));
        t.Line("item1Code")->insert(S("12"));
        t.dialog->accept();
        QCOMPARE(t.dialog->GetDraft()[0], S("[] ") + QString(252, u'n'));
        t.Open();
        t.Line("item1Code")->insert(S("12"));
        t.Line("item1Name")->insert(QString(300, u'n'));
        QCOMPARE(t.dialog->GetDraft()[0], S("[12] ") + QString(250, u'n'));
    }

    void TheItemsOfTheExpenseTakeThem() {
        ExpenseDialogHome t;
        t.record.item1 = S("[1] Acme");
        t.record.item2 = S("plain");
        t.record.item4 = S("Visa");
        t.Open();
        t.TurnTo(1);
        t.Enter("item3Field", S("[T] Trip"));
        t.PressAndDo("codesButton", [](const DialogUser& codes) {
            QCOMPARE(codes.Shown("item3Code"), S("T"));
            codes.Enter("item1Name", S("Acme Ltd"));
            codes.Enter("item2Code", S("7"));
            codes.Pick("paymentField", S("CA: Cash"));
            codes.Press("acceptButton");
        });
        QCOMPARE(t.Shown("item1Field"), S("[1] Acme Ltd"));
        QCOMPARE(t.Shown("item2Field"), S("[7] "));
        QCOMPARE(t.Shown("item3Field"), S("[T] Trip"));
        QCOMPARE(t.Shown("item4Field"), S("CA: Cash"));
        t.PressAndDo("codesButton", [](const DialogUser& codes) {
            codes.Enter("item1Code", S("other"));
            codes.Press("cancelButton");
        });
        QCOMPARE(t.Shown("item1Field"), S("[1] Acme Ltd"));
        t.dialog->accept();
        QCOMPARE(t.dialog->GetDraft().Record().item2, S("[7] "));
    }

    void RowsAreCalledAsTheUserCallsTheFields() {
        CodesHome t;
        t.NameField(132, S("Matter"));
        t.NameField(134, S("Paid by"));
        t.Open();
        QCOMPARE(t.Find<QWidget>("item2Code")->accessibleName(), S("Matter: Code"));
        QCOMPARE(t.Find<QWidget>("item2Name")->accessibleName(), S("Matter: Name"));
        QCOMPARE(QString(t.Label("paymentFieldLabel")).remove(u'&'), S("Paid by"));
    }

    void TabFollowsTheReadingOrder() {
        CodesHome t;
        t.Open();
        const QStringList expected{S("item1Code"),    S("item1Name"),    S("item2Code"),
                                   S("item2Name"),    S("item3Code"),    S("item3Name"),
                                   S("paymentField"), S("acceptButton"), S("cancelButton")};
        QCOMPARE(t.TabOrder(expected.size()), expected);
    }

    void Manners() {
        CodesHome t;
        t.Open({QString(255, u'W'), QString(255, u'W'), QString(255, u'W'), {}});
        VERIFY_MNEMONICS(t, 6);
        VERIFY_SMALL_SCREEN(*t.dialog);
        QCOMPARE(t.Unnamed(), QString());
        t.dialog->resize(600, 300);
        t.dialog->reject();
        t.Open();
        QCOMPARE(t.dialog->size(), QSize(600, 300));
    }
};

TEST_CLASS(TestCCodedTextDialog);
#include "TestCCodedTextDialog.moc"
