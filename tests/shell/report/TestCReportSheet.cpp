#include "shell/report/CReportSheet.h"

#include "app/CFieldCatalogue.h"
#include "config/CCfgStore.h"
#include "lang/FormatText.h"
#include "reports/definition/CReportStore.h"
#include "reports/query/CQueryStore.h"
#include "shell/frame/ModalUser.h"
#include "shell/record/DialogHome.h"
#include "support/TestProgram.h"

#include <QComboBox>
#include <QHeaderView>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QRadioButton>
#include <QTableWidget>
#include <memory>

using namespace Qt::Literals::StringLiterals;

namespace {

/// The sheet of a report over a scratch home, with records that it counts.
class SheetHome : public DialogHome {
 public:
    explicit SheetHome(ReportKind kind = ReportKind::Grouped, RecordMode wanted = RecordMode::Time)
        : mode(wanted), catalogue(home.catalogue->Labels(), *home.settings) {
        report.kind = kind;
    }
    void Open() {
        sheet = std::make_unique<CReportSheet>(
            report, ReportSheetContext{
                        .mode = mode,
                        .settings = *home.settings,
                        .catalogue = catalogue,
                        .prompt = home.prompt,
                        .coverage = {.count = [this](const CReportDef& asked) { return Count(asked); },
                                     .groups = [this](const CReportDef& asked) { return Groups(asked); }}});
        Show(*sheet);
    }
    [[nodiscard]] std::optional<std::size_t> Count(const CReportDef& asked) const {
        if (asked.selection == ReportSelection::Selected) return 2;
        if (asked.selection == ReportSelection::Listed) return 1234;
        return asked.useStoredQuery && asked.queryName == u"Of Acme"_s ? std::optional<std::size_t>(7)
                                                                       : std::nullopt;
    }
    [[nodiscard]] std::optional<GroupPreview> Groups(const CReportDef& asked) {
        previewed = asked;
        return preview;
    }
    [[nodiscard]] QTabWidget* Pages() const { return Find<QTabWidget>("pages"); }
    [[nodiscard]] QStringList Titles() const {
        QStringList titles;
        for (int i = 0; i < Pages()->count(); ++i) titles << Pages()->widget(i)->windowTitle();
        return titles;
    }
    [[nodiscard]] QString ShownPage() const { return Pages()->currentWidget()->windowTitle(); }
    void Turn(const QString& title) const {
        for (int i = 0; i < Pages()->count(); ++i)
            if (Pages()->widget(i)->windowTitle() == title) Pages()->setCurrentIndex(i);
    }
    [[nodiscard]] QListWidget* List(const char* name) const {
        return Pages()->currentWidget()->findChild<QListWidget*>(QString::fromLatin1(name));
    }
    [[nodiscard]] static QStringList Lines(const QListWidget& list) {
        QStringList lines;
        for (int i = 0; i < list.count(); ++i) lines << list.item(i)->text();
        return lines;
    }
    void Check(const char* name, const QString& line) const {
        for (QListWidgetItem* item : List(name)->findItems(line, Qt::MatchExactly))
            item->setCheckState(item->checkState() == Qt::Checked ? Qt::Unchecked : Qt::Checked);
    }
    void StoreQuery(const QString& name) {
        TimeQuery query;
        query.Reset(home.document->GetPeriodContext());
        QVERIFY(CQueryStore(*home.settings, RecordMode::Time).Save(name, query));
    }
    [[nodiscard]] CReportStore Stored() { return {*home.settings, mode, report.kind}; }

    RecordMode mode;
    CFieldCatalogue catalogue;
    CReportDef report;
    CReportDef previewed;
    std::optional<GroupPreview> preview;
    std::unique_ptr<CReportSheet> sheet;
};

}  // namespace

class TestCReportSheet final : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void pagesOfEachKind_data() {
        QTest::addColumn<int>("kind");
        QTest::addColumn<QString>("pages");
        QTest::newRow("totals") << int(ReportKind::Grouped) << u"Records Groups Order Texts Stored"_s;
        QTest::newRow("listing") << int(ReportKind::Listing) << u"Records Columns Order Texts Stored"_s;
        QTest::newRow("both") << int(ReportKind::Compound) << u"Records Columns Groups Order Texts Stored"_s;
    }
    void pagesOfEachKind() {
        QFETCH(int, kind);
        SheetHome t(ReportKind{kind});
        t.Open();
        QTEST(t.Titles().join(u' '), "pages");
        QCOMPARE(t.sheet->windowTitle(), LoadText(Text::ReportSheetTitle));
    }

    void saysHowManyRecordsEachChoiceCovers() {
        SheetHome t;
        t.StoreQuery(u"Of Acme"_s);
        t.Open();
        const auto words = [&t](const char* name) {
            return t.Find<QRadioButton>(name)->text().remove(u'&').section(u'(', 1);
        };
        QCOMPARE(words("selectedRecords"), u"2)"_s);
        QCOMPARE(words("listedRecords"), QLocale().toString(1234) + u')');
        QCOMPARE(words("queryRecords"), QString());
        t.Find<QRadioButton>("queryRecords")->click();
        QCOMPARE(words("queryRecords"), QString());
        t.Press("isStoredQuery");
        QCOMPARE(words("queryRecords"), u"7)"_s);
    }

    void aStoredQueryCountsOnlyWithAllOfTheThree() {
        SheetHome t;
        t.StoreQuery(CQueryStore::ReservedName());
        t.StoreQuery(u"Of Acme"_s);
        t.StoreQuery(u"Of the zoo"_s);
        t.Open();
        QVERIFY(!t.IsEnabled("isStoredQuery") && !t.IsEnabled("queryNames"));
        t.Find<QRadioButton>("queryRecords")->click();
        QVERIFY(t.IsEnabled("isStoredQuery") && !t.IsEnabled("queryNames"));
        t.Press("isStoredQuery");
        auto* names = t.Find<QComboBox>("queryNames");
        QVERIFY(names->isEnabled());
        QCOMPARE(names->count(), 2);  // not the one that was used last
        names->setCurrentText(u"Of the zoo"_s);
        t.Turn(u"Texts"_s);
        QCOMPARE(t.sheet->GetReport().selection, ReportSelection::Query);
        QVERIFY(t.sheet->GetReport().useStoredQuery);
        QCOMPARE(t.sheet->GetReport().queryName, u"Of the zoo"_s);
        t.Turn(u"Records"_s);
        t.Find<QRadioButton>("selectedRecords")->click();
        t.Turn(u"Texts"_s);
        QVERIFY(!t.sheet->GetReport().useStoredQuery);
        QCOMPARE(t.sheet->GetReport().selection, ReportSelection::Selected);
    }

    void groupsAndSumsInTheOrderOfTheOffer() {
        SheetHome t;
        t.Open();
        t.Turn(u"Groups"_s);
        QCOMPARE(SheetHome::Lines(*t.List("groupFields")),
                 QStringList({u"Date"_s, u"Client"_s, u"Project"_s, u"Activity"_s, u"Cost centre"_s,
                              u"Rate"_s, u"Currency"_s, u"Billable"_s, u"Billed"_s}));
        QCOMPARE(SheetHome::Lines(*t.List("sumFields")),
                 QStringList({u"Amount"_s, u"Break"_s, u"Duration"_s, u"Net time"_s}));
        t.Check("groupFields", u"Project"_s);
        t.Check("groupFields", u"Client"_s);
        t.Check("sumFields", u"Net time"_s);
        t.Turn(u"Order"_s);
        QCOMPARE(t.sheet->GetReport().groupFields, QList<FieldId>({FieldId::TimeItem1, FieldId::TimeItem2}));
        QCOMPARE(t.sheet->GetReport().sumFields, QList<FieldId>{FieldId::Effective});
    }

    /// The field to group by is asked for first.
    void thePageOfGroupsIsNotLeftWithoutThem() {
        SheetHome t;
        t.Open();
        t.Turn(u"Groups"_s);
        t.home.prompt.ExpectTold(Text::ReportNeedsGroup);
        t.Turn(u"Texts"_s);
        QCOMPARE(t.ShownPage(), u"Groups"_s);
        t.Check("groupFields", u"Client"_s);
        t.home.prompt.ExpectTold(Text::ReportNeedsSum);
        t.Turn(u"Texts"_s);
        QCOMPARE(t.ShownPage(), u"Groups"_s);
        t.Check("sumFields", u"Amount"_s);
        t.Turn(u"Texts"_s);
        QCOMPARE(t.ShownPage(), u"Texts"_s);
    }

    void norIsTheSheetAccepted() {
        SheetHome t;
        t.Open();
        t.home.prompt.ExpectTold(Text::ReportNeedsGroup);
        t.Press("acceptButton");
        QVERIFY(t.sheet->isVisible());
        QCOMPARE(t.ShownPage(), u"Groups"_s);
        t.home.prompt.ExpectTold(Text::ReportNeedsGroup);
        t.Press("acceptButton");
        QVERIFY(t.sheet->isVisible());
        t.Check("groupFields", u"Client"_s);
        t.Check("sumFields", u"Amount"_s);
        t.Press("acceptButton");
        QVERIFY(!t.sheet->isVisible());
        QCOMPARE(t.sheet->result(), int(QDialog::Accepted));
    }

    void theFirstGroupsAreShownWhileTheyAreChosen() {
        SheetHome t;
        t.preview = GroupPreview{
            .table = {.keys = {{.field = FieldId::TimeItem1, .caption = u"Client"_s}},
                      .sums = {{.field = FieldId::TimeAmount, .caption = u"Amount"_s, .places = 2}}},
            .isWhole = true};
        for (int i = 0; i < 7; ++i)
            t.preview->table.rows.push_back({.keys = {u"Client %1"_s.arg(i)}, .sums = {12.5 * i}});
        t.Open();
        t.Turn(u"Groups"_s);
        auto* table = t.Find<QTableWidget>("groupPreview");
        QCOMPARE(table->rowCount(), 0);
        QCOMPARE(t.Label("previewNote"), LoadText(Text::SheetPreviewNone));
        t.Check("groupFields", u"Client"_s);
        QCOMPARE(table->rowCount(), 0);
        t.Check("sumFields", u"Amount"_s);
        QCOMPARE(t.previewed.groupFields, QList<FieldId>{FieldId::TimeItem1});
        QCOMPARE(table->rowCount(), 5);
        QCOMPARE(table->item(1, 0)->text(), u"Client 1"_s);
        QCOMPARE(table->item(1, 1)->text(), u"12.50"_s);
        QCOMPARE(t.Label("previewNote"), FormatText<Text::SheetPreviewMore>(u"7"_s));
        t.preview->isWhole = false;
        t.Check("groupFields", u"Project"_s);
        QCOMPARE(t.Label("previewNote"), QString());
        t.preview.reset();
        t.Check("groupFields", u"Project"_s);
        QCOMPARE(table->rowCount(), 0);
        QCOMPARE(t.Label("previewNote"), LoadText(Text::SheetPreviewAsked));
    }

    /// A key isn't cut while the sums beside it have room to spare; a very long one leaves room for them.
    void thePreviewShowsItsKeysWhole() {
        SheetHome t(ReportKind::Grouped);
        t.report.groupFields = {FieldId::TimeItem1};
        t.report.sumFields = {FieldId::TimeAmount};
        t.preview =
            GroupPreview{.table = {.keys = {{.caption = u"Client"_s}}, .sums = {{.caption = u"Amount"_s}}}};
        t.preview->table.rows.push_back({.keys = {u"Müller & Sons, Weiden"_s}, .sums = {12.5}});
        t.Open();
        t.Turn(u"Groups"_s);
        auto* table = t.Find<QTableWidget>("groupPreview");
        QVERIFY(table->columnWidth(0) > table->fontMetrics().horizontalAdvance(u"Müller & Sons, Weiden"_s));
        QCOMPARE(table->horizontalHeader()->length(), table->viewport()->width());
        t.preview->table.rows[0].keys[0] = QString(250, u'w');
        t.Check("groupFields", u"Project"_s);
        QVERIFY(table->columnWidth(0) < table->viewport()->width() * 3 / 4);
    }

    void columnsMoveBetweenTheLists() {
        SheetHome t(ReportKind::Listing);
        t.Open();
        t.Turn(u"Columns"_s);
        QListWidget* available = t.List("availableFields");
        QListWidget* chosen = t.List("chosenFields");
        QCOMPARE(available->count(), 16);
        QCOMPARE(available->item(15)->text(), u"Notes"_s);
        available->setCurrentRow(1);
        QTest::keyClick(available, Qt::Key_Space);
        QTest::keyClick(available, Qt::Key_Space);
        QCOMPARE(SheetHome::Lines(*chosen), QStringList({u"Client"_s, u"Project"_s}));
        QVERIFY(!SheetHome::Lines(*available).contains(u"Client"_s));
        QTest::keyClick(chosen, Qt::Key_Up, Qt::AltModifier);
        QCOMPARE(SheetHome::Lines(*chosen), QStringList({u"Project"_s, u"Client"_s}));
        QVERIFY(!(chosen->item(0)->flags() & Qt::ItemIsUserCheckable) ||
                chosen->item(0)->data(Qt::CheckStateRole).isNull());
        t.Turn(u"Texts"_s);
        QCOMPARE(t.sheet->GetReport().listFields,
                 QList<SortKey>({{FieldId::TimeItem2, 0}, {FieldId::TimeItem1, 0}}));
    }

    void anOrderHasDirections() {
        SheetHome t(ReportKind::Listing);
        t.report.sortKeys = {{FieldId::Date, -1}};
        t.Open();
        t.Turn(u"Order"_s);
        QListWidget* chosen = t.List("chosenFields");
        auto* button = t.Pages()->currentWidget()->findChild<QPushButton*>(u"descendingButton"_s);
        QCOMPARE(chosen->item(0)->checkState(), Qt::Checked);
        QCOMPARE(chosen->item(0)->text(), u"Date, descending"_s);
        QVERIFY(button->isEnabled() && button->isChecked());
        t.List("availableFields")->setCurrentRow(0);
        QTest::keyClick(t.List("availableFields"), Qt::Key_Space);
        QCOMPARE(chosen->currentItem()->text(), u"Client"_s);
        QVERIFY(button->isEnabled() && !button->isChecked());
        // by key, by the box, by the button
        QTest::keyClick(chosen, Qt::Key_D);
        QCOMPARE(chosen->currentItem()->text(), u"Client, descending"_s);
        chosen->item(0)->setCheckState(Qt::Unchecked);
        QTRY_COMPARE(chosen->item(0)->text(), u"Date"_s);
        chosen->setCurrentRow(1);
        button->click();
        t.Turn(u"Texts"_s);
        QCOMPARE(t.sheet->GetReport().sortKeys,
                 QList<SortKey>({{FieldId::Date, 1}, {FieldId::TimeItem1, 1}}));
    }

    void textsGoIntoTheReport() {
        SheetHome t(ReportKind::Listing);
        t.report.title = u"Records"_s;
        t.Open();
        t.Turn(u"Texts"_s);
        QCOMPARE(t.Shown("titleField"), u"Records"_s);
        t.Enter("titleField", u"To Acme"_s);
        t.Find<QPlainTextEdit>("headerField")->setPlainText(u"Dear Acme,\nhere it is."_s);
        t.Find<QPlainTextEdit>("footerField")->setPlainText(u"Thank you"_s);
        t.Press("acceptButton");
        QCOMPARE(t.sheet->GetReport().title, u"To Acme"_s);
        QCOMPARE(t.sheet->GetReport().header, u"Dear Acme,\nhere it is."_s);
        QCOMPARE(t.sheet->GetReport().footer, u"Thank you"_s);
    }

    void choosingAStoredReportFillsAllPages() {
        SheetHome t;
        CReportDef stored = t.report;
        stored.title = u"By client"_s;
        stored.groupFields = {FieldId::TimeItem1};
        stored.sumFields = {FieldId::TimeAmount};
        QVERIFY(t.Stored().Save(u"Monthly"_s, stored));
        t.Open();
        t.Turn(u"Stored"_s);
        QVERIFY(!t.IsEnabled("saveReport") && !t.IsEnabled("renameReport") && !t.IsEnabled("deleteReport"));
        QVERIFY(t.IsEnabled("saveReportAs"));
        auto* names = t.Find<QComboBox>("storedReports");
        names->setCurrentIndex(0);
        Q_EMIT names->activated(0);
        QVERIFY(t.IsEnabled("saveReport") && t.IsEnabled("renameReport") && t.IsEnabled("deleteReport"));
        t.Turn(u"Texts"_s);
        QCOMPARE(t.Shown("titleField"), u"By client"_s);
        t.Turn(u"Groups"_s);
        QCOMPARE(t.List("groupFields")->item(1)->checkState(), Qt::Checked);
        QCOMPARE(t.sheet->GetReport().name, u"Monthly"_s);
    }

    void storesWhatThePagesShow() {
        SheetHome t(ReportKind::Listing);
        t.Open();
        t.Turn(u"Texts"_s);
        t.Enter("titleField", u"To Acme"_s);
        t.Turn(u"Stored"_s);
        {
            const ModalUser user([](QDialog& asked) {
                QCOMPARE(asked.windowTitle(), LoadText(Text::SheetSaveAsTitle));
                const DialogUser dialog(asked);
                dialog.Type("textField", QStringLiteral("Monthly"));
                dialog.Press("acceptButton");
            });
            t.Press("saveReportAs");
        }
        QCOMPARE(t.Find<QComboBox>("storedReports")->currentText(), u"Monthly"_s);
        CReportDef stored;
        stored.kind = ReportKind::Listing;
        QVERIFY(t.Stored().Load(u"Monthly"_s, stored));
        QCOMPARE(stored.title, u"To Acme"_s);
        {
            const ModalUser user([](QDialog& asked) {
                QCOMPARE(asked.windowTitle(), LoadText(Text::SheetRenameTitle));
                const DialogUser dialog(asked);
                dialog.Type("textField", QStringLiteral("Yearly"));
                dialog.Press("acceptButton");
            });
            t.Press("renameReport");
        }
        QCOMPARE(t.Stored().Names(), QStringList{u"Yearly"_s});
        t.home.settings->confirmDelete = true;
        t.home.prompt.Expect(Text::AskDeleteReport, Answer::Yes);
        t.Press("deleteReport");
        QVERIFY(t.Stored().Names().isEmpty());
        QVERIFY(!t.IsEnabled("deleteReport"));
    }

    void everyPageIsUsableByKeyboard_data() {
        QTest::addColumn<int>("page");
        for (int page = 0; page < 6; ++page) QTest::addRow("page %d", page) << page;
    }
    void everyPageIsUsableByKeyboard() {
        QFETCH(int, page);
        SheetHome t(ReportKind::Compound);
        t.report.groupFields = {FieldId::TimeItem1};
        t.report.sumFields = {FieldId::TimeAmount};
        t.Open();
        t.Pages()->setCurrentIndex(page);
        QVERIFY(t.sheet->focusWidget() && t.Pages()->currentWidget()->isAncestorOf(t.sheet->focusWidget()));
        QCOMPARE(t.Unnamed(), QString());
        VERIFY_MNEMONICS(t, 8);
        VERIFY_SMALL_SCREEN(*t.sheet);
    }

    void cancellingLeavesTheReportAlone() {
        SheetHome t(ReportKind::Listing);
        CReportDef report = t.report;
        const ModalUser user([](QDialog& opened) {
            opened.findChild<QTabWidget*>(QStringLiteral("pages"))->setCurrentIndex(3);
            DialogUser(opened).Enter("titleField", QStringLiteral("typed"));
            opened.reject();
        });
        QVERIFY(!RunReportSheet(nullptr, report,
                                {.mode = t.mode,
                                 .settings = *t.home.settings,
                                 .catalogue = t.catalogue,
                                 .prompt = t.home.prompt,
                                 .coverage = {.count = [](const CReportDef&) { return std::nullopt; },
                                              .groups = [](const CReportDef&) { return std::nullopt; }}}));
        QCOMPARE(report.title, QString());
    }
};

TEST_CLASS(TestCReportSheet);
#include "TestCReportSheet.moc"
