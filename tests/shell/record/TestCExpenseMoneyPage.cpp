#include "shell/record/CExpenseMoneyPage.h"

#include "lang/LoadText.h"
#include "shell/look/FormRows.h"
#include "shell/record/ExpenseDialogHome.h"
#include "support/TestProgram.h"

namespace {

QString S(const char* text) {
    return QString::fromUtf8(text);
}

}  // namespace

/// The money of an expense: distance, rate and amount while they are typed, and what the record holds
/// afterwards; the way to the odometer and back.
class TestCExpenseMoneyPage : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void TheAmountFollowsWhileTyping_data() {
        QTest::addColumn<QString>("distance");
        QTest::addColumn<QString>("rate");
        QTest::addColumn<QString>("expected");
        QTest::newRow("10 times a half") << "10"
                                         << "0.5"
                                         << "10 x 0.5 = 5.00";
        QTest::newRow("a negative rate gives nothing, no negative amount") << "10"
                                                                           << "-0.5"
                                                                           << "10 x -0.5 = 0.00";
        QTest::newRow("both negative") << "-10"
                                       << "-0.5"
                                       << "-10 x -0.5 = 5.00";
        QTest::newRow("a distance that is no number counts as 0") << "far"
                                                                  << "0.5"
                                                                  << "far x 0.5 = 0.00";
        QTest::newRow("a rate that is no number counts as 0") << "10"
                                                              << "x"
                                                              << "10 x x = 0.00";
        QTest::newRow("no rate yet") << "10"
                                     << ""
                                     << "10 x  = 0.00";
        QTest::newRow("rounded to the amount's places") << "3"
                                                        << "0.333"
                                                        << "3 x 0.333 = 1.00";
    }
    void TheAmountFollowsWhileTyping() {
        QFETCH(QString, distance);
        QFETCH(QString, rate);
        ExpenseDialogHome t;
        t.Open();
        t.Press("distanceEntryBox");
        t.Type("distanceField", distance);
        t.Type("rateField", rate);
        if (rate.isEmpty()) t.Type("distanceField", distance);
        QTEST(t.Money(), "expected");
    }

    /// It can't be entered, and is there to be read.
    void TheComputedAmountIsNotGrey() {
        ExpenseDialogHome t;
        t.SetDistance(10.0F, 0.5F, 5.0F);
        t.Open();
        const auto ink = [&t] { return t.Line("amountField")->palette().color(QPalette::Text); };
        QVERIFY(!t.IsEnabled("amountField"));
        QCOMPARE(ink(), QApplication::palette().color(QPalette::Active, QPalette::Text));
    }

    void EachKeyCounts() {
        ExpenseDialogHome t;
        t.SetDistance(10, 0.5F, 5);
        t.Open();
        t.Type("distanceField", S("1"));
        QCOMPARE(t.Money(), S("1 x 0.500 = 0.50"));
        t.Keys("distanceField", S("2"));
        QCOMPARE(t.Money(), S("12 x 0.500 = 6.00"));
    }

    void APickedDistanceAndRateCountToo() {
        ExpenseDialogHome t;
        t.AddItems(ListId::kDistance, {S("120")});
        t.AddItems(ListId::kDistanceRate, {S("0.25")});
        t.record.isDistance = true;
        t.Open();
        t.Pick("distanceField", S("120"));
        QCOMPARE(t.Shown("amountField"), S("0.00"));
        t.Pick("rateField", S("0.25"));
        QCOMPARE(t.Money(), S("120 x 0.25 = 30.00"));
    }

    void NumbersThatCantBeReadAreMarked() {
        ExpenseDialogHome t;
        t.record.isDistance = true;
        t.Open();
        t.Type("distanceField", S("far"));
        QVERIFY(IsMarked(*t.Line("distanceField")));
        t.Type("distanceField", S("7"));
        QVERIFY(!IsMarked(*t.Line("distanceField")));
        t.Type("rateField", S("x"));
        QVERIFY(IsMarked(*t.Line("rateField")));
        t.Press("distanceEntryBox");
        QVERIFY(!IsMarked(*t.Line("rateField")));
        t.Type("amountField", S("much"));
        QVERIFY(IsMarked(*t.Line("amountField")));
        t.Press("distanceEntryBox");
        QVERIFY(!IsMarked(*t.Line("amountField")));
    }

    void TheBoxTurnsTheDistanceOn() {
        ExpenseDialogHome t;
        t.record.amount.Set(20);
        t.Open();
        const auto areEnabled = [&t](bool isDistance) {
            for (const char* name : {"distanceField", "distanceFieldLabel", "distanceUnit", "rateField",
                                     "rateFieldLabel", "odometerButton"})
                if (t.IsEnabled(name) != isDistance) return QString::fromLatin1(name);
            return t.IsEnabled("amountField") == isDistance ? S("amountField") : QString();
        };
        QCOMPARE(areEnabled(false), QString());
        QCOMPARE(t.Money(), S(" x  = 20.00"));
        t.Press("distanceEntryBox");
        QCOMPARE(areEnabled(true), QString());
        QCOMPARE(t.Shown("amountField"), LoadText(Text::AmountIsComputed));
        t.Enter("distanceField", S("10"));
        t.Enter("rateField", S("0.5"));
        t.Press("distanceEntryBox");
        QCOMPARE(areEnabled(false), QString());
        QCOMPARE(t.Money(), S(" x  = "));
        t.Press("distanceEntryBox");
        QCOMPARE(t.Money(), S(" x  = ") + LoadText(Text::AmountIsComputed));
    }

    void ADistanceEntryWithoutNumbersHasNoAmount() {
        ExpenseDialogHome t;
        t.record.amount.Set(20);
        t.Open();
        t.Press("distanceEntryBox");
        t.dialog->accept();
        const CERecord& record = t.dialog->GetDraft().Record();
        QVERIFY(record.isDistance && !record.distance.isSet);
        QCOMPARE(record.rate.value, -1.0F);
        QCOMPARE(record.amount.value, -1.0F);
    }

    void WhatCantBeReadIsRefused_data() {
        QTest::addColumn<bool>("isDistance");
        QTest::addColumn<QString>("field");
        QTest::addColumn<QString>("typed");
        QTest::newRow("a distance") << true << "distanceField"
                                    << "far";
        QTest::newRow("a distance with something behind it") << true << "distanceField"
                                                             << "10 km";
        QTest::newRow("a rate") << true << "rateField"
                                << "1,5";
        QTest::newRow("an amount") << false << "amountField"
                                   << "much";
        QTest::newRow("an amount above the limit") << false << "amountField"
                                                   << "1000000000";
    }
    void WhatCantBeReadIsRefused() {
        QFETCH(bool, isDistance);
        QFETCH(QString, field);
        QFETCH(QString, typed);
        ExpenseDialogHome t;
        t.SetDistance(10, 0.5F, 5);
        t.record.isDistance = isDistance;
        t.Open();
        t.Type(qPrintable(field), typed);
        QVERIFY(IsMarked(*t.Line(qPrintable(field))));
        t.home.prompt.ExpectTold(Text::NumberRefused);
        t.dialog->accept();
        QVERIFY(t.dialog->isVisible());
        QCOMPARE(t.Line(qPrintable(field))->selectedText(), typed);
        t.Type(qPrintable(field), QString());
        QVERIFY(!IsMarked(*t.Line(qPrintable(field))));
        t.dialog->accept();
        QCOMPARE(t.dialog->result(), int(QDialog::Accepted));
    }

    /// Digits in groups, as the region writes them.
    void DigitsInGroups() {
        ExpenseDialogHome t;
        t.home.settings->keepExpenseList136 = true;
        t.Open();
        t.Type("amountField", S("1,234.50"));
        QVERIFY(!IsMarked(*t.Line("amountField")));
        t.dialog->accept();
        QCOMPARE(t.dialog->GetDraft().Record().amount.value, 1234.5F);
        QCOMPARE(t.ItemsOf(ListId::kAmount), QStringList{S("1234.5")});
    }

    /// More digits than single precision holds: the user is asked, and may go back.
    void ANumberThatIsKeptAsAnotherIsAskedAbout() {
        ExpenseDialogHome t;
        t.Open();
        t.Type("amountField", S("16777217"));
        QVERIFY(IsMarked(*t.Line("amountField")));
        t.home.prompt.Expect(Text::AskNumberKept, Answer::No);
        t.dialog->accept();
        QVERIFY(t.dialog->isVisible());
        t.home.prompt.Expect(Text::AskNumberKept, Answer::Yes);
        t.dialog->accept();
        QCOMPARE(t.dialog->result(), int(QDialog::Accepted));
        QVERIFY(t.dialog->GetDraft().Record().amount.value != 16777217.0);
    }

    void TurnedOffTheRecordKeepsItsDistance() {
        ExpenseDialogHome t;
        t.SetDistance(10, 0.5F, 5);
        t.Open();
        t.Press("distanceEntryBox");
        t.Enter("amountField", S("7"));
        t.dialog->accept();
        const CERecord& record = t.dialog->GetDraft().Record();
        QVERIFY(!record.isDistance);
        QCOMPARE(record.distance.text, S("10.00"));
        QCOMPARE(record.rate.value, 0.5F);
        QCOMPARE(record.amount.value, 7.0F);
    }

    /// A distance that was turned off by mistake comes back; but one that is cleared here is cleared.
    void TurnedOnAgainTheKeptDistanceIsThere() {
        ExpenseDialogHome t;
        t.SetDistance(10, 0.5F, 5);
        t.record.isDistance = false;
        t.Open();
        QCOMPARE(t.Money(), S(" x  = 5.00"));
        t.Press("distanceEntryBox");
        QCOMPARE(t.Money(), S("10.00 x 0.500 = ") + LoadText(Text::AmountIsComputed));
        t.dialog->accept();
        QCOMPARE(t.dialog->GetDraft().Record().GetAmountText(), S("5.00"));
        t.Open();
        t.Press("distanceEntryBox");
        t.Press("distanceEntryBox");
        t.Press("distanceEntryBox");
        QCOMPARE(t.Money(), S(" x  = ") + LoadText(Text::AmountIsComputed));
    }

    void APlainAmountIsTakenAsTyped_data() {
        QTest::addColumn<QString>("typed");
        QTest::addColumn<float>("expected");
        QTest::newRow("a number") << "12.5" << 12.5F;
        QTest::newRow("money that came back") << "-20" << -20.0F;
        QTest::newRow("nothing") << "" << -1.0F;
    }
    void APlainAmountIsTakenAsTyped() {
        QFETCH(QString, typed);
        ExpenseDialogHome t;
        t.record.amount.Set(3);
        t.Open();
        t.Enter("amountField", typed);
        t.dialog->accept();
        QTEST(t.dialog->GetDraft().Record().amount.value, "expected");
    }

    void TheOdometerOpensOnThePage() {
        ExpenseDialogHome t;
        t.SetDistance(10, 0.5F, 5);
        t.record.odometerStart = S("100");
        t.record.odometerEnd = S("110");
        t.Open();
        t.Type("rateField", S("2"));
        t.PressAndDo("odometerButton", [](const DialogUser& odometer) {
            QCOMPARE(odometer.Shown("startReading"), S("100"));
            QCOMPARE(odometer.Shown("endReading"), S("110"));
            QCOMPARE(odometer.Shown("distanceField"), S("10.00"));
            QCOMPARE(odometer.Shown("rateField"), S("2.000"));
            odometer.Press("cancelButton");
        });
    }

    void TheOdometerGivesDistanceAndAmount() {
        ExpenseDialogHome t;
        t.record.isDistance = true;
        t.Open();
        t.Enter("rateField", S("0.5"));
        t.PressAndDo("odometerButton", [](const DialogUser& odometer) {
            odometer.Enter("startReading", S("1000"));
            odometer.Enter("endReading", S("1120.5"));
            odometer.Press("acceptButton");
        });
        QCOMPARE(t.Money(), S("120.50 x 0.500 = 60.25"));
        QCOMPARE(t.home.settings->odometerLastEnd, 1120);
        t.dialog->accept();
        const CERecord& record = t.dialog->GetDraft().Record();
        QCOMPARE(record.odometerStart, S("1000"));
        QCOMPARE(record.odometerEnd, S("1120.5"));
        QCOMPARE(record.distance.text, S("120.50"));
        QCOMPARE(record.GetAmountText(), S("60.25"));
    }

    void TheNextTripStartsWhereThisOneEnded_data() {
        QTest::addColumn<bool>("isSuggested");
        QTest::addColumn<QString>("own");
        QTest::addColumn<QString>("expected");
        QTest::newRow("suggested") << true << ""
                                   << "1120";
        QTest::newRow("not with the setting off") << false << ""
                                                  << "";
        QTest::newRow("not over a reading of its own") << true << "7"
                                                       << "";
    }
    void TheNextTripStartsWhereThisOneEnded() {
        QFETCH(bool, isSuggested);
        QFETCH(QString, own);
        ExpenseDialogHome t;
        t.home.settings->odometerSuggestStart = isSuggested;
        t.record.isDistance = true;
        t.Open();
        t.PressAndDo("odometerButton", [](const DialogUser& odometer) {
            odometer.Enter("endReading", S("1120"));
            odometer.Press("acceptButton");
        });
        t.dialog->accept();
        t.record.odometerEnd = own;
        t.Open();
        QString start;
        t.PressAndDo("odometerButton", [&start](const DialogUser& odometer) {
            start = odometer.Shown("startReading");
            odometer.Press("cancelButton");
        });
        QTEST(start, "expected");
    }

    void TheLastReadingIsSavedAtOnce() {
        ExpenseDialogHome t;
        t.record.isDistance = true;
        t.Open();
        t.PressAndDo("odometerButton", [](const DialogUser& odometer) {
            odometer.Enter("endReading", S("12345.6"));
            odometer.Press("acceptButton");
        });
        CCfgStore fresh(t.home.tree, *t.home.profile, t.home.prompt, t.home.region,
                        LoadText(Text::BaseKeyPath));
        fresh.LoadValues();
        fresh.KeepStoreUntouched();
        QCOMPARE(fresh.odometerLastEnd, 12345);
    }

    void ACancelledOdometerChangesNothing() {
        ExpenseDialogHome t;
        t.home.settings->odometerLastEnd = 50;
        t.SetDistance(10, 0.5F, 5);
        t.Open();
        t.Type("distanceField", S("far"));
        t.PressAndDo("odometerButton", [](const DialogUser& odometer) {
            odometer.Enter("startReading", S("1000"));
            odometer.Enter("endReading", S("1120"));
            odometer.Press("cancelButton");
        });
        QCOMPARE(t.Money(), S("far x 0.500 = 0.00"));
        QCOMPARE(t.home.settings->odometerLastEnd, 50);
        t.Press("distanceEntryBox");
        t.dialog->accept();
        const CERecord& record = t.dialog->GetDraft().Record();
        QCOMPARE(record.odometerStart, QString());
        QCOMPARE(record.distance.text, S("10.00"));
    }

    void TheOdometerOffersWhatGoesWithTheItems() {
        ExpenseDialogHome t;
        t.home.settings->useDependencies = true;
        t.Hang(DependencySet::Expense, {{ListId::kClient, S("Acme")},
                                        {ListId::kProject, S("Alpha")},
                                        {ListId::kExpenseItem3, S("Trip")},
                                        {ListId::kDistanceRate, S("0.5")},
                                        {ListId::kDistance, S("120")}});
        t.record.isDistance = true;
        t.record.item1 = S("Acme");
        t.record.item2 = S("Alpha");
        t.Open();
        t.TurnTo(1);
        t.Enter("item3Field", S("Trip"));
        t.TurnTo(0);
        t.PressAndDo("odometerButton", [](const DialogUser& odometer) {
            QCOMPARE(odometer.Offered("rateField"), QStringList{S("0.5")});
            odometer.Pick("rateField", S("0.5"));
            QCOMPARE(odometer.Offered("distanceField"), QStringList{S("120")});
            odometer.Press("cancelButton");
        });
    }
};

TEST_CLASS(TestCExpenseMoneyPage);
#include "TestCExpenseMoneyPage.moc"
