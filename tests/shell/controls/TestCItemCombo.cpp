#include "shell/controls/CItemCombo.h"

#include "app/ListTable.h"
#include "shell/controls/CItemFields.h"
#include "shell/record/DialogHome.h"
#include "support/TestProgram.h"

#include <QSignalSpy>
#include <QToolTip>
#include <QVBoxLayout>
#include <QWheelEvent>

namespace {

QString S(const char* text) {
    return QString::fromUtf8(text);
}

/// Three fields of a chain in a dialog, from the first list down.
class Form : public DialogHome {
 public:
    Form() : fields(*home.catalogue, RecordMode::Time, *home.settings) {
        auto* column = new QVBoxLayout(&dialog);
        const std::pair<const char*, int> rows[] = {{"client", ListId::kClient},
                                                    {"project", ListId::kProject},
                                                    {"activity", ListId::kTimeItem3},
                                                    {"currency", ListId::kItem5}};
        for (const auto& [name, list] : rows) {
            CItemCombo* field = fields.Make(list);
            field->setObjectName(QString::fromLatin1(name));
            column->addWidget(field);
        }
        auto* button = new QPushButton(S("Save"));
        button->setDefault(true);
        column->addWidget(button);
        QObject::connect(button, &QPushButton::clicked, &dialog, &QDialog::accept);
        dialog.resize(300, 300);
    }
    void Open() { Show(dialog); }
    [[nodiscard]] CItemCombo* Client() const { return Find<CItemCombo>("client"); }
    [[nodiscard]] QStringList Proposed() const {
        const auto* popup = qobject_cast<QAbstractItemView*>(QApplication::activePopupWidget());
        QStringList texts;
        for (int i = 0; popup && i < popup->model()->rowCount(); ++i)
            texts << popup->model()->index(i, 0).data().toString();
        return texts;
    }

    QDialog dialog;
    CItemFields fields;
};

}  // namespace

/// A field with a list under keys and clicks.
class TestCItemCombo : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    /// A proposal that nobody has chosen is taken where it is the only one and what was typed begins a word
    /// of it.
    void TabTakesTheOnlyProposal_data() {
        QTest::addColumn<QString>("typed");
        QTest::addColumn<bool>("isEscaped");
        QTest::addColumn<QString>("expected");
        QTest::newRow("the beginning") << "hol" << false << "Hollis Bakery";
        QTest::newRow("the beginning of a later word") << "bak" << false << "Hollis Bakery";
        QTest::newRow("the middle of a word") << "akery" << false << "akery";
        QTest::newRow("several") << "a" << false << "a";
        QTest::newRow("the whole, in another spelling") << "acme" << false << "acme";
        QTest::newRow("none") << "Zoo" << false << "Zoo";
        QTest::newRow("the list was closed by Escape") << "hol" << true << "hol";
    }
    void TabTakesTheOnlyProposal() {
        QFETCH(QString, typed);
        QFETCH(bool, isEscaped);
        Form t;
        t.AddItems(ListId::kClient, {S("Hollis Bakery"), S("Acme"), S("Atlas")});
        t.Open();
        t.Type("client", typed);
        if (isEscaped) t.Key("client", Qt::Key_Escape);
        t.Key("client", Qt::Key_Tab);
        QTEST(t.Client()->Text(), "expected");
        QVERIFY(!t.Client()->hasFocus());
    }

    void OpensOnTheListAsItIsNow_data() {
        QTest::addColumn<QString>("by");
        QTest::newRow("F4") << "F4";
        QTest::newRow("Alt+Down") << "Alt+Down";
        QTest::newRow("its button") << "button";
    }
    void OpensOnTheListAsItIsNow() {
        QFETCH(QString, by);
        Form t;
        t.AddItems(ListId::kClient, {S("Zoo"), S("Acme")});
        t.Open();
        t.Client()->setFocus();
        t.AddItems(ListId::kClient, {S("M\u00fcller")});
        if (by == S("F4")) t.Key("client", Qt::Key_F4);
        if (by == S("Alt+Down")) t.Key("client", Qt::Key_Down, Qt::AltModifier);
        if (by == S("button"))
            QTest::mouseClick(t.Client(), Qt::LeftButton, {},
                              QPoint(t.Client()->width() - 8, t.Client()->height() / 2));
        QVERIFY(t.Client()->view()->isVisible());
        QCOMPARE(t.Client()->count(), 3);
        QCOMPARE(t.Client()->itemText(0), S("Zoo"));
        QCOMPARE(t.Client()->itemText(2), S("M\u00fcller"));
    }

    void KeepsItsTextWhenItOpens_data() {
        QTest::addColumn<QString>("held");
        QTest::addColumn<int>("selected");
        QTest::newRow("an item is selected") << "Beta" << 1;
        QTest::newRow("another text stays typed") << "Gamma" << -1;
        QTest::newRow("another case is another text") << "beta" << -1;
        QTest::newRow("an empty text stays empty") << "" << -1;
    }
    void KeepsItsTextWhenItOpens() {
        QFETCH(QString, held);
        Form t;
        t.AddItems(ListId::kClient, {S("Alpha"), S("Beta")});
        t.Open();
        t.Enter("client", held);
        t.Client()->setFocus();
        t.Key("client", Qt::Key_F4);
        QCOMPARE(t.Shown("client"), held);
        QTEST(t.Client()->currentIndex(), "selected");
        t.Key("client", Qt::Key_Escape);
        QCOMPARE(t.Shown("client"), held);
        QVERIFY(t.dialog.isVisible());
    }

    void OffersWhatHangsUnderThePath_data() {
        QTest::addColumn<bool>("isUsed");
        QTest::addColumn<QString>("client");
        QTest::addColumn<QString>("project");
        QTest::addColumn<QString>("field");
        QTest::addColumn<QStringList>("expected");
        const QStringList none;
        QTest::newRow("the first list: what stands first") << true << ""
                                                           << ""
                                                           << "client" << QStringList{S("Acme"), S("Other")};
        QTest::newRow("under the first") << true << "Acme"
                                         << ""
                                         << "project" << QStringList{S("Alpha"), S("Both")};
        QTest::newRow("an item under two parents") << true << "Other"
                                                   << ""
                                                   << "project" << QStringList{S("Both")};
        QTest::newRow("a text above that hangs nowhere") << true << "Nobody"
                                                         << ""
                                                         << "project" << none;
        QTest::newRow("a text above in another case") << true << "acme"
                                                      << ""
                                                      << "project" << none;
        QTest::newRow("nothing above") << true << ""
                                       << ""
                                       << "project" << none;
        QTest::newRow("the third under the second") << true << "Acme"
                                                    << "Alpha"
                                                    << "activity" << QStringList{S("Design")};
        QTest::newRow("under the wrong first") << true << "Other"
                                               << "Alpha"
                                               << "activity" << none;
        QTest::newRow("nothing in the middle") << true << "Acme"
                                               << ""
                                               << "activity" << none;
        QTest::newRow("outside the chain") << true << "Nobody"
                                           << ""
                                           << "currency" << QStringList{S("EUR")};
        QTest::newRow("without dependencies the whole list")
            << false << "Nobody"
            << ""
            << "project" << QStringList{S("Alpha"), S("Both"), S("Lonely")};
    }
    void OffersWhatHangsUnderThePath() {
        QFETCH(bool, isUsed);
        QFETCH(QString, client);
        QFETCH(QString, project);
        QFETCH(QString, field);
        Form t;
        t.home.settings->useDependencies = isUsed;
        t.Hang(DependencySet::Time, {{ListId::kClient, S("Acme")},
                                     {ListId::kProject, S("Alpha")},
                                     {ListId::kTimeItem3, S("Design")}});
        t.Hang(DependencySet::Time, {{ListId::kClient, S("Acme")}, {ListId::kProject, S("Both")}});
        t.Hang(DependencySet::Time, {{ListId::kClient, S("Other")}, {ListId::kProject, S("Both")}});
        t.AddItems(ListId::kProject, {S("Lonely")});
        t.AddItems(ListId::kItem5, {S("EUR")});
        t.Open();
        t.Enter("client", client);
        t.Enter("project", project);
        t.Enter("activity", S("as typed"));
        QTEST(t.Offered(qPrintable(field)), "expected");
        QCOMPARE(t.Shown("activity"), S("as typed"));
    }

    void AnEmptyListSaysWhy_data() {
        QTest::addColumn<bool>("isUsed");
        QTest::addColumn<int>("tip");
        QTest::newRow("no items") << false << int(Text::ListIsEmpty);
        QTest::newRow("none under what is above") << true << int(Text::NothingUnderPath);
    }
    void AnEmptyListSaysWhy() {
        QFETCH(bool, isUsed);
        QFETCH(int, tip);
        Form t;
        t.home.settings->useDependencies = isUsed;
        if (isUsed) t.AddItems(ListId::kProject, {S("Alpha")});
        t.Open();
        t.Find<QWidget>("project")->setFocus();
        t.Key("project", Qt::Key_F4);
        QVERIFY(!t.Find<CItemCombo>("project")->view()->isVisible());
        QCOMPARE(QToolTip::text(), LoadText(static_cast<Text>(tip)));
    }

    void ProposesWhatHoldsTheTypedText() {
        Form t;
        t.AddItems(ListId::kClient, {S("Alpha"), S("Beta"), S("Graph")});
        t.Open();
        t.Type("client", S("PH"));
        QCOMPARE(t.Proposed(), QStringList({S("Alpha"), S("Graph")}));
        QCOMPARE(t.Shown("client"), S("PH"));
        t.Keys("client", S("A"));
        QCOMPARE(t.Proposed(), QStringList{S("Alpha")});
        t.Keys("client", S("x"));
        QCOMPARE(t.Proposed(), QStringList());
        QCOMPARE(t.Shown("client"), S("PHAx"));
    }

    void AProposalIsTaken_data() {
        QTest::addColumn<int>("key");
        QTest::addColumn<QString>("focus");
        QTest::newRow("Return") << int(Qt::Key_Return) << "client";
        QTest::newRow("Tab, and on") << int(Qt::Key_Tab) << "project";
    }
    void AProposalIsTaken() {
        QFETCH(int, key);
        Form t;
        t.AddItems(ListId::kClient, {S("Alpha"), S("Graph")});
        t.Open();
        t.Type("client", S("ph"));
        QSignalSpy edited(t.Client(), &CItemCombo::Edited);
        t.Key("client", Qt::Key_Down);
        t.Key("client", Qt::Key_Down);
        QCOMPARE(t.Shown("client"), S("ph"));
        t.Key("client", key);
        QCOMPARE(t.Shown("client"), S("Graph"));
        QCOMPARE(edited.size(), 1);
        QVERIFY(t.dialog.isVisible());
        QTEST(t.dialog.focusWidget()->objectName(), "focus");
    }

    void ReturnWithoutAProposalIsReturnInTheDialog() {
        Form t;
        t.AddItems(ListId::kClient, {S("Alpha")});
        t.Open();
        t.Type("client", S("ph"));
        QVERIFY(!t.Proposed().isEmpty());
        t.Key("client", Qt::Key_Return);
        QVERIFY(!t.dialog.isVisible());
        QCOMPARE(t.dialog.result(), int(QDialog::Accepted));
        QCOMPARE(t.Shown("client"), S("ph"));
    }

    void EscapeClosesTheProposalsOnly() {
        Form t;
        t.AddItems(ListId::kClient, {S("Alpha")});
        t.Open();
        t.Type("client", S("ph"));
        t.Key("client", Qt::Key_Escape);
        QVERIFY(!QApplication::activePopupWidget());
        QVERIFY(t.dialog.isVisible());
        QCOMPARE(t.Shown("client"), S("ph"));
    }

    void LeavingKeepsTheTypedSpelling() {
        Form t;
        t.AddItems(ListId::kClient, {S("Acme")});
        t.Open();
        t.Enter("client", S("acme"));
        QCOMPARE(t.Shown("client"), S("acme"));
        t.Enter("client", S("ACME"));
        QCOMPARE(t.Shown("client"), S("ACME"));
    }

    void ArrowsGoFromEntryToEntry() {
        Form t;
        t.AddItems(ListId::kClient, {S("Alpha"), S("Beta")});
        t.Open();
        t.Client()->setFocus();
        t.AddItems(ListId::kClient, {S("Gamma")});
        t.Key("client", Qt::Key_Down);
        QCOMPARE(t.Shown("client"), S("Alpha"));
        t.Key("client", Qt::Key_Down);
        t.Key("client", Qt::Key_Down);
        QCOMPARE(t.Shown("client"), S("Gamma"));
        t.Key("client", Qt::Key_Up);
        QCOMPARE(t.Shown("client"), S("Beta"));
    }

    void OnlyTheUsersChangesAreAnnounced() {
        Form t;
        t.AddItems(ListId::kClient, {S("Alpha"), S("Beta")});
        t.Open();
        QSignalSpy edited(t.Client(), &CItemCombo::Edited);
        t.Client()->ShowText(S("Beta"));
        t.Client()->setFocus();
        t.Key("client", Qt::Key_F4);
        t.Key("client", Qt::Key_Escape);
        QCOMPARE(edited.size(), 0);
        t.Pick("client", S("Alpha"));
        QCOMPARE(t.Shown("client"), S("Alpha"));
        QCOMPARE(edited.size(), 1);
        t.Pick("client", S("Alpha"));
        QCOMPARE(edited.size(), 1);
        t.Key("client", Qt::Key_End);
        t.Keys("client", S("12"));
        QCOMPARE(edited.size(), 3);
    }

    void TheCursorStaysWhereItIs() {
        Form t;
        t.Open();
        t.Client()->ShowText(S("Acme"));
        t.AddItems(ListId::kClient, {S("Acme")});
        t.Find<QWidget>("project")->setFocus();
        t.Client()->lineEdit()->setSelection(1, 2);
        t.Client()->setFocus();
        QCOMPARE(t.Client()->lineEdit()->selectedText(), S("cm"));
        QCOMPARE(t.Client()->count(), 1);
    }

    void LongTexts_data() {
        QTest::addColumn<QString>("held");
        QTest::addColumn<int>("cursor");
        QTest::addColumn<QString>("pasted");
        QTest::addColumn<QString>("expected");
        const QString smile = S("\U0001F600");
        const auto x = [](int count) { return QString(count, u'x'); };
        QTest::newRow("255") << "" << 0 << x(255) << x(255);
        QTest::newRow("256") << "" << 0 << x(256) << x(255);
        QTest::newRow("half a character at the end") << x(254) << 254 << smile << x(254);
        QTest::newRow("half a character in the middle") << x(254) << 100 << smile << x(254);
        QTest::newRow("a whole one in the middle") << x(253) << 1 << smile << S("x") + smile + x(252);
        QTest::newRow("umlauts and quotes") << "" << 0 << S("\u00e4\"'%&") << S("\u00e4\"'%&");
    }
    void LongTexts() {
        QFETCH(QString, held);
        QFETCH(int, cursor);
        QFETCH(QString, pasted);
        Form t;
        t.Open();
        t.Client()->ShowText(held);
        t.Client()->lineEdit()->setCursorPosition(cursor);
        t.Client()->lineEdit()->insert(pasted);
        QTEST(t.Client()->Text(), "expected");
    }

    void TheWheelChangesNothing() {
        Form t;
        t.AddItems(ListId::kClient, {S("Alpha"), S("Beta")});
        t.Open();
        t.Enter("client", S("Alpha"));
        t.Client()->setFocus();
        QWheelEvent turn(QPointF(5, 5), QPointF(5, 5), {}, QPoint(0, -120), Qt::NoButton, {},
                         Qt::NoScrollPhase, false);
        QApplication::sendEvent(t.Client(), &turn);
        QCOMPARE(t.Shown("client"), S("Alpha"));
    }

    void LongItemsLeaveTheFieldNarrow() {
        Form t;
        t.AddItems(ListId::kClient, {QString(255, u'W')});
        t.Open();
        t.Client()->setFocus();
        QVERIFY(t.Client()->minimumSizeHint().width() < 250);
    }
};

TEST_CLASS(TestCItemCombo);
#include "TestCItemCombo.moc"
