#include "shell/frame/CFrameLabels.h"

#include "exchange/export/PostProcessing.h"
#include "lang/LoadText.h"
#include "lists/LabelSets.h"
#include "shell/frame/FrameHome.h"
#include "shell/frame/ModalUser.h"
#include "shell/look/IconTheme.h"
#include "shell/report/CReportPane.h"
#include "shell/report/CReportView.h"
#include "support/TestProgram.h"
#include "viewmodel/list/CRecordListModel.h"

#include <QFile>
#include <QListWidget>
#include <QStackedWidget>
#include <QTabWidget>
#include <QTemporaryDir>
#include <QTreeView>

using namespace Qt::Literals::StringLiterals;

namespace {

/// A window with a record of a client "Acme", selected; its dialog of names is a function of the test.
struct NamesWindow {
    QTemporaryDir folder;
    Window window{folder.path()};

    NamesWindow() {
        window.frame->Refresh();
        window.frame->RunCommand(Command::kLayoutColumns);
        CTRecord record;
        record.Reset();
        record.date.Set(11, 19, 2026);
        record.item1 = u"Acme"_s;
        [&] {
            QVERIFY(window.app.Document().AddRecord(record, {Notify::Yes, Commit::Now, Identity::New}));
        }();
        window.List().selectAll();
        window.dialogs.labels = [this] { return Store(109, u"Patient"_s) && Store(117, u"Insured"_s); };
    }
    [[nodiscard]] bool Store(int field, const QString& name) {
        return CLabelEditor(window.app.Catalogue()).SetLabel(field, name);
    }
    void Name() const { window.frame->RunCommand(Command::kRenameLists); }
    [[nodiscard]] QStringList Headers() const {
        const QAbstractItemModel& model = *window.List().model();
        QStringList headers;
        for (int column = 1; column < model.columnCount(); ++column)
            headers << model.headerData(column, Qt::Horizontal).toString();
        return headers;
    }
    [[nodiscard]] QString NameOf(int command) const {
        return window.frame->findChild<CActions*>()->Action(command)->iconText();
    }
    [[nodiscard]] QString MenuTextOf(int command) const {
        return window.frame->findChild<CActions*>()->Action(command)->text().remove(u'&');
    }
};

}  // namespace

/// The names of fields in the frame: everything that shows them follows at once.
class TestFrameLabels final : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void initTestCase() {
        QVERIFY(LoadLanguageLibrary(QStringLiteral(TEST_BIN_DIR)));
        ChooseIconTheme();
    }

    void Columns() {
        NamesWindow t;
        QVERIFY(t.Headers().contains(u"Client"_s));
        t.Name();
        QCOMPARE(t.window.dialogs.called, QStringList{u"names of fields"_s});
        QVERIFY2(t.Headers().contains(u"Patient"_s), qPrintable(t.Headers().join(u' ')));
        QVERIFY(!t.Headers().contains(u"Client"_s));
    }
    void ColumnsInTheirOrder() {
        NamesWindow t;
        const qsizetype place = t.Headers().indexOf(u"Client"_s);
        t.Name();
        QCOMPARE(t.Headers().indexOf(u"Patient"_s), place);
        QCOMPARE(t.window.List().SelectedCount(), 1);
    }
    void Menus() {
        NamesWindow t;
        QCOMPARE(t.MenuTextOf(32804), u"Client"_s);
        t.Name();
        QCOMPARE(t.MenuTextOf(32804), u"Patient"_s);
        QCOMPARE(t.NameOf(32832), u"Insured"_s);
        QCOMPARE(t.MenuTextOf(Command::kMarkFirst), u"Insured"_s);
        QVERIFY(t.window.frame->findChild<CActions*>()->Action(32804)->toolTip().contains(u"Patient"_s));
    }
    void LevelsOfTheTree() {
        NamesWindow t;
        QStringList captions;
        t.Name();
        const ModalUser user([&](QDialog& dialog) {
            for (const auto* list : dialog.findChildren<QListWidget*>())
                for (int row = 0; row < list->count(); ++row) captions << list->item(row)->text();
            dialog.reject();
        });
        t.window.frame->RunCommand(Command::kTreeColumns);
        QVERIFY(user.Met());
        QVERIFY2(captions.contains(u"Patient"_s) && captions.contains(u"Insured"_s),
                 qPrintable(captions.join(u' ')));
        QVERIFY(!captions.contains(u"Client"_s));
    }
    void Dialogs() {
        NamesWindow t;
        t.Name();
        QString title;
        const ModalUser user([&title](QDialog& dialog) {
            title = dialog.windowTitle();
            dialog.reject();
        });
        t.window.frame->RunCommand(32804);
        QVERIFY(user.Met());
        QCOMPARE(title, u"Filter: Patient"_s);
    }
    void Reports() {
        NamesWindow t;
        t.Name();
        const ModalUser user([](QDialog& sheet) {
            sheet.findChild<QTabWidget*>(u"pages"_s)->setCurrentIndex(1);
            sheet.findChild<QListWidget*>(u"groupFields"_s)->item(1)->setCheckState(Qt::Checked);
            sheet.findChild<QListWidget*>(u"sumFields"_s)->item(0)->setCheckState(Qt::Checked);
            sheet.accept();
        });
        t.window.frame->RunCommand(32818);
        QVERIFY(user.Met());
        const CReportView& view = t.window.Find<CReportPane>("reportPane")->View();
        QTRY_VERIFY(view.IsPrepared());
        QVERIFY2(view.Text().contains(u"Patient\t"_s), qPrintable(view.Text()));
    }
    /// A report in front stays as it was made, and in front.
    void AReportInFrontStays() {
        NamesWindow t;
        const ModalUser user([](QDialog& sheet) {
            sheet.findChild<QTabWidget*>(u"pages"_s)->setCurrentIndex(1);
            sheet.findChild<QListWidget*>(u"groupFields"_s)->item(1)->setCheckState(Qt::Checked);
            sheet.findChild<QListWidget*>(u"sumFields"_s)->item(0)->setCheckState(Qt::Checked);
            sheet.accept();
        });
        t.window.frame->RunCommand(32818);
        const CReportView& view = t.window.Find<CReportPane>("reportPane")->View();
        QTRY_VERIFY(view.IsPrepared());
        const QString page = view.Text();
        t.Name();
        QCOMPARE(t.window.dialogs.called, QStringList{u"names of fields"_s});
        QCOMPARE(t.window.Find<QStackedWidget>("pane1")->currentWidget()->objectName(), u"reportPane"_s);
        QCOMPARE(view.Text(), page);
    }
    void ExportCaptions() {
        NamesWindow t;
        t.Name();
        const QString path = t.folder.path() + u"/out.csv"_s;
        t.window.prompt.ExpectFile(path);
        t.window.frame->RunCommand(Command::kExport);
        QFile file(path);
        QVERIFY(file.open(QIODevice::ReadOnly));
        const QString head = QString::fromUtf8(file.readLine());
        QVERIFY2(head.contains(u"Patient"_s) && !head.contains(u"Client"_s), qPrintable(head));
    }

    /// Cancel after a change counts as a change, and Cancel without one leaves the views alone.
    void ViewsAreToldOnlyWhenTheyMust_data() {
        QTest::addColumn<bool>("told");
        QTest::newRow("OK, or a change") << true;
        QTest::newRow("Cancel") << false;
    }
    void ViewsAreToldOnlyWhenTheyMust() {
        QFETCH(bool, told);
        NamesWindow t;
        t.window.dialogs.labels = [&] { return t.Store(109, u"Patient"_s) && told; };
        t.Name();
        QCOMPARE(t.Headers().contains(u"Patient"_s), told);
    }
    void NamesOfExpensesFollowWithTheirMode() {
        NamesWindow t;
        t.window.dialogs.labels = [&t] { return t.Store(131, u"Payer"_s); };
        t.Name();
        QCOMPARE(t.MenuTextOf(32804), u"Client"_s);
        t.window.frame->SwitchMode(RecordMode::Expense);
        QCOMPARE(t.MenuTextOf(32804), u"Payer"_s);
        QVERIFY(t.Headers().contains(u"Payer"_s));
    }
    void NextStart() {
        QTemporaryDir folder;
        {
            Window window(folder.path());
            window.frame->Refresh();
            window.dialogs.labels = [&window] {
                return CLabelEditor(window.app.Catalogue()).SetLabel(109, u"Patient"_s);
            };
            window.frame->RunCommand(Command::kRenameLists);
        }
        Window again(folder.path());
        again.frame->Refresh();
        QCOMPARE(again.frame->findChild<CActions*>()->Action(32804)->iconText(), u"Patient"_s);
    }
    /// Before the lists were read, names are read first: else the first one stored would be a second one.
    void NamesAreReadBeforeTheyAreEdited() {
        QTemporaryDir folder;
        {
            Window window(folder.path());
            window.frame->Refresh();
            QVERIFY(CLabelEditor(window.app.Catalogue()).SetLabel(109, u"Patient"_s));
        }
        Window again(folder.path());
        bool isFilled = false;
        again.dialogs.labels = [&] {
            isFilled = again.app.Catalogue().Labels().IsFilled();
            return false;
        };
        again.frame->RunCommand(Command::kRenameLists);
        QVERIFY(isFilled);
    }
};

TEST_CLASS(TestFrameLabels);
#include "TestFrameLabels.moc"
