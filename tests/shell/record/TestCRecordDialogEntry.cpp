#include "shell/record/CRecordDialogEntry.h"

#include "app/ListTable.h"
#include "config/SettingsTable.h"
#include "lang/LoadText.h"
#include "shell/look/FormRows.h"
#include "shell/record/RecordDialogHome.h"
#include "support/TestProgram.h"

/// The page with items and money: what keys and clicks show, and what the record and the lists hold
/// afterwards.
class TestCRecordDialogEntry : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void RateAndAmountFollowOneAnother() {
        RecordDialogHome t;
        t.SetTimes(QStringLiteral("08:00"), QStringLiteral("09:30"));
        t.record.SetBillable(true);
        t.Open();
        t.Type("rateField", QStringLiteral("10"));
        QCOMPARE(t.Shown("rateField"), QStringLiteral("10"));
        QCOMPARE(t.Shown("amountField"), QStringLiteral("15.00"));
        t.Type("amountField", QStringLiteral("30"));
        QCOMPARE(t.Shown("rateField"), QStringLiteral("20.000"));
        QCOMPARE(t.Label("moneySum"), QStringLiteral("30.00"));
        // The amount was typed: a longer duration makes the rate smaller.
        t.Enter("durationField", QStringLiteral("3"));
        QCOMPARE(t.Shown("rateField"), QStringLiteral("10.000"));
        QCOMPARE(t.Shown("amountField"), QStringLiteral("30"));
        t.dialog->accept();
        QCOMPARE(t.dialog->GetDraft().Record().GetRateText(), QStringLiteral("10.000"));
        QCOMPARE(t.dialog->GetDraft().Record().GetAmountText(), QStringLiteral("30.00"));
    }

    void MoneyThatIsNoNumberChangesNothingAndIsMarked() {
        RecordDialogHome t;
        t.SetTimes(QStringLiteral("08:00"), QStringLiteral("10:00"));
        t.record.SetBillable(true);
        t.record.SetRate(10);
        t.Open();
        t.Type("rateField", QStringLiteral("x"));
        QVERIFY(IsMarked(*t.Line("rateField")));
        QCOMPARE(t.Shown("amountField"), QStringLiteral("20.00"));
        QCOMPARE(t.Label("moneySum"), QStringLiteral("20.00"));
        t.Type("rateField", QStringLiteral("5"));
        QVERIFY(!IsMarked(*t.Line("rateField")));
        QCOMPARE(t.Shown("amountField"), QStringLiteral("10.00"));
    }

    void BillableGovernsTheMoney() {
        RecordDialogHome t;
        t.SetTimes(QStringLiteral("08:00"), QStringLiteral("10:00"));
        t.Open();
        t.TurnTo(1);
        for (const char* name : {"rateField", "amountField", "billedBox"})
            QVERIFY(!t.Find<QWidget>(name)->isEnabled());
        t.Press("billableBox");
        for (const char* name : {"rateField", "amountField", "billedBox"})
            QVERIFY(t.Find<QWidget>(name)->isEnabled());
        t.Type("rateField", QStringLiteral("10"));
        t.Press("billedBox");
        QCOMPARE(t.Label("moneySum"), QStringLiteral("20.00"));
        t.Press("billableBox");
        QCOMPARE(t.Shown("rateField"), QString());
        QCOMPARE(t.Shown("amountField"), QString());
        QVERIFY(!t.Find<QCheckBox>("billedBox")->isChecked());
        QCOMPARE(t.Label("moneySum"), QString());
    }

    void AnUnreadRateIsNoValueAfterAcceptance() {
        RecordDialogHome t;
        t.SetTimes(QStringLiteral("08:00"), QStringLiteral("10:00"));
        t.record.SetBillable(true);
        t.record.SetRate(10);
        t.Open();
        t.Type("rateField", QString());
        QVERIFY(!IsMarked(*t.Line("rateField")));
        t.dialog->accept();
        QCOMPARE(t.dialog->GetDraft().Record().rate.value, -1.0F);
        QCOMPARE(t.dialog->GetDraft().Record().amount.value, 20.0F);
    }

    void EveryFieldOffersItsList_data() {
        QTest::addColumn<QString>("field");
        QTest::addColumn<int>("list");
        QTest::addColumn<QString>("item");
        QTest::newRow("clients") << "item1Field" << ListId::kClient << "Acme";
        QTest::newRow("projects") << "item2Field" << ListId::kProject << "Alpha";
        QTest::newRow("the third list of time records") << "item3Field" << ListId::kTimeItem3 << "Design";
        QTest::newRow("the fourth") << "item4Field" << ListId::kTimeItem4 << "Cost centre 4";
        QTest::newRow("the fifth, shared with expenses") << "item5Field" << ListId::kItem5 << "EUR";
        QTest::newRow("hourly rates") << "rateField" << ListId::kTimeRate << "62.5";
        QTest::newRow("amounts") << "amountField" << ListId::kAmount << "100";
    }
    void EveryFieldOffersItsList() {
        QFETCH(QString, field);
        QFETCH(int, list);
        QFETCH(QString, item);
        RecordDialogHome t;
        t.AddItems(list, {item});
        t.record.SetBillable(true);
        t.Open();
        t.TurnTo(1);
        QCOMPARE(t.Offered(qPrintable(field)), QStringList{item});
    }

    void APickedRateIsEnteredAsATypedOne() {
        RecordDialogHome t;
        t.AddItems(ListId::kTimeRate, {QStringLiteral("62.5")});
        t.SetTimes(QStringLiteral("08:00"), QStringLiteral("10:00"));
        t.record.SetBillable(true);
        t.Open();
        t.TurnTo(1);
        t.Pick("rateField", QStringLiteral("62.5"));
        QCOMPARE(t.Shown("rateField"), QStringLiteral("62.5"));
        QCOMPARE(t.Shown("amountField"), QStringLiteral("125.00"));
        QCOMPARE(t.Label("moneySum"), QStringLiteral("125.00"));
    }

    void FieldsOfTheChainOfferWhatGoesWithThoseAbove() {
        RecordDialogHome t;
        t.home.settings->useDependencies = true;
        using L = std::pair<int, QString>;
        const L acme{ListId::kClient, QStringLiteral("Acme")};
        const L alpha{ListId::kProject, QStringLiteral("Alpha")};
        const L design{ListId::kTimeItem3, QStringLiteral("Design")};
        const L centre{ListId::kTimeItem4, QStringLiteral("Centre 4")};
        t.Hang(DependencySet::Time,
               {acme, alpha, design, centre, {ListId::kTimeRate, QStringLiteral("62.5")}});
        t.Hang(DependencySet::Time,
               {{ListId::kClient, QStringLiteral("Other")}, {ListId::kProject, QStringLiteral("Beta")}});
        t.AddItems(ListId::kItem5, {QStringLiteral("EUR")});
        t.record.SetBillable(true);
        t.Open();
        t.TurnTo(1);
        QCOMPARE(t.Offered("item1Field"), QStringList({QStringLiteral("Acme"), QStringLiteral("Other")}));
        QCOMPARE(t.Offered("item2Field"), QStringList());
        t.Enter("item1Field", QStringLiteral("Acme"));
        QCOMPARE(t.Offered("item2Field"), QStringList{QStringLiteral("Alpha")});
        t.Enter("item2Field", QStringLiteral("Alpha"));
        t.Enter("item3Field", QStringLiteral("Design"));
        t.Enter("item4Field", QStringLiteral("Centre 4"));
        QCOMPARE(t.Offered("rateField"), QStringList{QStringLiteral("62.5")});
        // Nothing in the middle: what is below offers nothing and keeps what it has.
        t.Enter("item2Field", QString());
        QCOMPARE(t.Offered("item3Field"), QStringList());
        QCOMPARE(t.Offered("rateField"), QStringList());
        QCOMPARE(t.Shown("item3Field"), QStringLiteral("Design"));
        // A first text that nothing hangs under.
        t.Enter("item1Field", QStringLiteral("acme"));
        QCOMPARE(t.Offered("item2Field"), QStringList());
        // Outside the chain.
        QCOMPARE(t.Offered("item5Field"), QStringList{QStringLiteral("EUR")});
    }

    void WhatWasTypedIsKept_data() {
        QTest::addColumn<QString>("setting");
        QTest::addColumn<QString>("field");
        QTest::addColumn<int>("list");
        QTest::addColumn<QString>("typed");
        QTest::addColumn<QString>("kept");
        QTest::newRow("client") << "keepTimeList109"
                                << "item1Field" << ListId::kClient << "Acme"
                                << "Acme";
        QTest::newRow("project") << "keepTimeList110"
                                 << "item2Field" << ListId::kProject << "A%1"
                                 << "A%1";
        QTest::newRow("third") << "keepTimeList111"
                               << "item3Field" << ListId::kTimeItem3 << "C"
                               << "C";
        QTest::newRow("fourth") << "keepTimeList112"
                                << "item4Field" << ListId::kTimeItem4 << "D"
                                << "D";
        QTest::newRow("fifth") << "keepTimeList114"
                               << "item5Field" << ListId::kItem5 << "EUR"
                               << "EUR";
        QTest::newRow("rate") << "keepTimeList113"
                              << "rateField" << ListId::kTimeRate << "62.50"
                              << "62.5";
        QTest::newRow("amount") << "keepTimeList115"
                                << "amountField" << ListId::kAmount << "100"
                                << "100";
    }
    void WhatWasTypedIsKept() {
        QFETCH(QString, setting);
        QFETCH(QString, field);
        QFETCH(int, list);
        QFETCH(QString, typed);
        QFETCH(QString, kept);
        for (const bool isOn : {true, false}) {
            RecordDialogHome t;
            PutSetting(*t.home.settings, *FindSetting(setting), isOn ? 1 : 0);
            t.record.SetBillable(true);
            t.Open();
            t.TurnTo(1);
            t.Enter(qPrintable(field), typed);
            t.dialog->accept();
            QCOMPARE(t.ItemsOf(list), isOn ? QStringList{kept} : QStringList());
            // The next record finds it there.
            t.Open();
            t.TurnTo(1);
            t.Enter(qPrintable(field), typed);
            t.dialog->accept();
            QCOMPARE(t.ItemsOf(list).size(), isOn ? 1 : 0);
        }
    }

    void WhatIsComputedIsNeverKept() {
        RecordDialogHome t;
        t.home.settings->keepTimeList115 = true;
        t.SetTimes(QStringLiteral("08:00"), QStringLiteral("10:00"));
        t.record.SetBillable(true);
        t.Open();
        t.TurnTo(1);
        t.Enter("rateField", QStringLiteral("10"));
        QCOMPARE(t.Shown("amountField"), QStringLiteral("20.00"));
        t.dialog->accept();
        QCOMPARE(t.ItemsOf(ListId::kTimeRate), QStringList{QStringLiteral("10")});
        QCOMPARE(t.ItemsOf(ListId::kAmount), QStringList());
    }

    void CancelKeepsNothing() {
        RecordDialogHome t;
        t.Open();
        t.TurnTo(1);
        t.Enter("item1Field", QStringLiteral("Acme"));
        t.home.prompt.Expect(Text::AskLeaveNew, Answer::No);
        t.dialog->reject();
        QCOMPARE(t.ItemsOf(ListId::kClient), QStringList());
    }
};

TEST_CLASS(TestCRecordDialogEntry);
#include "TestCRecordDialogEntry.moc"
