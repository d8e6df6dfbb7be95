#include "shell/record/CDefaultsDialog.h"

#include "records/CERecord.h"
#include "shell/record/DialogHome.h"
#include "support/TestProgram.h"

#include <QTimer>
#include <QTreeWidget>
#include <functional>
#include <memory>

namespace {

QString S(const char* text) {
    return QString::fromUtf8(text);
}

/// A dialog of stored defaults over a scratch home.
class DefaultsHome : public DialogHome {
 public:
    void Store(const QString& name, const QString& item1) {
        CTRecord record;
        record.date.Set(1, 2, 2020);
        record.item1 = item1;
        NamedDefaults defaults(*home.settings, home.clock, RecordMode::Time);
        QVERIFY(defaults.Write(name, record));
    }
    void Open(bool isChoosing = false) {
        dialog = std::make_unique<CDefaultsDialog>(working, isChoosing, Context());
        Show(*dialog);
    }
    [[nodiscard]] QTreeWidget* List() const { return Find<QTreeWidget>("defaultsList"); }
    [[nodiscard]] QStringList Rows() const {
        QStringList rows;
        for (int i = 0; i < List()->topLevelItemCount(); ++i) rows << List()->topLevelItem(i)->text(0);
        return rows;
    }
    void Select(const QString& name) const {
        List()->setCurrentItem(List()->findItems(name, Qt::MatchExactly).value(0));
    }
    [[nodiscard]] QString Selected() const {
        return List()->currentItem() ? List()->currentItem()->text(0) : QString();
    }
    /// Presses a button and drives the dialogs that come one after the other; each step must end its own.
    using Step = std::function<void(const DialogUser& opened)>;
    void PressAndDo(const char* button, const QList<Step>& steps) {
        qsizetype done = 0;
        QTimer timer;
        QWidget* last = nullptr;
        QObject::connect(&timer, &QTimer::timeout, &timer, [&] {
            QWidget* opened = QApplication::activeModalWidget();
            if (!opened || opened == last || done == steps.size()) return;
            last = opened;
            const qsizetype step = done++;
            steps[step](DialogUser(*opened));
            last = nullptr;
        });
        timer.start(1);
        Press(button);
        QCOMPARE(done, steps.size());
    }
    /// Answers the question for a name.
    static Step Name(const QString& name) {
        return [name](const DialogUser& opened) {
            opened.Type("textField", name);
            opened.Press("acceptButton");
        };
    }
    static Step Cancel() {
        return [](const DialogUser& opened) { opened.Press("cancelButton"); };
    }
    [[nodiscard]] CTRecord Stored(const QString& name) {
        CTRecord record;
        if (!NamedDefaults(*home.settings, home.clock, RecordMode::Time).Read(name, record))
            qFatal("no default %s", qPrintable(name));
        return record;
    }

    CTRecord working;
    std::unique_ptr<CDefaultsDialog> dialog;
};

QString Empty() {
    return NamedDefaults::EmptyRecordName();
}

}  // namespace

/// The stored defaults under keys and clicks.
class TestCDefaultsDialog : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void ListsTheNamesAndTheEmptyRecord() {
        DefaultsHome t;
        t.Open();
        QCOMPARE(t.Rows(), QStringList{Empty()});
        QCOMPARE(t.Label("defaultsNote"), LoadText(Text::DefaultsNone));
        QCOMPARE(t.List()->headerItem()->text(0), S("Name"));
        t.Store(S("Zoo"), {});
        t.Store(S("Acme"), {});
        t.Open();
        QCOMPARE(t.Rows(), QStringList({S("Zoo"), S("Acme"), Empty()}));
        QCOMPARE(t.Label("defaultsNote"), LoadText(Text::DefaultsHint));
    }

    void EachKindHasItsOwn() {
        DefaultsHome t;
        t.Store(S("Zoo"), {});
        CERecord expense;
        CDefaultsDialog dialog(expense, true, t.Context());
        QCOMPARE(dialog.findChild<QTreeWidget*>()->topLevelItemCount(), 1);
        QCOMPARE(dialog.windowTitle(), LoadText(Text::DefaultsTitleExpenses));
    }

    void ChooseTheEmptyRecord() {
        DefaultsHome t;
        t.working.item1 = S("left over");
        t.working.GenUnique();
        t.Open(true);
        t.Press("acceptButton");
        QCOMPARE(t.dialog->result(), int(QDialog::Accepted));
        QCOMPARE(t.working.item1, QString());
        QCOMPARE(t.working.date.longText, S("11/19/2026"));
        QCOMPARE(t.working.GetId(), QString());
    }

    void ChooseAStoredOne_data() {
        QTest::addColumn<QString>("by");
        QTest::newRow("the button") << "button";
        QTest::newRow("Return in the list") << "Return";
        QTest::newRow("a double click") << "double click";
    }
    void ChooseAStoredOne() {
        QFETCH(QString, by);
        DefaultsHome t;
        t.Store(S("Zoo"), S("Lions"));
        t.Store(S("Acme"), S("Anvils"));
        t.Open(true);
        t.Select(S("Acme"));
        t.List()->setFocus();
        if (by == S("button")) t.Press("acceptButton");
        if (by == S("Return")) t.Key("defaultsList", Qt::Key_Return);
        if (by == S("double click")) {
            const QPoint place = t.List()->visualItemRect(t.List()->currentItem()).center();
            QTest::mouseClick(t.List()->viewport(), Qt::LeftButton, {}, place);
            QTest::mouseDClick(t.List()->viewport(), Qt::LeftButton, {}, place);
        }
        QCOMPARE(t.dialog->result(), int(QDialog::Accepted));
        QCOMPARE(t.working.item1, S("Anvils"));
        QCOMPARE(t.working.date.longText, S("01/02/2020"));
    }

    void CancelLeavesTheRecord() {
        DefaultsHome t;
        t.working.item1 = S("mine");
        t.Store(S("Acme"), S("Anvils"));
        t.Open(true);
        t.Press("cancelButton");
        QCOMPARE(t.dialog->result(), int(QDialog::Rejected));
        QCOMPARE(t.working.item1, S("mine"));
    }

    void WithoutASelectedRowNothingIsChosen() {
        DefaultsHome t;
        t.Open(true);
        t.List()->clearSelection();
        for (const char* name : {"acceptButton", "editButton", "deleteButton", "renameButton"})
            QVERIFY(!t.IsEnabled(name));
        t.dialog->accept();
        QVERIFY(t.dialog->isVisible());
    }

    void ADefaultThatCantBeReadIsNotChosen() {
        DefaultsHome t;
        QVERIFY(t.home.settings->WriteEntry(LoadText(Text::KeyTimeDefaults), S("Broken"), QByteArray("x")));
        t.working.item1 = S("mine");
        t.Open(true);
        t.home.prompt.ExpectTold(Text::DefaultDamaged, Text::DefaultsTitleTime);
        t.Press("acceptButton");
        t.home.prompt.Finish();
        QVERIFY(t.home.prompt.told.back().contains(S("Broken")));
        QVERIFY(t.dialog->isVisible());
        QCOMPARE(t.working.item1, S("mine"));
    }

    void NewAsksForRecordAndName() {
        DefaultsHome t;
        t.Store(S("Zoo"), {});
        t.Open();
        t.PressAndDo("newButton", {[](const DialogUser& record) {
                                       QCOMPARE(record.Shown("dateField"), S("11/19/2026"));
                                       QVERIFY(!record.Find<QWidget>("timerPanel")->isVisible());
                                       record.TurnTo(1);
                                       record.Enter("item1Field", S("Anvils"));
                                       record.Press("acceptButton");
                                   },
                                   DefaultsHome::Name(S("Acme"))});
        QCOMPARE(t.Rows(), QStringList({S("Zoo"), S("Acme"), Empty()}));
        QCOMPARE(t.Selected(), S("Acme"));
        QCOMPARE(t.Stored(S("Acme")).item1, S("Anvils"));
    }

    void NewOfExpenses() {
        DefaultsHome t;
        CERecord expense;
        CDefaultsDialog dialog(expense, false, t.Context());
        t.Show(dialog);
        t.PressAndDo("newButton", {[](const DialogUser& record) {
                                       record.Enter("amountField", S("12"));
                                       record.Press("acceptButton");
                                   },
                                   DefaultsHome::Name(S("Lunch"))});
        QCOMPARE(t.Rows(), QStringList({S("Lunch"), Empty()}));
        CERecord stored;
        QVERIFY(NamedDefaults(*t.home.settings, t.home.clock, RecordMode::Expense).Read(S("Lunch"), stored));
        QCOMPARE(stored.amount.value, 12.0F);
    }

    void NewIsCalledOff_data() {
        QTest::addColumn<int>("step");
        QTest::newRow("in the record") << 0;
        QTest::newRow("at the name") << 1;
    }
    void NewIsCalledOff() {
        QFETCH(int, step);
        DefaultsHome t;
        t.Open();
        const DefaultsHome::Step accept = [](const DialogUser& record) { record.Press("acceptButton"); };
        t.PressAndDo("newButton", step == 0 ? QList<DefaultsHome::Step>{DefaultsHome::Cancel()}
                                            : QList<DefaultsHome::Step>{accept, DefaultsHome::Cancel()});
        QCOMPARE(t.Rows(), QStringList{Empty()});
    }

    void ANewNameThatIsThereAlready_data() {
        QTest::addColumn<int>("answer");
        QTest::addColumn<QStringList>("rows");
        QTest::addColumn<QString>("item");
        QTest::newRow("is replaced under the name it has")
            << int(Answer::Yes) << QStringList{S("Acme"), Empty()} << "new";
        QTest::newRow("or asked for again")
            << int(Answer::No) << QStringList{S("Acme"), S("Other"), Empty()} << "old";
        QTest::newRow("or called off") << int(Answer::Cancel) << QStringList{S("Acme"), Empty()} << "old";
    }
    void ANewNameThatIsThereAlready() {
        QFETCH(int, answer);
        DefaultsHome t;
        t.Store(S("Acme"), S("old"));
        t.Open();
        QList<DefaultsHome::Step> steps{[](const DialogUser& record) {
                                            record.TurnTo(1);
                                            record.Enter("item1Field", S("new"));
                                            record.Press("acceptButton");
                                        },
                                        DefaultsHome::Name(S("ACME"))};
        if (Answer(answer) == Answer::No) steps << DefaultsHome::Name(S("Other"));
        t.home.prompt.Expect(Text::AskReplaceDefault, Answer(answer));
        t.PressAndDo("newButton", steps);
        t.home.prompt.Finish();
        QTEST(t.Rows(), "rows");
        QTEST(t.Stored(S("Acme")).item1, "item");
    }

    void AnEmptyNameIsAskedForAgain() {
        DefaultsHome t;
        t.Open();
        t.home.prompt.Expect(Text::AskNameAgain, Answer::Ok, Text::DefaultsName);
        t.PressAndDo("newButton", {[](const DialogUser& record) { record.Press("acceptButton"); },
                                   DefaultsHome::Name({}), DefaultsHome::Name(S("Acme"))});
        t.home.prompt.Finish();
        QCOMPARE(t.Rows(), QStringList({S("Acme"), Empty()}));
    }

    void EditAStoredOne() {
        DefaultsHome t;
        t.Store(S("Acme"), S("old"));
        t.Open();
        t.PressAndDo("editButton", {[](const DialogUser& record) {
                         QCOMPARE(record.Shown("dateField"), S("01/02/2020"));
                         QCOMPARE(record.Shown("item1Field"), S("old"));
                         record.TurnTo(1);
                         record.Enter("item1Field", S("new"));
                         record.Press("acceptButton");
                     }});
        QCOMPARE(t.Stored(S("Acme")).item1, S("new"));
        t.home.prompt.Expect(Text::AskLeaveDefault, Answer::No);
        t.PressAndDo("editButton", {[](const DialogUser& record) {
                         record.TurnTo(1);
                         record.Enter("item1Field", S("never"));
                         record.Press("cancelButton");
                     }});
        QCOMPARE(t.Stored(S("Acme")).item1, S("new"));
    }

    /// It can be chosen, and that is all.
    void TheEmptyRecordCantBeChanged() {
        DefaultsHome t;
        t.Store(S("Acme"), {});
        t.Open(true);
        for (const char* button : {"editButton", "deleteButton", "renameButton"})
            QVERIFY(t.IsEnabled(button));
        t.List()->setCurrentItem(t.List()->topLevelItem(1));
        for (const char* button : {"editButton", "deleteButton", "renameButton"})
            QVERIFY(!t.IsEnabled(button));
        QVERIFY(t.IsEnabled("acceptButton"));
    }

    /// Where a double click would edit a default, it says why this is none.
    void TheEmptyRecordIsRefused() {
        DefaultsHome t;
        t.Open();
        t.home.prompt.ExpectTold(Text::EditRefused, Text::EditDefaultTitle);
        Q_EMIT t.List()->itemDoubleClicked(t.List()->topLevelItem(0), 0);
        t.home.prompt.Finish();
        QCOMPARE(t.Rows(), QStringList{Empty()});
    }

    void Delete_data() {
        QTest::addColumn<bool>("isAsked");
        QTest::addColumn<int>("answer");
        QTest::addColumn<QStringList>("rows");
        const QStringList gone{S("Zoo"), Empty()};
        QTest::newRow("asked, yes") << true << int(Answer::Yes) << gone;
        QTest::newRow("asked, no") << true << int(Answer::No) << QStringList{S("Acme"), S("Zoo"), Empty()};
        QTest::newRow("not asked") << false << int(Answer::Yes) << gone;
    }
    void Delete() {
        QFETCH(bool, isAsked);
        QFETCH(int, answer);
        DefaultsHome t;
        t.home.settings->confirmDelete = isAsked;
        t.Store(S("Acme"), {});
        t.Store(S("Zoo"), {});
        t.Open();
        if (isAsked) t.home.prompt.Expect(Text::AskDeleteDefault, Answer(answer), Text::DeleteDefaultTitle);
        t.List()->setFocus();
        t.Key("defaultsList", Qt::Key_Delete);
        t.home.prompt.Finish();
        QTEST(t.Rows(), "rows");
        QCOMPARE(t.Selected(), t.Rows().front());
    }

    void Rename() {
        DefaultsHome t;
        t.Store(S("Acme"), S("Anvils"));
        t.Store(S("Zoo"), {});
        t.Open();
        t.PressAndDo("renameButton", {[](const DialogUser& opened) {
                         QCOMPARE(opened.Shown("textField"), S("Acme"));
                         opened.Type("textField", S("acme"));
                         opened.Press("acceptButton");
                     }});
        QCOMPARE(t.Rows(), QStringList({S("acme"), S("Zoo"), Empty()}));
        QCOMPARE(t.Stored(S("acme")).item1, S("Anvils"));
    }

    void ATakenNameIsRefused_data() {
        QTest::addColumn<QString>("name");
        QTest::newRow("exactly") << "Zoo";
        QTest::newRow("in another case") << "zoo";
    }
    void ATakenNameIsRefused() {
        QFETCH(QString, name);
        DefaultsHome t;
        t.Store(S("Acme"), {});
        t.Store(S("Zoo"), {});
        t.Open();
        t.home.prompt.Expect(Text::AskOtherName, Answer::Ok);
        t.PressAndDo("renameButton", {DefaultsHome::Name(name), DefaultsHome::Cancel()});
        t.home.prompt.Finish();
        QCOMPARE(t.Rows(), QStringList({S("Acme"), S("Zoo"), Empty()}));
    }

    void TheNameOfTheEmptyRecordIsRefused() {
        DefaultsHome t;
        t.Store(S("Acme"), {});
        t.Open();
        t.home.prompt.ExpectTold(Text::RenameRefused);
        t.PressAndDo("renameButton", {DefaultsHome::Name(Empty()), DefaultsHome::Cancel()});
        t.home.prompt.Finish();
        QCOMPARE(t.Rows(), QStringList({S("Acme"), Empty()}));
    }

    void F2Renames() {
        DefaultsHome t;
        t.Store(S("Acme"), {});
        t.Open();
        bool isAsked = false;
        QTimer::singleShot(0, qApp, [&isAsked] {
            isAsked = true;
            DialogUser(*QApplication::activeModalWidget()).Press("cancelButton");
        });
        t.List()->setFocus();
        t.Key("defaultsList", Qt::Key_F2);
        QVERIFY(isAsked);
    }

    void ToManageThereIsNothingToAccept() {
        DefaultsHome t;
        t.Store(S("Acme"), S("Anvils"));
        t.Open(false);
        QVERIFY(!t.dialog->findChild<QPushButton*>(S("acceptButton")));
        t.Press("closeButton");
        QVERIFY(!t.dialog->isVisible());
        QCOMPARE(t.working.item1, QString());
    }

    void RunLeavesTheClockAsItWas_data() {
        QTest::addColumn<bool>("isChoosing");
        QTest::newRow("to manage") << false;
        QTest::newRow("to choose") << true;
    }
    void RunLeavesTheClockAsItWas() {
        QFETCH(bool, isChoosing);
        DefaultsHome t;
        t.home.settings->clock24 = true;
        t.Store(S("Acme"), S("Anvils"));
        QTimer::singleShot(0, qApp, [&t, isChoosing] {
            t.home.settings->clock24 = false;
            DialogUser(*QApplication::activeModalWidget()).Press(isChoosing ? "acceptButton" : "closeButton");
        });
        QCOMPARE(RunDefaultsDialog(nullptr, t.working, isChoosing, t.Context()), isChoosing);
        QVERIFY(t.home.settings->clock24);
        QCOMPARE(t.working.item1, isChoosing ? S("Anvils") : QString());
    }

    void TabFollowsTheReadingOrder_data() {
        QTest::addColumn<bool>("isChoosing");
        QTest::addColumn<QStringList>("expected");
        const QStringList actions{S("defaultsList"), S("newButton"), S("editButton"), S("deleteButton"),
                                  S("renameButton")};
        QTest::newRow("to manage") << false << actions + QStringList{S("closeButton")};
        QTest::newRow("to choose") << true << actions + QStringList{S("acceptButton"), S("cancelButton")};
    }
    void TabFollowsTheReadingOrder() {
        QFETCH(bool, isChoosing);
        QFETCH(QStringList, expected);
        DefaultsHome t;
        t.Store(S("Acme"), {});
        t.Open(isChoosing);
        QCOMPARE(t.TabOrder(expected.size()), expected);
    }

    void Manners_data() {
        QTest::addColumn<bool>("isChoosing");
        QTest::newRow("to manage") << false;
        QTest::newRow("to choose") << true;
    }
    void Manners() {
        QFETCH(bool, isChoosing);
        DefaultsHome t;
        t.Store(QString(200, u'W'), {});
        t.Open(isChoosing);
        VERIFY_MNEMONICS(t, 5);
        VERIFY_SMALL_SCREEN(*t.dialog);
        QCOMPARE(t.Unnamed(), QString());
        t.dialog->resize(500, 350);
        t.dialog->reject();
        t.Open(isChoosing);
        QCOMPARE(t.dialog->size(), QSize(500, 350));
    }
};

TEST_CLASS(TestCDefaultsDialog);
#include "TestCDefaultsDialog.moc"
