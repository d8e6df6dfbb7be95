#include "shell/record/COdometerDialog.h"

#include "app/ListTable.h"
#include "shell/look/FormRows.h"
#include "shell/record/DialogHome.h"
#include "support/TestProgram.h"

#include <memory>

namespace {

QString S(const char* text) {
    return QString::fromUtf8(text);
}

CRegionalInfo CommaRegion() {
    CRegionalInfo region;
    region.decimalChar = u',';
    region.usesDotDecimal = false;
    return region;
}

class OdometerHome : public DialogHome {
 public:
    explicit OdometerHome(const CRegionalInfo& region = {}) : DialogHome(region) {}
    void Open(const ExpenseEntryRules::Odometer& opening = {}) {
        dialog = std::make_unique<COdometerDialog>(Context(), QStringList{S("Acme"), S("Alpha"), S("Trip")});
        dialog->SetDraft(opening);
        Show(*dialog);
    }
    [[nodiscard]] QString Trip() const {
        return S("%1 to %2: %3 x %4")
            .arg(Shown("startReading"), Shown("endReading"), Shown("distanceField"), Shown("rateField"));
    }

    std::unique_ptr<COdometerDialog> dialog;
};

}  // namespace

/// The odometer under keys and clicks.
class TestCOdometerDialog : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void TheDistanceFollowsFromTheReadings_data() {
        QTest::addColumn<QString>("start");
        QTest::addColumn<QString>("end");
        QTest::addColumn<QString>("expected");
        QTest::newRow("start and end") << "1000"
                                       << "1120.5"
                                       << "1000 to 1120.5: 120.5 x ";
        QTest::newRow("an end alone counts from 0") << ""
                                                    << "1120"
                                                    << " to 1120: 1120 x ";
        QTest::newRow("an end below the start leaves the distance") << "1000"
                                                                    << "9"
                                                                    << "1000 to 9: 7.00 x ";
        QTest::newRow("an end at the start leaves it, too") << "9"
                                                            << "9"
                                                            << "9 to 9: 7.00 x ";
        QTest::newRow("a start that is no number counts as 0") << "home"
                                                               << "8"
                                                               << "home to 8: 8 x ";
        QTest::newRow("an end that is no number counts as 0") << "5"
                                                              << "work"
                                                              << "5 to work: 7.00 x ";
        QTest::newRow("nothing leaves the distance") << ""
                                                     << ""
                                                     << " to : 7.00 x ";
    }
    void TheDistanceFollowsFromTheReadings() {
        QFETCH(QString, start);
        QFETCH(QString, end);
        OdometerHome t;
        t.Open({{}, {}, {}, S("7.00")});
        t.Type("startReading", start);
        t.Type("endReading", end);
        QTEST(t.Trip(), "expected");
    }

    void TheDistanceFollowsAtEveryKey() {
        OdometerHome t;
        t.Open({S("10"), {}, {}, {}});
        t.Type("endReading", S("1"));
        QCOMPARE(t.Shown("distanceField"), QString());
        t.Keys("endReading", S("5"));
        QCOMPARE(t.Shown("distanceField"), S("5"));
        t.Keys("endReading", S("0"));
        QCOMPARE(t.Shown("distanceField"), S("140"));
    }

    /// A screen reader puts in a reading as a whole, without a key.
    void AReadingPutInFromOutside() {
        OdometerHome t;
        t.Open({S("10"), {}, {}, S("7.00")});
        QCOMPARE(t.Trip(), S("10 to : 7.00 x "));
        t.Find<QLineEdit>("endReading")->setText(S("150"));
        QCOMPARE(t.Trip(), S("10 to 150: 140 x "));
    }

    /// A distance that isn't the difference of its readings stays when the dialog opens.
    void OpeningComputesNothing() {
        OdometerHome t;
        t.Open({S("10"), S("20"), {}, S("7.00")});
        QCOMPARE(t.Trip(), S("10 to 20: 7.00 x "));
    }

    void ADecimalComma() {
        OdometerHome t(CommaRegion());
        t.Open();
        t.Type("startReading", S("1000"));
        t.Type("endReading", S("1120,5"));
        QCOMPARE(t.Shown("distanceField"), S("120,5"));
    }

    void ADistanceMadeByHandHasNoReadings_data() {
        QTest::addColumn<QString>("by");
        QTest::addColumn<QString>("expected");
        QTest::newRow("typed") << "keys"
                               << " to : 9 x 0.500";
        QTest::newRow("picked") << "list"
                                << " to : 42 x 0.500";
        QTest::newRow("cleared") << ""
                                 << " to :  x 0.500";
    }
    void ADistanceMadeByHandHasNoReadings() {
        QFETCH(QString, by);
        OdometerHome t;
        t.AddItems(ListId::kDistance, {S("42")});
        t.Open({S("10"), S("20"), S("0.500"), S("10.00")});
        if (by == S("list"))
            t.Pick("distanceField", S("42"));
        else
            t.Type("distanceField", by.isEmpty() ? QString() : S("9"));
        QTEST(t.Trip(), "expected");
        t.Press("acceptButton");
        QCOMPARE(t.dialog->GetDraft().start, QString());
        QCOMPARE(t.dialog->GetDraft().end, QString());
    }

    void OpeningAndClosingTheListKeepsTheReadings() {
        OdometerHome t;
        t.AddItems(ListId::kDistance, {S("42")});
        t.Open({S("10"), S("20"), {}, S("10.00")});
        t.Find<QWidget>("distanceField")->setFocus();
        t.Key("distanceField", Qt::Key_F4);
        t.Key("distanceField", Qt::Key_Escape);
        QCOMPARE(t.Trip(), S("10 to 20: 10.00 x "));
    }

    void ReadingsThatCantBeReadAreMarked() {
        OdometerHome t;
        t.Open();
        t.Type("startReading", S("home"));
        QVERIFY(IsMarked(*t.Line("startReading")));
        QVERIFY(!IsMarked(*t.Line("endReading")));
        t.Type("startReading", QString());
        QVERIFY(!IsMarked(*t.Line("startReading")));
        t.Type("rateField", S("x"));
        QVERIFY(IsMarked(*t.Line("rateField")));
        t.home.prompt.ExpectTold(Text::NumberRefused);
        t.dialog->accept();
        QVERIFY(t.dialog->isVisible());
        QCOMPARE(t.Line("rateField")->selectedText(), S("x"));
    }

    void AcceptTakesTheTexts() {
        OdometerHome t;
        t.Open();
        t.Enter("startReading", S("1000"));
        t.Enter("endReading", S("1120 km"));
        t.Enter("distanceField", S("120"));
        t.Enter("startReading", S("1,000"));
        t.Enter("rateField", S("0.5"));
        t.Key("rateField", Qt::Key_Return);
        QCOMPARE(t.dialog->result(), int(QDialog::Accepted));
        const auto draft = t.dialog->GetDraft();
        QCOMPARE(draft.start, S("1,000"));  // the rules take it as 1000
        QCOMPARE(draft.end, QString());
        QCOMPARE(draft.distance, S("120"));
        QCOMPARE(draft.rate, S("0.5"));
    }

    void TheFirstReadingToEnterHasTheFocus_data() {
        QTest::addColumn<QString>("start");
        QTest::addColumn<QString>("focus");
        QTest::newRow("a new trip") << ""
                                    << "startReading";
        QTest::newRow("a suggested start") << "1120"
                                           << "endReading";
    }
    void TheFirstReadingToEnterHasTheFocus() {
        QFETCH(QString, start);
        OdometerHome t;
        t.Open({start, {}, {}, {}});
        QTEST(t.dialog->focusWidget()->objectName(), "focus");
    }

    void ListsDependOnTheItemsOfTheExpense() {
        OdometerHome t;
        t.home.settings->useDependencies = true;
        const std::pair<int, QString> rate{ListId::kDistanceRate, S("0.5")};
        t.Hang(DependencySet::Expense, {{ListId::kClient, S("Acme")},
                                        {ListId::kProject, S("Alpha")},
                                        {ListId::kExpenseItem3, S("Trip")},
                                        rate,
                                        {ListId::kDistance, S("120")}});
        t.Hang(DependencySet::Expense, {{ListId::kClient, S("Other")},
                                        {ListId::kProject, S("Alpha")},
                                        {ListId::kExpenseItem3, S("Trip")},
                                        {ListId::kDistanceRate, S("0.7")}});
        t.Open();
        QCOMPARE(t.Offered("rateField"), QStringList{S("0.5")});
        QCOMPARE(t.Offered("distanceField"), QStringList());
        // The rate is the fourth step, in whatever form it is typed.
        t.Enter("rateField", S("0.50"));
        QCOMPARE(t.Offered("distanceField"), QStringList{S("120")});
    }

    void LongReadings() {
        OdometerHome t;
        t.Open();
        t.Line("startReading")->insert(QString(300, u'1'));
        QCOMPARE(t.Shown("startReading").size(), 255);
    }

    void TabFollowsTheReadingOrder() {
        OdometerHome t;
        t.Open();
        const QStringList expected{S("startReading"), S("endReading"),   S("distanceField"),
                                   S("rateField"),    S("acceptButton"), S("cancelButton")};
        QCOMPARE(t.TabOrder(expected.size()), expected);
    }

    void Manners() {
        OdometerHome t;
        t.Open();
        VERIFY_MNEMONICS(t, 6);
        VERIFY_SMALL_SCREEN(*t.dialog);
        QCOMPARE(t.Unnamed(), QString());
        t.dialog->resize(500, 300);
        t.dialog->reject();
        t.Open();
        QCOMPARE(t.dialog->size(), QSize(500, 300));
    }
};

TEST_CLASS(TestCOdometerDialog);
#include "TestCOdometerDialog.moc"
