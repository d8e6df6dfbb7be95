#include "shell/report/CFilterDialog.h"

#include "app/ListTable.h"
#include "config/CCfgStore.h"
#include "lang/LoadText.h"
#include "shell/frame/ModalUser.h"
#include "shell/record/DialogHome.h"
#include "support/TestProgram.h"

#include <QComboBox>
#include <QLabel>
#include <memory>

using namespace Qt::Literals::StringLiterals;

namespace {

/// A filter dialog over a scratch home, on a Thursday: 19 November 2026.
class FilterHome : public DialogHome {
 public:
    explicit FilterHome(RecordMode wanted = RecordMode::Time) : mode(wanted) {
        home.clock.Set(2026, 11, 19, 10, 0);
    }
    [[nodiscard]] FilterDialogContext FilterContext() {
        return {*home.settings, *home.catalogue, home.prompt, home.clock, home.document->GetPeriodContext()};
    }
    void Open(CFilterDialog::Use use = CFilterDialog::Use::List) {
        dialog = std::make_unique<CFilterDialog>(mode, use, FilterContext());
        Show(*dialog);
    }
    [[nodiscard]] CQueryStore Queries() { return {*home.settings, mode}; }
    /// A query that wants a client.
    void Store(const QString& name, const QString& client) {
        StoredQuery query = mode == RecordMode::Time ? StoredQuery(TimeQuery()) : StoredQuery(ExpenseQuery());
        std::visit(
            [&](auto& held) {
                held.Reset(home.document->GetPeriodContext());
                held.items[0] = client;
            },
            query);
        QVERIFY(Queries().Save(name, query));
    }
    [[nodiscard]] QComboBox* Names() const { return Find<QComboBox>("storedQueries"); }
    [[nodiscard]] QStringList Rows() const {
        QStringList rows;
        for (int i = 0; i < Names()->count(); ++i) rows << Names()->itemText(i);
        return rows;
    }
    void Choose(const char* name, const QString& text) const {
        auto* box = Find<QComboBox>(name);
        const int row = box->findText(text);
        if (row < 0) qFatal("%s doesn't offer it", name);
        box->setCurrentIndex(row);
        Q_EMIT box->activated(row);
        Q_EMIT box->textActivated(text);
    }
    [[nodiscard]] TimeQuery Time() const { return std::get<TimeQuery>(dialog->GetQuery()); }
    [[nodiscard]] ExpenseQuery Expense() const { return std::get<ExpenseQuery>(dialog->GetQuery()); }
    [[nodiscard]] ModalUser Names(const QString& name) {
        return ModalUser([name](QDialog& asked) {
            const DialogUser user(asked);
            user.Type("textField", name);
            user.Press("acceptButton");
        });
    }

    RecordMode mode;
    std::unique_ptr<CFilterDialog> dialog;
};

QString Any() {
    return LoadText(Text::AnyWord);
}

}  // namespace

class TestCFilterDialog final : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void opensEmptyWhereNothingIsStored() {
        FilterHome t;
        t.Open();
        QCOMPARE(t.Shown("item1Field"), Any());
        QCOMPARE(t.Find<QComboBox>("billableBox")->currentText(), Any());
        QVERIFY(!t.IsOn("periodOn") && !t.IsOn("matchWhole") && !t.IsOn("matchCase"));
        QCOMPARE(t.Find<QComboBox>("periodRow")->currentText(), LoadText(Text::CustomRange));
        QCOMPARE(t.Shown("periodFrom"), u"11/19/2026"_s);
        QCOMPARE(t.Shown("periodTo"), u"11/19/2026"_s);
        QVERIFY(t.Rows().isEmpty());
    }

    void opensAsItWasLeft() {
        FilterHome t;
        t.Open();
        t.Enter("item1Field", u"Acme"_s);
        t.Choose("billedBox", LoadText(Text::TreeNotBilled));
        t.Press("matchWhole");
        t.Press("acceptButton");
        t.Open();
        QCOMPARE(t.Shown("item1Field"), u"Acme"_s);
        QCOMPARE(t.Find<QComboBox>("billedBox")->currentText(), LoadText(Text::TreeNotBilled));
        QVERIFY(t.IsOn("matchWhole"));
        // The list shows the reserved name like any other.
        QCOMPARE(t.Rows(), QStringList{CQueryStore::ReservedName()});
        QCOMPARE(t.Names()->currentText(), CQueryStore::ReservedName());
    }

    void cancelStoresNothing() {
        FilterHome t;
        t.Open();
        t.Enter("item1Field", u"Acme"_s);
        t.Press("cancelButton");
        QVERIFY(t.Queries().Names().isEmpty());
    }

    /// A damaged entry of the last use opens the dialog as Reset leaves it.
    void opensResetWhereTheLastUseCantBeRead() {
        FilterHome t;
        t.Store(CQueryStore::ReservedName(), u"Acme"_s);
        const QString key = LoadText(Text::KeyTimeQueries);
        QVERIFY(t.home.settings->WriteSubText(key, CQueryStore::ReservedName(),
                                              LoadText(Text::ValueTimePeriodRow), u"no number"_s, false));
        t.Open();
        QCOMPARE(t.Shown("item1Field"), Any());
    }

    void offersTheWordForAnyAndTheItems() {
        FilterHome t;
        t.AddItems(ListId::kClient, {u"Zoo"_s, u"Acme"_s});
        t.Open();
        QCOMPARE(t.Offered("item1Field"), QStringList({Any(), u"Zoo"_s, u"Acme"_s}));
    }

    void anEmptiedFieldStandsForAny() {
        FilterHome t;
        t.Open();
        t.Enter("item2Field", {});
        QCOMPARE(t.Time().items[1], Any());
    }

    void resetTakesEverythingBack() {
        FilterHome t;
        t.Open();
        t.Enter("item1Field", u"Acme"_s);
        t.Choose("billableBox", LoadText(Text::TreeBillable));
        t.Press("matchCase");
        t.Press("periodOn");
        t.Choose("periodRow", u"This week"_s);
        t.Press("resetButton");
        TimeQuery empty;
        empty.Reset(t.home.document->GetPeriodContext());
        QCOMPARE(t.Time(), empty);
        QVERIFY(t.dialog->isVisible());
    }

    void periodFollowsItsBox() {
        FilterHome t;
        t.Open();
        QVERIFY(!t.IsEnabled("periodRow") && !t.IsEnabled("periodFrom") && !t.IsEnabled("periodTo"));
        t.Press("periodOn");
        QVERIFY(t.IsEnabled("periodRow") && t.IsEnabled("periodFrom") && t.IsEnabled("periodTo"));
        QCOMPARE(t.Find<QComboBox>("periodRow")->count(), 25);
        t.Choose("periodRow", u"This week"_s);
        QVERIFY(!t.IsEnabled("periodFrom"));
        // the days that it covers today; weeks begin on Sunday here
        QCOMPARE(t.Shown("periodFrom"), u"11/15/2026"_s);
        QCOMPARE(t.Shown("periodTo"), u"11/21/2026"_s);
        t.Press("periodOn");
        QCOMPARE(t.Find<QComboBox>("periodRow")->currentText(), LoadText(Text::CustomRange));
        QVERIFY(!t.IsEnabled("periodRow") && !t.IsEnabled("periodFrom"));
    }

    /// Stored on 19 November, loaded a week later: a period by its name is that of the new week, a range
    /// keeps its days.
    void aStoredPeriodKeepsItsMeaning_data() {
        QTest::addColumn<QString>("row");
        QTest::addColumn<QString>("start");
        QTest::addColumn<QString>("end");
        QTest::newRow("this week") << u"This week"_s << u"11/22/2026"_s << u"11/28/2026"_s;
        QTest::newRow("a range") << LoadText(Text::CustomRange) << u"11/02/2026"_s << u"11/03/2026"_s;
    }
    void aStoredPeriodKeepsItsMeaning() {
        QFETCH(QString, row);
        FilterHome t;
        t.Open();
        t.Press("periodOn");
        t.Enter("periodFrom", u"11/2/2026"_s);
        t.Enter("periodTo", u"11/3/2026"_s);
        t.Choose("periodRow", row);
        t.Press("acceptButton");
        t.home.clock.Set(2026, 11, 26, 10, 0);
        TimeFilter filter;
        const ModalUser accepts([](QDialog& opened) { opened.accept(); });
        QVERIFY(RunFilterDialog(nullptr, filter, CFilterDialog::Use::List, t.FilterContext()));
        QTEST(filter.startText, "start");
        QTEST(filter.endText, "end");
    }

    void aDateThatCantBeReadKeepsTheDialogOpen() {
        FilterHome t;
        t.Open();
        t.Press("periodOn");
        t.Enter("periodTo", u"never"_s);
        t.home.prompt.ExpectTold(Text::DateUnreadable, Text::FilterTitleTime);
        t.Press("acceptButton");
        QVERIFY(t.dialog->isVisible());
        QCOMPARE(t.dialog->focusWidget()->objectName(), u"periodTo"_s);
        QVERIFY(t.Queries().Names().isEmpty());
        // where it doesn't count it doesn't matter
        t.Press("periodOn");
        t.Press("acceptButton");
        QVERIFY(!t.dialog->isVisible());
    }

    void acceptingFillsAFreshFilter() {
        FilterHome t;
        TimeFilter filter;
        filter.items[1] = u"left over"_s;
        filter.timer = FlagCriterion::kSet;
        const ModalUser user([](QDialog& opened) {
            const DialogUser dialog(opened);
            dialog.Enter("item1Field", QStringLiteral("Acme"));
            dialog.Press("matchCase");
            dialog.Press("acceptButton");
        });
        QVERIFY(RunFilterDialog(nullptr, filter, CFilterDialog::Use::List, t.FilterContext()));
        QCOMPARE(filter.items[0], u"Acme"_s);
        QCOMPARE(filter.items[1], Any());
        QCOMPARE(filter.timer, FlagCriterion::kAny);
        QVERIFY(filter.matchCase && !filter.matchWhole && !filter.isEnabled);
    }

    void cancellingLeavesTheFilterAlone() {
        FilterHome t(RecordMode::Expense);
        ExpenseFilter filter;
        filter.items[1] = u"as it was"_s;
        const ModalUser user([](QDialog& opened) { DialogUser(opened).Press("cancelButton"); });
        QVERIFY(!RunFilterDialog(nullptr, filter, CFilterDialog::Use::Report, t.FilterContext()));
        QCOMPARE(filter.items[1], u"as it was"_s);
    }

    void aMarkThatNeedsAnotherFollowsIt() {
        FilterHome t(RecordMode::Expense);
        t.Open();
        const auto state = [&t](const char* name) { return t.Find<QCheckBox>(name)->checkState(); };
        QVERIFY(!t.IsEnabled("flag2Box") && !t.IsEnabled("flag4Box"));
        QVERIFY(t.IsEnabled("flag1Box") && t.IsEnabled("flag3Box") && t.IsEnabled("flag5Box"));
        t.Find<QCheckBox>("flag1Box")->setCheckState(Qt::Checked);
        QVERIFY(t.IsEnabled("flag2Box"));
        QCOMPARE(state("flag2Box"), Qt::PartiallyChecked);
        t.Find<QCheckBox>("flag2Box")->setCheckState(Qt::Unchecked);
        QCOMPARE(t.Expense().flags[1], FlagCriterion::kClear);
        t.Find<QCheckBox>("flag1Box")->setCheckState(Qt::Unchecked);
        QVERIFY(!t.IsEnabled("flag2Box"));
        QCOMPARE(state("flag2Box"), Qt::PartiallyChecked);
        QCOMPARE(t.Expense().flags[0], FlagCriterion::kClear);
        QCOMPARE(t.Expense().flags[1], FlagCriterion::kAny);
    }

    /// A click goes from one of the three states to the next, and each says what it means.
    void marksHaveThreeStates() {
        FilterHome t(RecordMode::Expense);
        t.Open();
        const auto* box = t.Find<QCheckBox>("distanceBox");
        QCOMPARE(box->accessibleDescription(), LoadText(Text::FilterFlagAny));
        t.Press("distanceBox");
        QCOMPARE(box->checkState(), Qt::Checked);
        QCOMPARE(box->accessibleDescription(), LoadText(Text::FilterFlagSet));
        QCOMPARE(t.Expense().distance, FlagCriterion::kSet);
        t.Press("distanceBox");
        QCOMPARE(t.Expense().distance, FlagCriterion::kClear);
        QCOMPARE(box->accessibleDescription(), LoadText(Text::FilterFlagClear));
        t.Press("distanceBox");
        QCOMPARE(t.Expense().distance, FlagCriterion::kAny);
    }

    void amounts_data() {
        QTest::addColumn<QString>("typed");
        QTest::addColumn<float>("amount");
        QTest::newRow("any is no test") << Any() << -1.0F;
        QTest::newRow("emptied") << QString() << -1.0F;
        QTest::newRow("a number") << u"12.5"_s << 12.5F;
        QTest::newRow("no number reads as nothing") << u"twelve"_s << 0.0F;
    }
    void amounts() {
        QFETCH(QString, typed);
        FilterHome t(RecordMode::Expense);
        t.Open();
        t.Enter("amountField", typed);
        QTEST(t.Expense().amount, "amount");
        QCOMPARE(t.Expense().comparison, AmountComparison::kEqual);
        t.Choose("comparisonBox", LoadText(Text::AmountGreater));
        QCOMPARE(t.Expense().comparison, AmountComparison::kGreater);
        t.Press("acceptButton");
        t.Open();
        QTEST(t.Expense().amount, "amount");
        QCOMPARE(t.Expense().comparison, AmountComparison::kGreater);
    }

    /// A condition that acts otherwise than it looks is explained beside it.
    void notesOnTheAmount_data() {
        QTest::addColumn<QString>("typed");
        QTest::addColumn<int>("comparison");
        QTest::addColumn<QString>("note");
        const QString nothing = LoadText(Text::AmountFindsNothing), all = LoadText(Text::AmountFindsAll);
        QTest::newRow("any") << Any() << 0 << QString();
        QTest::newRow("a number") << u"12.5"_s << 1 << QString();
        QTest::newRow("equal to nothing") << u"0"_s << 0 << QString();
        QTest::newRow("less than nothing") << u"0"_s << 1 << nothing;
        QTest::newRow("equal to less than nothing") << u"-5.5"_s << 0 << nothing;
        QTest::newRow("more than less than nothing") << u"-5.5"_s << 2 << all;
        QTest::newRow("the number that stands for any") << u"-1"_s << 0 << all;
        QTest::newRow("no number") << u"twelve"_s << 0 << LoadText(Text::AmountCountsAsZero);
    }
    void notesOnTheAmount() {
        QFETCH(QString, typed);
        QFETCH(int, comparison);
        QFETCH(QString, note);
        FilterHome t(RecordMode::Expense);
        t.Open();
        QVERIFY(!t.Find<QLabel>("amountNote")->isVisible());
        t.Find<QComboBox>("comparisonBox")->setCurrentIndex(comparison);
        t.Enter("amountField", typed);
        QCOMPARE(t.Find<QLabel>("amountNote")->text(), note);
        QCOMPARE(t.Find<QLabel>("amountNote")->isVisible(), !note.isEmpty());
        QCOMPARE(t.Find<QWidget>("amountField")->accessibleDescription(), note);
        // as it was left
        t.Press("acceptButton");
        t.Open();
        QCOMPARE(t.Find<QLabel>("amountNote")->text(),
                 typed == u"twelve"_s || typed == u"-1"_s ? QString() : note);
        t.Press("resetButton");
        QVERIFY(!t.Find<QLabel>("amountNote")->isVisible());
    }

    /// The day of the end is taken then.
    void aRangeThatEndsBeforeItStarts() {
        FilterHome t;
        t.Open();
        const auto* note = t.Find<QLabel>("periodNote");
        t.Press("periodOn");
        QVERIFY(!note->isVisible());
        t.Enter("periodTo", u"11/10/2026"_s);
        QCOMPARE(note->text(), u"The start lies after the end, so only 11/10/2026 is taken."_s);
        QVERIFY(note->isVisible());
        QCOMPARE(t.Find<QWidget>("periodTo")->accessibleDescription(), note->text());
        t.Choose("periodRow", u"This week"_s);
        QVERIFY(!note->isVisible());
        t.Choose("periodRow", LoadText(Text::CustomRange));
        t.Enter("periodFrom", u"11/20/2026"_s);
        t.Enter("periodTo", u"11/10/2026"_s);
        QVERIFY(note->isVisible());
        t.Enter("periodFrom", u"11/10/2026"_s);
        QVERIFY(!note->isVisible());
        t.Enter("periodFrom", u"11/11/2026"_s);
        QVERIFY(note->isVisible());
        t.Press("periodOn");
        QVERIFY(!note->isVisible());
    }

    void choosingAQueryShowsIt() {
        FilterHome t;
        t.Store(u"Of Acme"_s, u"Acme"_s);
        t.Store(u"Of the zoo"_s, u"Zoo"_s);
        t.Open();
        QCOMPARE(t.Rows(), QStringList({u"Of Acme"_s, u"Of the zoo"_s}));
        t.Choose("storedQueries", u"Of the zoo"_s);
        QCOMPARE(t.Shown("item1Field"), u"Zoo"_s);
        // the other mode has its own
        QVERIFY(CQueryStore(*t.home.settings, RecordMode::Expense).Names().isEmpty());
    }

    void aDamagedQueryIsToldOf() {
        FilterHome t;
        t.Store(u"Of Acme"_s, u"Acme"_s);
        t.Open();
        QVERIFY(t.home.settings->WriteSubText(LoadText(Text::KeyTimeQueries), u"Of Acme"_s,
                                              LoadText(Text::ValueTimeCase), u"perhaps"_s, false));
        t.Enter("item1Field", u"typed"_s);
        t.home.prompt.ExpectTold(Text::QueryDamaged, Text::FilterTitleTime);
        t.Choose("storedQueries", u"Of Acme"_s);
        QCOMPARE(t.Shown("item1Field"), u"typed"_s);
    }

    void aDateThatCantBeReadTodayIsToldOf() {
        FilterHome t;
        TimeQuery query;
        query.Reset(t.home.document->GetPeriodContext());
        query.isPeriodOn = true;
        query.startText = u"31.12.2026"_s;
        QVERIFY(t.Queries().Save(u"Old"_s, query));
        t.Open();
        t.home.prompt.ExpectTold(Text::QueryDateUnread, Text::FilterTitleTime);
        t.Choose("storedQueries", u"Old"_s);
        QCOMPARE(t.Shown("periodFrom"), u"11/19/2026"_s);
    }

    void saveAsAddsAndSelects() {
        FilterHome t;
        t.Open();
        t.Enter("item1Field", u"Acme"_s);
        {
            const ModalUser user = t.Names(u"Of Acme"_s);
            t.Press("saveQueryButton");
        }
        QCOMPARE(t.Names()->currentText(), u"Of Acme"_s);
        const auto stored = t.Queries().Load(u"Of Acme"_s);
        QVERIFY(stored);
        QCOMPARE(std::get<TimeQuery>(*stored).items[0], u"Acme"_s);
        // the selected name is proposed, and asked about as it is there
        t.home.prompt.Expect(Text::AskReplaceQuery, Answer::No, Text::DeleteDefaultTitle);
        const ModalUser user([](QDialog& asked) {
            QCOMPARE(DialogUser(asked).Shown("textField"), QStringLiteral("Of Acme"));
            asked.accept();
        });
        t.Press("saveQueryButton");
    }

    void deletesByTheSetting() {
        FilterHome t(RecordMode::Expense);
        t.Store(u"Of Acme"_s, u"Acme"_s);
        t.Store(CQueryStore::ReservedName(), {Any()});
        t.Open();
        t.home.settings->confirmDelete = true;
        const auto* button = t.dialog->findChild<QPushButton*>(u"deleteQueryButton"_s);
        QVERIFY(button->isEnabled());  // the last values are selected
        t.home.prompt.ExpectTold(Text::DeleteRefused, Text::NewDefaultTitle);
        t.Choose("storedQueries", CQueryStore::ReservedName());
        t.Press("deleteQueryButton");
        t.Choose("storedQueries", u"Of Acme"_s);
        t.home.prompt.Expect(Text::AskDeleteDefault, Answer::Yes, Text::NewDefaultTitle);
        t.Press("deleteQueryButton");
        QCOMPARE(t.Rows(), QStringList{CQueryStore::ReservedName()});
        QVERIFY(!button->isEnabled());  // nothing is
    }

    void everyModeIsUsableByKeyboard_data() {
        QTest::addColumn<int>("mode");
        QTest::newRow("time") << int(RecordMode::Time);
        QTest::newRow("expenses") << int(RecordMode::Expense);
    }
    void everyModeIsUsableByKeyboard() {
        QFETCH(int, mode);
        FilterHome t(RecordMode{mode});
        t.Open();
        QCOMPARE(t.Unnamed(), QString());
        VERIFY_MNEMONICS(t, 12);
        VERIFY_SMALL_SCREEN(*t.dialog);
        QCOMPARE(t.dialog->focusWidget()->objectName(), u"item1Field"_s);
        QTest::keyClick(t.dialog->focusWidget(), Qt::Key_Return);
        QVERIFY(!t.dialog->isVisible());
    }

    void remembersItsSize() {
        FilterHome t;
        t.Open();
        t.dialog->resize(720, 500);
        t.Press("cancelButton");
        t.Open();
        QCOMPARE(t.dialog->size(), QSize(720, 500));
    }
};

TEST_CLASS(TestCFilterDialog);
#include "TestCFilterDialog.moc"
