#include "shell/record/CExpenseDialog.h"

#include "config/SettingsTable.h"
#include "lang/LoadText.h"
#include "shell/record/ExpenseDialogHome.h"
#include "support/TestProgram.h"

#include <QPlainTextEdit>

namespace {

QString S(const char* text) {
    return QString::fromUtf8(text);
}

}  // namespace

/// The expense dialog as a whole: what it shows, takes and refuses, its items and flags, its keys and its
/// manners.
class TestCExpenseDialog : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void ShowsTheRecord() {
        ExpenseDialogHome t;
        t.SetDistance(10, 0.5F, 5);
        t.record.item1 = S("M\u00fcller & S\u00f6hne");
        t.record.item3 = S("Trip");
        t.record.item5 = S("EUR");
        t.record.flag1 = t.record.flag2 = t.record.flag5 = true;
        t.record.notes = S("line\nline");
        t.Open();
        QCOMPARE(t.Shown("dateField"), S("11/19/2026"));
        QCOMPARE(t.Label("weekday"), S("Thursday"));
        QVERIFY(t.IsOn("distanceEntryBox"));
        QCOMPARE(t.Money(), S("10.00 x 0.500 = 5.00"));
        QCOMPARE(t.Shown("item1Field"), S("M\u00fcller & S\u00f6hne"));
        QCOMPARE(t.Shown("item3Field"), S("Trip"));
        QCOMPARE(t.Shown("item5Field"), S("EUR"));
        QVERIFY(t.IsOn("flag1Box") && t.IsOn("flag2Box") && !t.IsOn("flag3Box") && t.IsOn("flag5Box"));
        QCOMPARE(t.Find<QPlainTextEdit>("notesField")->toPlainText(), S("line\nline"));
    }

    void AcceptTakesThePages() {
        ExpenseDialogHome t;
        t.Open();
        t.Enter("dateField", S("12/24/2026"));
        t.Enter("amountField", S("12.5"));
        t.Enter("item5Field", S("EUR \"'%"));
        t.TurnTo(1);
        for (const char* name : {"item1Field", "item2Field", "item3Field", "item4Field"})
            t.Enter(name, S("%1 \"'%").arg(QString::fromLatin1(name)));
        for (const char* name : {"flag1Box", "flag2Box", "flag3Box", "flag4Box", "flag5Box"}) t.Press(name);
        t.TurnTo(2);
        t.Keys("notesField", S("a note"));
        t.Press("acceptButton");
        QCOMPARE(t.dialog->result(), int(QDialog::Accepted));
        const CERecord& record = t.dialog->GetDraft().Record();
        QCOMPARE(record.GetId(), t.record.GetId());
        QCOMPARE(record.date.longText, S("12/24/2026"));
        QVERIFY(!record.isDistance);
        QCOMPARE(record.GetAmountText(), S("12.50"));
        QCOMPARE(record.item1, S("item1Field \"'%"));
        QCOMPARE(record.item2, S("item2Field \"'%"));
        QCOMPARE(record.item3, S("item3Field \"'%"));
        QCOMPARE(record.item4, S("item4Field \"'%"));
        QCOMPARE(record.item5, S("EUR \"'%"));
        QVERIFY(record.flag1 && record.flag2 && record.flag3 && record.flag4 && record.flag5);
        QCOMPARE(record.notes, S("a note"));
    }

    void ASecondFlagNeedsItsFirst_data() {
        QTest::addColumn<QString>("first");
        QTest::addColumn<QString>("second");
        QTest::newRow("billed needs billable") << "flag1Box"
                                               << "flag2Box";
        QTest::newRow("reimbursed needs reimbursable") << "flag3Box"
                                                       << "flag4Box";
    }
    void ASecondFlagNeedsItsFirst() {
        QFETCH(QString, first);
        QFETCH(QString, second);
        const QByteArray one = first.toLatin1();
        const QByteArray two = second.toLatin1();
        ExpenseDialogHome t;
        t.Open();
        t.TurnTo(1);
        QVERIFY(!t.IsEnabled(two));
        t.Press(one);
        QVERIFY(t.IsEnabled(two) && !t.IsOn(two));
        t.Press(two);
        QVERIFY(t.IsOn(two));
        t.Press(one);
        QVERIFY(!t.IsEnabled(two) && !t.IsOn(two));
        t.Press(one);
        QVERIFY(!t.IsOn(two));
        t.dialog->accept();
        const CERecord& record = t.dialog->GetDraft().Record();
        QVERIFY(!record.flag2 && !record.flag4);
    }

    void TheFifthFlagStandsAlone() {
        ExpenseDialogHome t;
        t.Open();
        t.TurnTo(1);
        QVERIFY(t.IsEnabled("flag5Box"));
        t.Press("flag5Box");
        t.dialog->accept();
        const CERecord& record = t.dialog->GetDraft().Record();
        QVERIFY(record.flag5 && !record.flag1 && !record.flag3);
    }

    void EveryFieldOffersItsList_data() {
        QTest::addColumn<int>("page");
        QTest::addColumn<QString>("field");
        QTest::addColumn<int>("list");
        QTest::addColumn<QString>("item");
        QTest::newRow("distances") << 0 << "distanceField" << ListId::kDistance << "12.5";
        QTest::newRow("distance rates") << 0 << "rateField" << ListId::kDistanceRate << "0.5";
        QTest::newRow("amounts") << 0 << "amountField" << ListId::kAmount << "100";
        QTest::newRow("the fifth, shared with time records") << 0 << "item5Field" << ListId::kItem5 << "EUR";
        QTest::newRow("clients") << 1 << "item1Field" << ListId::kClient << "Acme";
        QTest::newRow("projects") << 1 << "item2Field" << ListId::kProject << "Alpha";
        QTest::newRow("the third of expenses") << 1 << "item3Field" << ListId::kExpenseItem3 << "Hotel";
        QTest::newRow("the fourth of expenses") << 1 << "item4Field" << ListId::kExpenseItem4 << "Visa";
    }
    void EveryFieldOffersItsList() {
        QFETCH(int, page);
        QFETCH(QString, field);
        QFETCH(int, list);
        QFETCH(QString, item);
        ExpenseDialogHome t;
        t.AddItems(list, {item});
        t.record.isDistance = list == ListId::kDistance || list == ListId::kDistanceRate;
        t.Open();
        t.TurnTo(page);
        QCOMPARE(t.Offered(qPrintable(field)), QStringList{item});
    }

    /// The chain goes over the pages: client, project, description, rate, distance.
    void FieldsOfTheChainOfferWhatGoesWithThoseAbove() {
        ExpenseDialogHome t;
        t.home.settings->useDependencies = true;
        t.Hang(DependencySet::Expense, {{ListId::kClient, S("Acme")},
                                        {ListId::kProject, S("Alpha")},
                                        {ListId::kExpenseItem3, S("Trip")},
                                        {ListId::kDistanceRate, S("0.5")},
                                        {ListId::kDistance, S("120")}});
        t.AddItems(ListId::kExpenseItem4, {S("Visa")});
        t.record.isDistance = true;
        t.Open();
        QCOMPARE(t.Offered("rateField"), QStringList());
        t.TurnTo(1);
        t.Enter("item1Field", S("Acme"));
        QCOMPARE(t.Offered("item2Field"), QStringList{S("Alpha")});
        t.Enter("item2Field", S("Alpha"));
        t.Enter("item3Field", S("Trip"));
        QCOMPARE(t.Offered("item4Field"), QStringList{S("Visa")});
        t.TurnTo(0);
        QCOMPARE(t.Offered("rateField"), QStringList{S("0.5")});
        QCOMPARE(t.Offered("distanceField"), QStringList());
        t.Enter("rateField", S("0.5"));
        QCOMPARE(t.Offered("distanceField"), QStringList{S("120")});
    }

    void RefuseTheDate_data() {
        QTest::addColumn<QString>("typed");
        QTest::addColumn<int>("message");
        QTest::newRow("a day that no month has") << "2/31/2026" << int(Text::DateUnreadable);
        QTest::newRow("no date") << "" << int(Text::DateMissing);
    }
    void RefuseTheDate() {
        QFETCH(QString, typed);
        QFETCH(int, message);
        ExpenseDialogHome t;
        t.Open();
        t.Type("dateField", typed);
        t.TurnTo(2);
        t.home.prompt.ExpectTold(static_cast<Text>(message), Text::CheckEntryTitle);
        t.dialog->accept();
        t.home.prompt.Finish();
        QVERIFY(t.dialog->isVisible());
        QCOMPARE(t.Find<QTabWidget>("pages")->currentIndex(), 0);
        QVERIFY(t.Line("dateField")->hasFocus());
        t.Enter("dateField", S("2/28/2026"));
        QCOMPARE(t.Label("weekday"), S("Saturday"));
        t.dialog->accept();
        QCOMPARE(t.dialog->result(), int(QDialog::Accepted));
        QCOMPARE(t.dialog->GetDraft().Record().date.longText, S("02/28/2026"));
    }

    void ADateIsEnteredInAnyForm() {
        ExpenseDialogHome t;
        t.home.clock.Set(2026, 11, 20, 9, 0);
        t.Open();
        t.Type("dateField", S("t"));
        QCOMPARE(t.Label("weekday"), S("Friday"));
        t.Key("dateField", Qt::Key_Tab);
        QCOMPARE(t.Shown("dateField"), S("11/20/2026"));
        t.Find<QWidget>("dateField")->setFocus();
        t.Key("dateField", Qt::Key_Up);
        QCOMPARE(t.Label("weekday"), S("Saturday"));
    }

    void WhatWasTypedIsKept_data() {
        QTest::addColumn<QString>("setting");
        QTest::addColumn<int>("page");
        QTest::addColumn<QString>("field");
        QTest::addColumn<int>("list");
        QTest::addColumn<QString>("typed");
        QTest::addColumn<QString>("kept");
        QTest::newRow("client") << "keepExpenseList131" << 1 << "item1Field" << ListId::kClient << "A"
                                << "A";
        QTest::newRow("project") << "keepExpenseList132" << 1 << "item2Field" << ListId::kProject << "B"
                                 << "B";
        QTest::newRow("third") << "keepExpenseList133" << 1 << "item3Field" << ListId::kExpenseItem3 << "C"
                               << "C";
        QTest::newRow("fourth") << "keepExpenseList134" << 1 << "item4Field" << ListId::kExpenseItem4 << "D"
                                << "D";
        QTest::newRow("fifth") << "keepExpenseList135" << 0 << "item5Field" << ListId::kItem5 << "EUR"
                               << "EUR";
        QTest::newRow("plain amount")
            << "keepExpenseList136" << 0 << "amountField" << ListId::kAmount << "7.50"
            << "7.5";
        QTest::newRow("distance") << "keepDistance" << 0 << "distanceField" << ListId::kDistance << "12.50"
                                  << "12.50";
        QTest::newRow("distance rate")
            << "keepDistanceRate" << 0 << "rateField" << ListId::kDistanceRate << "0.50"
            << "0.5";
    }
    void WhatWasTypedIsKept() {
        QFETCH(QString, setting);
        QFETCH(int, page);
        QFETCH(QString, field);
        QFETCH(int, list);
        QFETCH(QString, typed);
        QFETCH(QString, kept);
        for (const bool isOn : {true, false}) {
            ExpenseDialogHome t;
            PutSetting(*t.home.settings, *FindSetting(setting), isOn ? 1 : 0);
            t.record.isDistance = list == ListId::kDistance || list == ListId::kDistanceRate;
            t.Open();
            t.TurnTo(page);
            t.Enter(qPrintable(field), typed);
            t.dialog->accept();
            QCOMPARE(t.ItemsOf(list), isOn ? QStringList{kept} : QStringList());
            t.Open();
            t.TurnTo(page);
            t.Enter(qPrintable(field), typed);
            t.dialog->accept();
            QCOMPARE(t.ItemsOf(list).size(), isOn ? 1 : 0);
        }
    }

    void AComputedAmountIsNeverKept() {
        ExpenseDialogHome t;
        t.home.settings->keepExpenseList136 = true;
        t.record.isDistance = true;
        t.Open();
        t.Enter("distanceField", S("10"));
        t.Enter("rateField", S("0.5"));
        t.dialog->accept();
        QCOMPARE(t.dialog->GetDraft().Record().GetAmountText(), S("5.00"));
        QCOMPARE(t.ItemsOf(ListId::kAmount), QStringList());
    }

    void ACodedTextIsNoItem() {
        ExpenseDialogHome t;
        t.Open();
        t.TurnTo(1);
        t.Enter("item1Field", S("[1] Acme"));
        t.dialog->accept();
        QCOMPARE(t.dialog->GetDraft().Record().item1, S("[1] Acme"));
        QCOMPARE(t.ItemsOf(ListId::kClient), QStringList());
    }

    void LeavingAsksOnlyForWhatWouldBeLost_data() {
        QTest::addColumn<QString>("kind");
        QTest::addColumn<int>("question");
        QTest::newRow("a new expense") << "new" << int(Text::AskLeaveNew);
        QTest::newRow("a stored one") << "stored" << int(Text::AskLeaveChanged);
        QTest::newRow("a stored default") << "default" << int(Text::AskLeaveDefault);
    }
    void LeavingAsksOnlyForWhatWouldBeLost() {
        QFETCH(QString, kind);
        QFETCH(int, question);
        ExpenseDialogHome t;
        if (kind == QLatin1String("default")) t.record.SetId({});
        const RecordMode mode = std::exchange(theRecordMode, RecordMode::Expense);
        if (kind == QLatin1String("stored"))
            QVERIFY(t.home.document->AddRecord(t.record, {Notify::Yes, Commit::Now, Identity::Own}));
        t.Open();
        t.dialog->reject();
        QVERIFY(!t.dialog->isVisible());
        t.Open();
        t.Enter("amountField", S("7"));
        t.home.prompt.Expect(static_cast<Text>(question), Answer::Cancel);
        t.dialog->reject();
        QVERIFY(t.dialog->isVisible());
        t.home.prompt.Expect(static_cast<Text>(question), Answer::Yes);
        t.dialog->reject();
        QCOMPARE(t.dialog->result(), int(QDialog::Accepted));
        QCOMPARE(t.dialog->GetDraft().Record().amount.value, 7.0F);
        theRecordMode = mode;
    }

    void CancelChangesNothing() {
        ExpenseDialogHome t;
        t.record.amount.Set(5);
        t.Open();
        t.Enter("amountField", S("7"));
        t.home.prompt.Expect(Text::AskLeaveNew, Answer::No);
        t.dialog->reject();
        QCOMPARE(t.dialog->GetDraft().Record().amount.value, 5.0F);
        QCOMPARE(t.dialog->result(), int(QDialog::Rejected));
    }

    void LongItems_data() {
        QTest::addColumn<QString>("text");
        QTest::addColumn<int>("expected");
        QTest::newRow("255") << QString(255, u'x') << 255;
        QTest::newRow("256") << QString(256, u'x') << 255;
        QTest::newRow("half a character") << QString(254, u'x') + S("\U0001F600") << 254;
    }
    void LongItems() {
        QFETCH(QString, text);
        ExpenseDialogHome t;
        t.Open();
        for (const char* name : {"item3Field", "item5Field"}) t.Line(name)->insert(text);
        t.dialog->accept();
        QTEST(int(t.dialog->GetDraft().Record().item3.size()), "expected");
        QTEST(int(t.dialog->GetDraft().Record().item5.size()), "expected");
    }

    void KeysThatEndTheDialog_data() {
        QTest::addColumn<int>("page");
        QTest::addColumn<QString>("field");
        QTest::addColumn<int>("key");
        QTest::addColumn<int>("modifiers");
        QTest::addColumn<int>("result");
        QTest::newRow("Return in the date") << 0 << "dateField" << int(Qt::Key_Return) << 0 << 1;
        QTest::newRow("Return in an item") << 1 << "item1Field" << int(Qt::Key_Return) << 0 << 1;
        QTest::newRow("Return on a check box") << 1 << "flag5Box" << int(Qt::Key_Return) << 0 << 1;
        QTest::newRow("Return on the button of the codes")
            << 1 << "codesButton" << int(Qt::Key_Return) << 0 << 1;
        QTest::newRow("Ctrl+Return in the notes")
            << 2 << "notesField" << int(Qt::Key_Return) << int(Qt::ControlModifier) << 1;
        QTest::newRow("Escape in the notes") << 2 << "notesField" << int(Qt::Key_Escape) << 0 << 0;
        QTest::newRow("Escape in an item") << 1 << "item1Field" << int(Qt::Key_Escape) << 0 << 0;
    }
    void KeysThatEndTheDialog() {
        QFETCH(int, page);
        QFETCH(QString, field);
        QFETCH(int, key);
        QFETCH(int, modifiers);
        ExpenseDialogHome t;
        t.Open();
        t.TurnTo(page);
        t.Find<QWidget>(qPrintable(field))->setFocus();
        t.Key(qPrintable(field), key, Qt::KeyboardModifiers(modifiers));
        QVERIFY(!t.dialog->isVisible());
        QTEST(t.dialog->result(), "result");
    }

    void FieldsAreCalledAsTheUserCallsThem() {
        ExpenseDialogHome t;
        for (int field = 131; field <= 142; ++field) t.NameField(field, S("My field %1").arg(field));
        t.Open();
        const std::pair<const char*, int> fields[] = {
            {"item1Field", 131}, {"item2Field", 132},  {"item3Field", 133}, {"item4Field", 134},
            {"item5Field", 135}, {"amountField", 136}, {"notesField", 137}, {"flag1Box", 138},
            {"flag2Box", 139},   {"flag3Box", 141},    {"flag4Box", 142},   {"flag5Box", 140},
        };
        for (const auto& [name, field] : fields)
            QCOMPARE(t.Find<QWidget>(name)->accessibleName(), S("My field %1").arg(field));
        QCOMPARE(QString(t.Label("item3FieldLabel")).remove(u'&'), S("My field 133"));
        QCOMPARE(t.Find<QCheckBox>("flag4Box")->text().remove(u'&'), S("My field 142"));
    }

    void TheUnitOfDistances_data() {
        QTest::addColumn<bool>("isMetric");
        QTest::addColumn<QString>("unit");
        QTest::newRow("metric") << true << "km";
        QTest::newRow("not metric") << false << "miles";
    }
    void TheUnitOfDistances() {
        QFETCH(bool, isMetric);
        ExpenseDialogHome t;
        t.home.settings->metricUnits = isMetric;
        t.Open();
        QTEST(t.Label("distanceUnit"), "unit");
    }

    void TabFollowsTheReadingOrder_data() {
        QTest::addColumn<int>("page");
        QTest::addColumn<QStringList>("expected");
        QTest::newRow("money") << 0
                               << QStringList{S("dateField"),      S("distanceEntryBox"), S("distanceField"),
                                              S("odometerButton"), S("rateField"),        S("item5Field"),
                                              S("acceptButton"),   S("cancelButton")};
        QTest::newRow("items") << 1 << QStringList{S("item1Field"),   S("item2Field"),  S("item3Field"),
                                                   S("item4Field"),   S("codesButton"), S("flag1Box"),
                                                   S("flag3Box"),     S("flag4Box"),    S("flag5Box"),
                                                   S("acceptButton"), S("cancelButton")};
    }
    void TabFollowsTheReadingOrder() {
        QFETCH(int, page);
        QFETCH(QStringList, expected);
        ExpenseDialogHome t;
        t.record.isDistance = true;
        t.record.flag3 = true;
        t.Open();
        t.TurnTo(page);
        QCOMPARE(t.TabOrder(expected.size()), expected);
    }

    void MnemonicsComeOnce_data() {
        QTest::addColumn<int>("page");
        QTest::newRow("money") << 0;
        QTest::newRow("items") << 1;
        QTest::newRow("notes") << 2;
    }
    void MnemonicsComeOnce() {
        QFETCH(int, page);
        ExpenseDialogHome t;
        t.Open();
        t.TurnTo(page);
        VERIFY_MNEMONICS(t, 5);
    }

    void EveryFieldIsNamed() {
        ExpenseDialogHome t;
        t.Open();
        QCOMPARE(t.Unnamed(), QString());
    }

    void FitsASmallScreen() {
        ExpenseDialogHome t;
        t.Open();
        VERIFY_SMALL_SCREEN(*t.dialog);
    }

    void RemembersItsSize() {
        ExpenseDialogHome t;
        t.Open();
        t.dialog->resize(600, 450);
        t.dialog->reject();
        t.Open();
        QCOMPARE(t.dialog->size(), QSize(600, 450));
    }

    void Run_data() {
        QTest::addColumn<bool>("isAccepted");
        QTest::addColumn<QString>("expected");
        QTest::newRow("accepted: the expense is changed") << true << "new";
        QTest::newRow("cancelled: the expense is as it was") << false << "old";
    }
    void Run() {
        QFETCH(bool, isAccepted);
        ExpenseDialogHome t;
        t.record.item1 = S("old");
        QTimer::singleShot(0, qApp, [isAccepted] {
            auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
            const DialogUser user(*dialog);
            user.TurnTo(1);
            user.Enter("item1Field", S("new"));
            isAccepted ? dialog->accept() : dialog->reject();
        });
        if (!isAccepted) t.home.prompt.Expect(Text::AskLeaveNew, Answer::No);
        QCOMPARE(RunExpenseDialog(nullptr, t.record, t.Context()), isAccepted);
        QTEST(t.record.item1, "expected");
    }
};

TEST_CLASS(TestCExpenseDialog);
#include "TestCExpenseDialog.moc"
