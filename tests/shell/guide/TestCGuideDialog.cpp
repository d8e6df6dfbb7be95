#include "shell/guide/CGuideDialog.h"

#include "changes/ChangesFixture.h"
#include "fields/ListId.h"
#include "lang/FormatText.h"
#include "support/TestProgram.h"
#include "viewmodel/guide/CGuide.h"

#include <QComboBox>
#include <QKeySequence>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QSet>
#include <QTest>
#include <memory>

using namespace Qt::Literals::StringLiterals;

namespace {

const RegionalHabits kGerman{.firstDayOfWeek = 1, .currency = u"EUR"_s};

}  // namespace

class TestCGuideDialog final : public QObject {
    Q_OBJECT

    std::unique_ptr<ChangesFixture<>> m_fixture;
    std::unique_ptr<CGuide> m_guide;
    std::unique_ptr<CGuideDialog> m_dialog;

    [[nodiscard]] TestHome& Home() { return m_fixture->home; }
    void Open() {
        m_guide = std::make_unique<CGuide>(CGuide::Context{.document = *Home().document,
                                                           .timers = m_fixture->timers,
                                                           .settings = *Home().settings,
                                                           .catalogue = *Home().catalogue,
                                                           .changes = m_fixture->changes,
                                                           .clock = Home().clock,
                                                           .habits = kGerman});
        m_dialog = std::make_unique<CGuideDialog>(*m_guide, Home().prompt, *Home().profile, nullptr);
        m_dialog->show();
        QVERIFY(QTest::qWaitForWindowActive(m_dialog.get()));
    }
    template <class Widget>
    [[nodiscard]] Widget& Find(const char* name) const {
        auto* widget = m_dialog->findChild<Widget*>(QString::fromLatin1(name));
        [&] { QVERIFY2(widget, name); }();
        return *widget;
    }
    /// To whatever has the keyboard.
    static void Key(Qt::Key key, Qt::KeyboardModifiers with = Qt::NoModifier) {
        QTest::keyClick(QApplication::focusWidget(), key, with);
    }
    static void Type(const QString& text) { QTest::keyClicks(QApplication::focusWidget(), text); }
    [[nodiscard]] QString Title() const { return Find<QLabel>("guideTitle").text(); }
    [[nodiscard]] QString Shown(const char* label) const { return Find<QLabel>(label).text(); }
    [[nodiscard]] static QString Focus() { return QApplication::focusWidget()->objectName(); }

 private Q_SLOTS:
    void init() {
        m_fixture = std::make_unique<ChangesFixture<>>();
        m_fixture->Load();
        QVERIFY(WantGuide(*Home().settings));
    }
    void cleanup() {
        m_dialog.reset();
        m_guide.reset();
        m_fixture.reset();
    }

    void ByKeysAlone() {
        Open();
        QCOMPARE(Title(), LoadText(Text::GuideWordsTitle));
        QCOMPARE(Shown("guideCount"), FormatText<Text::GuidePageOf>(1, 4));
        QCOMPARE(Focus(), u"wordsPlain"_s);
        Key(Qt::Key_Down);
        QVERIFY(Find<QRadioButton>("wordsLaw").isChecked());
        QCOMPARE(Shown("wordsShown"), u"A record will have: Client, Matter, Activity, Cost centre"_s);
        Key(Qt::Key_Return);
        QCOMPARE(Shown("guideCount"), FormatText<Text::GuidePageOf>(2, 4));
        QCOMPARE(Focus(), u"clientField"_s);
        QCOMPARE(Shown("projectFieldLabel").remove(u'&'), u"Matter"_s);
        Type(u"Hollis Bakery"_s);
        Key(Qt::Key_Tab);
        Type(u"Lease"_s);
        Key(Qt::Key_Return);
        QCOMPARE(Title(), LoadText(Text::GuideHoursTitle));
        QCOMPARE(Find<QComboBox>("weekBox").currentText(), u"Monday"_s);
        QCOMPARE(Find<QComboBox>("currencyField").currentText(), u"EUR"_s);
        Type(u"120"_s);
        QCOMPARE(Shown("defaultHint"), FormatText<Text::GuideDefaultHint>(u"Hollis Bakery, Lease"_s));
        Key(Qt::Key_Return);
        QCOMPARE(Title(), LoadText(Text::GuideTimerTitle));
        QVERIFY(Find<QRadioButton>("timerNow").isChecked());
        QCOMPARE(Shown("timerWork"), u"Hollis Bakery · Lease"_s);
        Key(Qt::Key_Tab);
        Type(u"Reading"_s);
        Key(Qt::Key_Return);
        QCOMPARE(m_dialog->result(), static_cast<int>(QDialog::Accepted));
        QCOMPARE(m_dialog->HowLeft(), CGuideDialog::Left::Stored);
        QCOMPARE(Home().catalogue->Labels().GetLabel(110), u"Matter"_s);
        QCOMPARE(Home().catalogue->Texts(ListId::kClient), QStringList(u"Hollis Bakery"_s));
        QCOMPARE(Home().settings->firstDayOfWeek, 1);
        QCOMPARE(Home().settings->firstSteps, 2);
        QVERIFY(m_fixture->set.AnyRunning());
    }

    void BackKeepsWhatWasEntered() {
        Open();
        Key(Qt::Key_Return);
        Type(u"Hollis Bakery"_s);
        Key(Qt::Key_Return);
        Find<QPushButton>("guideBack").click();
        QCOMPARE(Focus(), u"clientField"_s);
        QCOMPARE(Find<QComboBox>("clientField").currentText(), u"Hollis Bakery"_s);
        Find<QPushButton>("guideBack").click();
        QCOMPARE(Shown("guideCount"), FormatText<Text::GuidePageOf>(1, 4));
        QVERIFY(!Find<QPushButton>("guideBack").isEnabled());
        QVERIFY(Home().catalogue->Texts(ListId::kClient).isEmpty());
    }

    void AWordOfOnesOwnChoosesItself() {
        Open();
        Find<QLineEdit>("personField").setFocus();
        Type(u"Patient"_s);
        QVERIFY(Find<QRadioButton>("wordsOwn").isChecked());
        QCOMPARE(Shown("wordsShown"), u"A record will have: Patient, Project, Activity, Cost centre"_s);
        Key(Qt::Key_Return);
        QCOMPARE(Shown("clientFieldLabel").remove(u'&'), u"Patient"_s);
    }

    void WithoutAClientTheTimerWaits() {
        Open();
        for (int page = 1; page < 4; ++page) Key(Qt::Key_Return);
        QVERIFY(Find<QRadioButton>("timerLater").isChecked());
        QVERIFY(!Find<QComboBox>("activityField").isEnabled());
        Key(Qt::Key_Return);
        QCOMPARE(m_dialog->HowLeft(), CGuideDialog::Left::Stored);
        QVERIFY(!m_fixture->set.AnyActive());
        QCOMPARE(Home().document->RecordCount(), std::size_t(0));
    }

    void ARateThatIsNoneKeepsThePage() {
        Open();
        Key(Qt::Key_Return);
        Key(Qt::Key_Return);
        Type(u"much"_s);
        Key(Qt::Key_Return);
        QCOMPARE(Title(), LoadText(Text::GuideHoursTitle));
        QCOMPARE(Focus(), u"rateField"_s);
        QCOMPARE(Find<QComboBox>("rateField").lineEdit()->accessibleDescription(),
                 LoadText(Text::GuideRateUnreadable));
    }

    void DecimalsAreTwoForWhoTakesToThem() {
        Open();
        Key(Qt::Key_Return);
        Key(Qt::Key_Return);
        QCOMPARE(Find<QComboBox>("spansBox").itemText(1), u"3.25 (decimal hours, rounded so)"_s);
        Find<QComboBox>("spansBox").setFocus();
        Key(Qt::Key_Down);
        Key(Qt::Key_Return);
        Key(Qt::Key_Return);
        QCOMPARE(Home().settings->spanDisplayFormat, 0);
        QCOMPARE(Home().settings->precisionDuration, 2);
    }

    /// Places round what is billed: they are never changed for who didn't ask for decimals.
    void HoursAndMinutesLeaveThePlacesAlone() {
        Open();
        Key(Qt::Key_Return);
        Key(Qt::Key_Return);
        Find<QComboBox>("spansBox").setFocus();
        Key(Qt::Key_Down);
        Key(Qt::Key_Up);
        Key(Qt::Key_Return);
        Key(Qt::Key_Return);
        QCOMPARE(Home().settings->spanDisplayFormat, 1);
        QCOMPARE(Home().settings->precisionDuration, 4);
    }

    void DecimalsStayAsTheyAreLater() {
        Home().settings->firstSteps = 2;
        Home().settings->precisionDuration = 4;
        Open();
        Key(Qt::Key_Return);
        Key(Qt::Key_Return);
        QCOMPARE(Find<QComboBox>("spansBox").currentText(), u"3.2500 (decimal hours, rounded so)"_s);
        Key(Qt::Key_Return);
        Key(Qt::Key_Return);
        QCOMPARE(Home().settings->precisionDuration, 4);
    }

    // --- Leaving before the end

    void EscapeAsksNothingWhereNothingWasEntered_data() {
        QTest::addColumn<int>("pages");
        for (int page = 0; page < 4; ++page) QTest::addRow("on page %d", page + 1) << page;
    }
    void EscapeAsksNothingWhereNothingWasEntered() {
        QFETCH(int, pages);
        Open();
        for (int page = 0; page < pages; ++page) Key(Qt::Key_Return);
        Key(Qt::Key_Escape);
        QVERIFY(!m_dialog->isVisible());
        QCOMPARE(m_dialog->HowLeft(), CGuideDialog::Left::Skipped);
        QCOMPARE(Home().settings->firstSteps, 2);
    }

    void WhatWasEnteredIsAskedAbout_data() {
        QTest::addColumn<Answer>("answer");
        QTest::addColumn<bool>("staysOpen");
        QTest::addColumn<QStringList>("clients");
        QTest::newRow("store") << Answer::Yes << false << QStringList(u"Hollis Bakery"_s);
        QTest::newRow("discard") << Answer::No << false << QStringList();
        QTest::newRow("go on") << Answer::Cancel << true << QStringList();
    }
    void WhatWasEnteredIsAskedAbout() {
        QFETCH(Answer, answer);
        QFETCH(bool, staysOpen);
        Open();
        Key(Qt::Key_Return);
        Type(u"Hollis Bakery"_s);
        Home().prompt.Expect(Text::GuideAskEnd, answer);
        Find<QPushButton>("guideSkip").click();
        QCOMPARE(m_dialog->isVisible(), staysOpen);
        QTEST(Home().catalogue->Texts(ListId::kClient), "clients");
        // Its page was never accepted.
        QVERIFY(!m_fixture->set.AnyActive());
        QCOMPARE(Home().settings->firstSteps, staysOpen ? 1 : 2);
    }

    void WhatCannotBeStoredKeepsItOpen() {
        Open();
        Key(Qt::Key_Return);
        Type(u"Hollis Bakery"_s);
        Key(Qt::Key_Return);
        Key(Qt::Key_Return);
        m_fixture->Run(
            "CREATE TRIGGER refuse BEFORE INSERT ON item_velmarch BEGIN SELECT RAISE(FAIL, 'refused'); END");
        Home().prompt.ExpectTold(Text::InsertFailed);
        Home().prompt.ExpectTold(Text::GuideNotAll);
        Key(Qt::Key_Return);
        QVERIFY(m_dialog->isVisible());
        m_fixture->Run("DROP TRIGGER refuse");
        Key(Qt::Key_Return);
        QVERIFY(!m_dialog->isVisible());
        QCOMPARE(Home().catalogue->Texts(ListId::kClient), QStringList(u"Hollis Bakery"_s));
    }

    void TheEndOfTheProgramDecidesNothing() {
        Open();
        m_dialog->hide();
        m_dialog.reset();
        QCOMPARE(Home().settings->firstSteps, 1);
    }

    // --- For everybody

    /// On each page; the letters of the names follow the names.
    void EachLetterComesOnce_data() {
        QTest::addColumn<int>("pages");
        for (int page = 0; page < 4; ++page) QTest::addRow("page %d", page + 1) << page;
    }
    void EachLetterComesOnce() {
        QFETCH(int, pages);
        Open();
        for (int page = 0; page < pages; ++page) Key(Qt::Key_Return);
        QSet<QString> letters;
        const auto check = [&letters](const QString& text) {
            const QKeySequence key = QKeySequence::mnemonic(text);
            if (key.isEmpty()) return;
            QVERIFY2(!letters.contains(key.toString()), qPrintable(text));
            letters.insert(key.toString());
        };
        for (const auto* label : m_dialog->findChildren<QLabel*>())
            if (label->isVisible() && label->buddy()) check(label->text());
        for (const auto* button : m_dialog->findChildren<QAbstractButton*>())
            if (button->isVisible()) check(button->text());
        QVERIFY(letters.size() >= 5);
    }

    void ASmallScreenScrolls() {
        Open();
        Key(Qt::Key_Return);
        Key(Qt::Key_Return);
        m_dialog->resize(400, 260);
        auto& scroll = Find<QScrollArea>("guideScroll");
        QTRY_VERIFY(scroll.verticalScrollBar()->maximum() > 0);
        for (int field = 0; field < 5; ++field) Key(Qt::Key_Tab);
        auto* last = &Find<QComboBox>("distancesBox");
        QCOMPARE(QApplication::focusWidget(), last);
        QVERIFY(scroll.viewport()->rect().contains(last->mapTo(scroll.viewport(), QPoint(0, 0))));
    }
};

TEST_CLASS(TestCGuideDialog);
#include "TestCGuideDialog.moc"
