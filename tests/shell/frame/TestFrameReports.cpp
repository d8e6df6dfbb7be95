#include "shell/frame/CFrameReports.h"

#include "config/CCfgStore.h"
#include "lang/FormatText.h"
#include "platform/settings/CProfile.h"
#include "reports/definition/CReportStore.h"
#include "reports/query/CQueryStore.h"
#include "shell/frame/FrameHome.h"
#include "shell/frame/ModalUser.h"
#include "shell/look/IconTheme.h"
#include "shell/record/DialogUser.h"
#include "shell/report/CReportPane.h"
#include "shell/report/CReportView.h"
#include "support/TestProgram.h"

#include <QComboBox>
#include <QFile>
#include <QLabel>
#include <QListWidget>
#include <QRadioButton>
#include <QStackedWidget>
#include <QStatusBar>
#include <QTabWidget>
#include <QTemporaryDir>
#include <QToolBar>
#include <QTreeView>

using namespace Qt::Literals::StringLiterals;

namespace {

/// A window with three time records of two clients.
struct ReportWindow {
    QTemporaryDir folder;
    Window window{folder.path()};

    ReportWindow() {
        window.frame->Refresh();
        Add(17, u"Acme"_s, 40);
        Add(18, u"Zoo"_s, 20);
        Add(19, u"Acme"_s, 2.5F);
    }
    void Add(int day, const QString& client, float amount) {
        CTRecord record;
        record.Reset();
        record.date.Set(11, day, 2026);
        record.item1 = client;
        record.amount.Set(amount);
        QString id;
        [&] {
            QVERIFY(window.app.Document().AddRecord(record, {Notify::Yes, Commit::Now, Identity::New}, &id));
        }();
        ids << id;
    }
    void Run(int command) const { window.frame->RunCommand(command); }
    [[nodiscard]] bool IsInFront() const {
        return window.Find<QStackedWidget>("pane1")->currentWidget()->objectName() == u"reportPane"_s;
    }
    [[nodiscard]] CReportView& View() const { return window.Find<CReportPane>("reportPane")->View(); }
    /// The text of the page, once it is laid out.
    [[nodiscard]] QString Page() const {
        [&] { QTRY_VERIFY(View().IsPrepared()); }();
        return View().Text();
    }
    [[nodiscard]] QString Said() const {
        return IsInFront() ? window.Find<QLabel>("reportNote")->text()
                           : window.Find<QStatusBar>("statusBar")->currentMessage();
    }
    [[nodiscard]] CReportStore Stored(ReportKind kind) {
        return {window.app.Settings(), RecordMode::Time, kind};
    }
    /// A definition that adds amounts up by client.
    [[nodiscard]] static CReportDef ByClient(ReportKind kind = ReportKind::Grouped) {
        CReportDef report;
        report.kind = kind;
        report.groupFields = {FieldId::TimeItem1};
        report.sumFields = {FieldId::TimeAmount};
        report.listFields = {{FieldId::TimeItem1, 0}, {FieldId::TimeAmount, 0}};
        report.sortKeys = {{FieldId::Date, 1}};
        return report;
    }
    QStringList ids;
};

/// Checks the client and the amount, and accepts the sheet.
ModalUser AcceptsTotals() {
    return ModalUser([](QDialog& sheet) {
        auto* pages = sheet.findChild<QTabWidget*>(QStringLiteral("pages"));
        pages->setCurrentIndex(1);
        sheet.findChild<QListWidget*>(QStringLiteral("groupFields"))->item(1)->setCheckState(Qt::Checked);
        sheet.findChild<QListWidget*>(QStringLiteral("sumFields"))->item(0)->setCheckState(Qt::Checked);
        sheet.accept();
    });
}

/// Takes the row of the chooser with these words.
ModalUser Chooses(const QString& words) {
    return ModalUser([words](QDialog& dialog) {
        QCOMPARE(dialog.windowTitle(), LoadText(Text::ReportChooserTitle));
        auto* list = dialog.findChild<QTreeView*>(QStringLiteral("searchRows"));
        for (int row = 0; row < list->model()->rowCount(); ++row)
            if (list->model()->index(row, 0).data().toString() == words)
                list->setCurrentIndex(list->model()->index(row, 0));
        dialog.accept();
    });
}

}  // namespace

/// The commands that make reports, in the window.
class TestFrameReports final : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void initTestCase() {
        QVERIFY(LoadLanguageLibrary(QStringLiteral(TEST_BIN_DIR)));
        ChooseIconTheme();
    }

    void quickTotals() {
        ReportWindow t;
        const ModalUser user = AcceptsTotals();
        t.Run(32818);
        QVERIFY(user.Met() && t.IsInFront());
        const QString page = t.Page();
        QVERIFY2(page.startsWith(u"Totals\n"_s), qPrintable(page));
        QVERIFY2(page.contains(u"Acme\t42.50\n"_s) && page.contains(u"Zoo\t20.00\n"_s), qPrintable(page));
        // stored before it is run, with its title
        CReportDef stored;
        stored.kind = ReportKind::Grouped;
        QVERIFY(t.Stored(ReportKind::Grouped).Load(CReportStore::ReservedName(), stored));
        QCOMPARE(stored.title, LoadText(Text::TitleGrouped));
        QCOMPARE(stored.groupFields, QList<FieldId>{FieldId::TimeItem1});
    }

    void quickIsStoredEvenIfTheRunFails() {
        ReportWindow t;
        const ModalUser user([](QDialog& sheet) {
            sheet.findChild<QRadioButton*>(QStringLiteral("selectedRecords"))->click();
            sheet.accept();
        });
        t.window.List().SelectNone();
        t.window.prompt.ExpectTold(Text::ReportNothingSelected);
        t.Run(32821);
        QVERIFY(!t.IsInFront());
        QCOMPARE(t.Stored(ReportKind::Listing).Names(), QStringList{CReportStore::ReservedName()});
    }

    void cancelStoresAndRunsNothing() {
        ReportWindow t;
        const ModalUser user([](QDialog& sheet) { sheet.reject(); });
        t.Run(32818);
        QVERIFY(!t.IsInFront());
        QVERIFY(t.Stored(ReportKind::Grouped).Names().isEmpty());
    }

    void defineAsksBeforeItRuns_data() {
        QTest::addColumn<bool>("runs");
        QTest::newRow("run now") << true;
        QTest::newRow("stays stored when declined") << false;
    }
    void defineAsksBeforeItRuns() {
        QFETCH(bool, runs);
        ReportWindow t;
        const ModalUser user = AcceptsTotals();
        t.window.prompt.Expect(Text::AskRunReport, runs ? Answer::Yes : Answer::No);
        t.Run(32881);
        QCOMPARE(t.IsInFront(), runs);
        QCOMPARE(t.Stored(ReportKind::Grouped).Names(), QStringList{CReportStore::ReservedName()});
        CReportDef stored;
        stored.kind = ReportKind::Grouped;
        QVERIFY(t.Stored(ReportKind::Grouped).Load(CReportStore::ReservedName(), stored));
        QCOMPARE(stored.title, QString());
    }

    void defineStoresUnderTheNameThatIsLoaded() {
        ReportWindow t;
        QVERIFY(t.Stored(ReportKind::Grouped).Save(u"Monthly"_s, ReportWindow::ByClient()));
        const ModalUser user([](QDialog& sheet) {
            const DialogUser dialog(sheet);
            auto* pages = sheet.findChild<QTabWidget*>(QStringLiteral("pages"));
            pages->setCurrentIndex(4);
            auto* names = dialog.Find<QComboBox>("storedReports");
            names->setCurrentIndex(0);
            Q_EMIT names->activated(0);
            pages->setCurrentIndex(3);
            dialog.Enter("titleField", QStringLiteral("To Acme"));
            sheet.accept();
        });
        t.window.prompt.Expect(Text::AskRunReport, Answer::No);
        t.Run(32881);
        CReportDef stored;
        stored.kind = ReportKind::Grouped;
        QVERIFY(t.Stored(ReportKind::Grouped).Load(u"Monthly"_s, stored));
        QCOMPARE(stored.title, u"To Acme"_s);
        QCOMPARE(t.Stored(ReportKind::Grouped).Names(),
                 QStringList({u"Monthly"_s, CReportStore::ReservedName()}));
    }

    void aStoredReportIsChosenByItsName() {
        ReportWindow t;
        CReportDef report = ReportWindow::ByClient(ReportKind::Listing);
        report.title = u"All of it"_s;
        QVERIFY(t.Stored(ReportKind::Listing).Save(u"Everything"_s, report));
        const ModalUser user = Chooses(u"Everything"_s);
        t.Run(32816);
        QVERIFY(t.IsInFront());
        QVERIFY2(t.Page().contains(u"Acme\t40.00\nZoo\t20.00\nAcme\t2.50"_s), qPrintable(t.Page()));
    }

    void theChooserOfAKindWithoutReportsSaysSo() {
        ReportWindow t;
        const ModalUser user([](QDialog& dialog) {
            QCOMPARE(DialogUser(dialog).Label("pickNote"), LoadText(Text::ReportChooserEmpty));
            dialog.reject();
        });
        t.Run(32846);
        QVERIFY(user.Met() && !t.IsInFront());
    }

    void aDamagedDefinitionSaysWhyNothingHappens() {
        ReportWindow t;
        QVERIFY(t.window.app.Settings().WriteSubText(
            CReportStore::StoreKey(RecordMode::Time, ReportKind::Grouped), u"Broken"_s,
            LoadText(Text::ValueTitle), u"without a type"_s, false));
        const ModalUser user = Chooses(u"Broken"_s);
        t.Run(32846);
        QCOMPARE(t.Said(), FormatText<Text::ReportUnreadable>(u"Broken"_s));
    }

    void aStoredQueryThatIsGoneSaysSo() {
        ReportWindow t;
        CReportDef report = ReportWindow::ByClient();
        report.selection = ReportSelection::Query;
        report.useStoredQuery = true;
        report.queryName = u"Of Acme"_s;
        QVERIFY(t.Stored(ReportKind::Grouped).Save(u"Monthly"_s, report));
        const ModalUser user = Chooses(u"Monthly"_s);
        t.Run(32846);
        QVERIFY(!t.IsInFront());
        QCOMPARE(t.Said(), FormatText<Text::ReportQueryGone>(u"Of Acme"_s));
    }

    /// The list is narrowed to one day; a query walks all records.
    void aQueryIgnoresTheFilterOfTheList() {
        ReportWindow t;
        t.Run(32798);
        QCOMPARE(t.window.Rows(), 1);
        TimeQuery query;
        query.Reset(t.window.app.Document().GetPeriodContext());
        query.items[0] = u"Acme"_s;
        QVERIFY(CQueryStore(t.window.app.Settings(), RecordMode::Time).Save(u"Of Acme"_s, query));
        CReportDef report = ReportWindow::ByClient();
        report.selection = ReportSelection::Query;
        report.useStoredQuery = true;
        report.queryName = u"Of Acme"_s;
        QVERIFY(t.Stored(ReportKind::Grouped).Save(u"Monthly"_s, report));
        const ModalUser user = Chooses(u"Monthly"_s);
        t.Run(32846);
        QVERIFY2(t.Page().contains(u"Acme\t42.50"_s), qPrintable(t.Page()));
        QVERIFY(!t.Page().contains(u"Zoo"_s));
    }

    void withoutAStoredQueryTheDialogAsks() {
        ReportWindow t;
        CReportDef report = ReportWindow::ByClient();
        report.selection = ReportSelection::Query;
        QVERIFY(t.Stored(ReportKind::Grouped).Save(u"Monthly"_s, report));
        QStringList opened;
        QTimer timer;
        QObject::connect(&timer, &QTimer::timeout, &timer, [&] {
            auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
            if (!dialog || !dialog->isVisible() || opened.contains(dialog->objectName())) return;
            opened << dialog->objectName();
            if (dialog->objectName() == u"filterDialog"_s) {
                QCOMPARE(DialogUser(*dialog).Find<QPushButton>("acceptButton")->text().remove(u'&'),
                         LoadText(Text::FilterAcceptReport));
                DialogUser(*dialog).Enter("item1Field", u"Zoo"_s);
            }
            dialog->accept();
        });
        timer.start(5);
        t.Run(32846);
        QCOMPARE(opened, QStringList({u"pickDialog"_s, u"filterDialog"_s}));
        QVERIFY2(t.Page().contains(u"Zoo\t20.00"_s) && !t.Page().contains(u"Acme"_s), qPrintable(t.Page()));
        // again: the same conditions without a question
        opened.clear();
        t.Add(19, u"Zoo"_s, 1);
        t.Run(Command::kReportAgain);
        QVERIFY(opened.isEmpty());
        QVERIFY2(t.Page().contains(u"Zoo\t21.00"_s), qPrintable(t.Page()));
    }

    void summary() {
        ReportWindow t;
        t.Run(32788);
        QVERIFY(t.IsInFront());
        QVERIFY2(t.Page().startsWith(LoadText(Text::TitleSummary)), qPrintable(t.Page()));
        QVERIFY2(t.Page().contains(u"62.50"_s), qPrintable(t.Page()));
    }

    /// A summary is always offered; its records are those of the list, which isn't in front.
    void aReportInFrontHidesTheRecordsOfTheNext() {
        ReportWindow t;
        t.Run(32788);
        t.Run(32788);
        QCOMPARE(t.Said(), LoadText(Text::ReportNotInList));
        QVERIFY(t.IsInFront());
        QVERIFY(!t.window.Offers(32818) && !t.window.Offers(32881) && !t.window.Offers(32846));
        QVERIFY(t.window.Offers(32785) && t.window.Offers(32786) && t.window.Offers(32787));
    }

    void runAgainTakesTheRecordsAsTheyAreNow() {
        ReportWindow t;
        t.Run(32788);
        t.Add(19, u"Zoo"_s, 7.5F);
        QVERIFY2(t.Page().contains(u"62.50"_s), qPrintable(t.Page()));  // it stays until it is run again
        t.Run(Command::kReportAgain);
        QVERIFY2(t.Page().contains(u"70.00"_s), qPrintable(t.Page()));
        QVERIFY(t.IsInFront());
    }

    void runAgainOverASelectionLeavesOutWhatIsGone() {
        ReportWindow t;
        CReportDef report = ReportWindow::ByClient();
        report.selection = ReportSelection::Selected;
        QVERIFY(t.Stored(ReportKind::Grouped).Save(u"Selected"_s, report));
        t.window.List().SelectIds({t.ids[0], t.ids[1]});
        const ModalUser user = Chooses(u"Selected"_s);
        t.Run(32846);
        QVERIFY2(t.Page().contains(u"Acme\t40.00\nZoo\t20.00"_s), qPrintable(t.Page()));
        QVERIFY(t.window.app.Document().DeleteRecord(RecordKind::Time, t.ids[1], Notify::Yes));
        t.Run(Command::kReportAgain);
        QVERIFY2(t.Page().contains(u"Acme\t40.00"_s) && !t.Page().contains(u"Zoo"_s), qPrintable(t.Page()));
    }

    void theOtherModeDoesNotRunItAgain() {
        ReportWindow t;
        t.Run(32788);
        QVERIFY(t.window.Offers(Command::kReportAgain));
        t.Run(Command::kExpenseMode);
        QVERIFY(t.IsInFront());
        QVERIFY(!t.window.Offers(Command::kReportAgain));
        t.Run(Command::kTimeMode);
        QVERIFY(t.window.Offers(Command::kReportAgain));
    }

    void aReportOfOneRecordIsLikeAnyOther() {
        ReportWindow t;
        t.window.List().SelectIds({t.ids[2]});
        CReportDef report = ReportWindow::ByClient(ReportKind::Compound);
        report.selection = ReportSelection::Selected;
        QVERIFY(t.Stored(ReportKind::Compound).Save(u"One"_s, report));
        const ModalUser user = Chooses(u"One"_s);
        t.Run(32787);
        QVERIFY2(t.Page().contains(u"Acme\t2.50"_s), qPrintable(t.Page()));
    }
};

TEST_CLASS(TestFrameReports);
#include "TestFrameReports.moc"
