#include "shell/controls/CTimeEdit.h"

#include "calendar/NumberText.h"
#include "lang/LoadText.h"
#include "records/CTRecord.h"
#include "shell/controls/CPickPopup.h"
#include "shell/look/FormRows.h"
#include "support/CScriptedPrompt.h"
#include "support/CTestClock.h"
#include "support/TestProgram.h"

#include <QPushButton>
#include <QSignalSpy>
#include <QTableWidget>
#include <QTimeEdit>
#include <QtTest>

/// A time field under keys and clicks.
class TestCTimeEdit : public QObject {
    Q_OBJECT

 private:
    CTestClock m_clock{2026, 11, 19, 14, 7};
    CTRecord m_entry;
    CScriptedPrompt m_prompt;

    TimePicking Picking() { return {TimeField::Start, m_entry, m_clock, m_prompt}; }

    static CRegionalInfo Region(bool is24Hour) {
        CRegionalInfo region;
        region.is24Hour = is24Hour;
        return region;
    }
    static DateTimeVal Time(int hour24, int minute) {
        DateTimeVal time;
        Q_ASSERT(time.SetTime24(hour24, minute));
        return time;
    }
    static QString Shown(const CTimeEdit& edit) {
        if (!edit.GetTime()) return QStringLiteral("none");
        return FormatTimeOfDay(Region(true), edit.GetTime()->hour12, edit.GetTime()->minute,
                               edit.GetTime()->isPm != 0);
    }
    static CPickPopup* Popup(CTimeEdit& edit) {
        QTest::keyClick(&edit, Qt::Key_Down, Qt::AltModifier);
        return edit.findChild<CPickPopup*>();
    }
    static QTableWidget* Grid(const CPickPopup& popup, const char* name) {
        return popup.findChild<QTableWidget*>(QString::fromLatin1(name));
    }
    /// The words on the button that is lit, or nothing.
    static QString Lit(const CPickPopup& popup, const char* name) {
        const auto lit = Grid(popup, name)->selectedItems();
        return lit.isEmpty() ? QString() : lit.front()->text();
    }
    static void Click(const QTableWidget& grid, const QString& words, bool isDouble = false) {
        const QTableWidgetItem* cell = grid.findItems(words, Qt::MatchExactly).front();
        const QPoint place = grid.visualItemRect(cell).center();
        QTest::mouseClick(grid.viewport(), Qt::LeftButton, {}, place);
        if (isDouble) QTest::mouseDClick(grid.viewport(), Qt::LeftButton, {}, place);
    }

 private Q_SLOTS:
    void initTestCase() { QVERIFY(LoadLanguageLibrary(QStringLiteral(TEST_BIN_DIR))); }

    void SetTime_data() {
        QTest::addColumn<bool>("is24Hour");
        QTest::addColumn<int>("hour");
        QTest::addColumn<QString>("expected");
        QTest::newRow("12 hours, morning") << false << 9 << "09:05 AM";
        QTest::newRow("12 hours, midnight") << false << 0 << "12:05 AM";
        QTest::newRow("24 hours, afternoon") << true << 21 << "21:05";
        QTest::newRow("24 hours, midnight") << true << 0 << "00:05";
    }
    void SetTime() {
        QFETCH(bool, is24Hour);
        QFETCH(int, hour);
        CTimeEdit edit(Region(is24Hour), Picking(), 5);
        QSignalSpy entered(&edit, &CPickEdit::Entered);
        edit.SetTime(Time(hour, 5));
        QTEST(edit.text(), "expected");
        QCOMPARE(entered.count(), 0);
        QVERIFY(!edit.IsTouched());
        edit.SetTime({});
        QCOMPARE(edit.text(), QString());
    }

    void Type_data() {
        QTest::addColumn<QString>("keys");
        QTest::addColumn<QString>("expected");
        QTest::addColumn<bool>("isReadable");
        QTest::newRow("a time") << "2130"
                                << "21:30" << true;
        QTest::newRow("the key for now") << "n"
                                         << "14:07" << true;
        QTest::newRow("no time keeps the last that could be read") << "25"
                                                                   << "02:00" << false;
        QTest::newRow("words keep the time before") << "xyz"
                                                    << "09:00" << false;
    }
    void Type() {
        QFETCH(QString, keys);
        CTimeEdit edit(Region(false), Picking(), 5);
        edit.SetTime(Time(9, 0));
        edit.selectAll();
        QTest::keyClicks(&edit, keys);
        QTEST(Shown(edit), "expected");
        QTEST(edit.IsReadable(), "isReadable");
        QCOMPARE(IsMarked(edit), !edit.IsReadable());
        QVERIFY(edit.IsTouched());
        QCOMPARE(edit.text(), keys);
    }

    /// A screen reader puts in a text as a whole, without a key.
    void ATextPutInFromOutside() {
        CTimeEdit edit(Region(false), Picking(), 5);
        edit.SetTime(Time(9, 0));
        QSignalSpy entered(&edit, &CPickEdit::Entered);
        edit.setText(QStringLiteral("2130"));
        QCOMPARE(Shown(edit), QStringLiteral("21:30"));
        QVERIFY(edit.IsTouched());
        QCOMPARE(entered.count(), 1);
    }

    void ATextPutInFromOutsideWhileLocked() {
        CTimeEdit edit(Region(false), Picking(), 5);
        edit.SetTime(Time(9, 0));
        edit.Lock(QStringLiteral("a reason"));
        QSignalSpy tried(&edit, &CPickEdit::EntryTried);
        QSignalSpy entered(&edit, &CPickEdit::Entered);
        edit.setText(QStringLiteral("2130"));
        QCOMPARE(edit.text(), QStringLiteral("09:00 AM"));
        QCOMPARE(Shown(edit), QStringLiteral("09:00"));
        QCOMPARE(tried.count(), 1);
        QCOMPARE(entered.count(), 0);
    }

    void Clear() {
        CTimeEdit edit(Region(false), Picking(), 5);
        edit.SetTime(Time(9, 0));
        edit.selectAll();
        QTest::keyClick(&edit, Qt::Key_Delete);
        QCOMPARE(Shown(edit), QStringLiteral("none"));
        QVERIFY(edit.IsReadable());
    }

    void Step_data() {
        QTest::addColumn<int>("step");
        QTest::addColumn<int>("hour");
        QTest::addColumn<int>("minute");
        QTest::addColumn<int>("key");
        QTest::addColumn<QString>("expected");
        QTest::newRow("up") << 5 << 9 << 0 << int(Qt::Key_Up) << "09:05";
        QTest::newRow("down") << 5 << 9 << 0 << int(Qt::Key_Down) << "08:55";
        QTest::newRow("up from between two steps") << 5 << 9 << 7 << int(Qt::Key_Up) << "09:10";
        QTest::newRow("down from between two steps") << 5 << 9 << 7 << int(Qt::Key_Down) << "09:05";
        QTest::newRow("up by the rounding's minutes") << 15 << 9 << 0 << int(Qt::Key_Up) << "09:15";
        QTest::newRow("up past midnight") << 5 << 23 << 55 << int(Qt::Key_Up) << "00:00";
        QTest::newRow("down past midnight") << 5 << 0 << 0 << int(Qt::Key_Down) << "23:55";
        QTest::newRow("page up is an hour") << 5 << 9 << 7 << int(Qt::Key_PageUp) << "10:07";
        QTest::newRow("page down is an hour") << 5 << 0 << 7 << int(Qt::Key_PageDown) << "23:07";
    }
    void Step() {
        QFETCH(int, step);
        QFETCH(int, hour);
        QFETCH(int, minute);
        QFETCH(int, key);
        CTimeEdit edit(Region(false), Picking(), step);
        edit.SetTime(Time(hour, minute));
        QSignalSpy entered(&edit, &CPickEdit::Entered);
        QTest::keyClick(&edit, Qt::Key(key));
        QTEST(Shown(edit), "expected");
        QCOMPARE(entered.count(), 1);
    }

    void StepIntoAnEmptyFieldStartsAtThePresent() {
        CTimeEdit edit(Region(false), Picking(), 5);
        QTest::keyClick(&edit, Qt::Key_Up);
        QCOMPARE(Shown(edit), QStringLiteral("14:10"));
    }

    void Pick_data() {
        QTest::addColumn<bool>("is24Hour");
        QTest::addColumn<QString>("keys");
        QTest::addColumn<QString>("expected");
        QTest::newRow("Return takes what is there") << false << "R"
                                                    << "09:07";
        QTest::newRow("an hour on, the minutes kept") << false << ">R"
                                                      << "10:07";
        QTest::newRow("a row up is six hours") << false << "^R"
                                               << "03:07";
        QTest::newRow("24 hours: a row down") << true << "vR"
                                              << "15:07";
        QTest::newRow("24 hours: on to noon") << true << "v<<<R"
                                              << "12:07";
        QTest::newRow("Space taps the hour that is there") << false << "_R"
                                                           << "09:07";
        QTest::newRow("Escape leaves the time") << false << ">E"
                                                << "09:07";
    }
    void Pick() {
        QFETCH(bool, is24Hour);
        QFETCH(QString, keys);
        CTimeEdit edit(Region(is24Hour), Picking(), 5);
        edit.SetTime(Time(9, 7));
        edit.show();
        CPickPopup* popup = Popup(edit);
        QVERIFY(popup);
        static const QHash<QChar, Qt::Key> kKeys{
            {u'R', Qt::Key_Return}, {u'E', Qt::Key_Escape}, {u'>', Qt::Key_Right}, {u'v', Qt::Key_Down},
            {u'^', Qt::Key_Up},     {u'_', Qt::Key_Space},  {u'<', Qt::Key_Left}};
        QTableWidget* hours = Grid(*popup, "hourGrid");
        for (const QChar key : keys) QTest::keyClick(hours, kKeys[key]);
        QVERIFY(!popup->isVisible());
        QTEST(Shown(edit), "expected");
    }

    void PickWithTheMouse() {
        CTimeEdit edit(Region(false), Picking(), 5);
        edit.SetTime(Time(9, 0));
        edit.show();
        QTest::mouseClick(edit.findChild<QAbstractButton*>(QStringLiteral("pickButton")), Qt::LeftButton);
        auto* popup = edit.findChild<CPickPopup*>();
        QVERIFY(popup);
        QCOMPARE(popup->windowTitle(), QStringLiteral("Start: 09:00 AM"));
        Click(*Grid(*popup, "minuteGrid"), QStringLiteral(":35"));
        Click(*Grid(*popup, "halfGrid"), QStringLiteral("PM"));
        QCOMPARE(popup->windowTitle(), QStringLiteral("Start: 09:35 PM"));
        // The field is as it was until the pad is accepted.
        QCOMPARE(Shown(edit), QStringLiteral("09:00"));
        Click(*Grid(*popup, "hourGrid"), QStringLiteral("12"), true);
        QCOMPARE(Shown(edit), QStringLiteral("12:35"));
        QVERIFY(!popup->isVisible());
    }

    void PickWhereThereIsNoTime() {
        CTimeEdit edit(Region(false), Picking(), 5);
        edit.show();
        CPickPopup* popup = Popup(edit);
        auto* control = popup->findChild<QTimeEdit*>(QStringLiteral("timeControl"));
        QCOMPARE(control->text(), QStringLiteral("12:00 AM"));
        QCOMPARE(Lit(*popup, "hourGrid"), QString());
        // Going through the pad with Tab taps nothing.
        for (int i = 0; i < 8; ++i) QTest::keyClick(popup->focusWidget(), Qt::Key_Tab);
        QCOMPARE(Lit(*popup, "hourGrid"), QString());
        QVERIFY(!m_entry.HasStart());
        Click(*Grid(*popup, "halfGrid"), QStringLiteral("PM"));
        QCOMPARE(control->text(), QStringLiteral("12:00 PM"));
        QTest::mouseClick(popup->findChild<QPushButton*>(QStringLiteral("takeButton")), Qt::LeftButton);
        QCOMPARE(Shown(edit), QStringLiteral("12:00"));
    }

    void LightFollowsTheTaps() {
        CTimeEdit edit(Region(false), Picking(), 5);
        edit.SetTime(Time(9, 0));
        edit.show();
        CPickPopup* popup = Popup(edit);
        QCOMPARE(Lit(*popup, "hourGrid"), QStringLiteral("9"));
        Click(*Grid(*popup, "hourGrid"), QStringLiteral("4"));
        Click(*Grid(*popup, "minuteGrid"), QStringLiteral(":20"));
        QCOMPARE(Lit(*popup, "hourGrid"), QStringLiteral("4"));
        QCOMPARE(Lit(*popup, "minuteGrid"), QStringLiteral(":20"));
        QCOMPARE(Lit(*popup, "halfGrid"), QStringLiteral("AM"));
        Click(*Grid(*popup, "halfGrid"), QStringLiteral("PM"));
        QCOMPARE(Lit(*popup, "halfGrid"), QStringLiteral("PM"));
        Click(*Grid(*popup, "halfGrid"), QStringLiteral("PM"));
        QCOMPARE(Lit(*popup, "halfGrid"), QStringLiteral("PM"));
        QTest::keyClick(Grid(*popup, "halfGrid"), Qt::Key_Left);
        QCOMPARE(Lit(*popup, "halfGrid"), QStringLiteral("AM"));
        QCOMPARE(Shown(edit), QStringLiteral("09:00"));
    }

    void DigitsTapNothing() {
        CTimeEdit edit(Region(false), Picking(), 5);
        edit.SetTime(Time(9, 0));
        edit.show();
        CPickPopup* popup = Popup(edit);
        QTest::keyClick(Grid(*popup, "hourGrid"), Qt::Key_3);
        QCOMPARE(popup->windowTitle(), QStringLiteral("Start: 09:00 AM"));
    }

    void TimeControlTakesTheLightOff() {
        CTimeEdit edit(Region(true), Picking(), 5);
        edit.SetTime(Time(9, 0));
        edit.show();
        CPickPopup* popup = Popup(edit);
        auto* control = popup->findChild<QTimeEdit*>(QStringLiteral("timeControl"));
        control->setFocus();
        QTest::keyClick(control, Qt::Key_Up);
        QCOMPARE(popup->windowTitle(), QStringLiteral("Start: 10:00"));
        QCOMPARE(Lit(*popup, "hourGrid"), QString());
        QCOMPARE(Lit(*popup, "minuteGrid"), QString());
        QTest::keyClick(control, Qt::Key_Return);
        QCOMPARE(Shown(edit), QStringLiteral("10:00"));
        QVERIFY(!popup->isVisible());
    }

    void PickByButton_data() {
        QTest::addColumn<QString>("button");
        QTest::addColumn<QString>("expected");
        QTest::newRow("now") << "nowButton"
                             << "14:07";
        QTest::newRow("clear") << "clearButton"
                               << "none";
        QTest::newRow("take") << "takeButton"
                              << "09:00";
    }
    void PickByButton() {
        QFETCH(QString, button);
        for (const bool byKey : {false, true}) {
            CTimeEdit edit(Region(false), Picking(), 5);
            edit.SetTime(Time(9, 0));
            edit.show();
            CPickPopup* popup = Popup(edit);
            auto* widget = popup->findChild<QPushButton*>(button);
            if (byKey) {
                widget->setFocus();
                QTest::keyClick(widget, Qt::Key_Return);
            } else {
                QTest::mouseClick(widget, Qt::LeftButton);
            }
            QTEST(Shown(edit), "expected");
            QVERIFY(edit.IsTouched());
            QVERIFY(!popup->isVisible());
        }
    }

    void PopupCaptions_data() {
        QTest::addColumn<bool>("is24Hour");
        QTest::addColumn<QString>("firstHour");
        QTest::addColumn<QString>("lastHour");
        QTest::newRow("12 hours") << false << "12"
                                  << "11";
        QTest::newRow("24 hours") << true << "00"
                                  << "23";
    }
    void PopupCaptions() {
        QFETCH(bool, is24Hour);
        CTimeEdit edit(Region(is24Hour), Picking(), 15);
        edit.show();
        CPickPopup* popup = Popup(edit);
        QTableWidget* hours = Grid(*popup, "hourGrid");
        QTEST(hours->item(0, 0)->text(), "firstHour");
        QTEST(hours->item(hours->rowCount() - 1, 5)->text(), "lastHour");
        // The pad has fives whatever the rounding.
        QCOMPARE(Grid(*popup, "minuteGrid")->item(0, 1)->text(), QStringLiteral(":05"));
        QCOMPARE(Grid(*popup, "halfGrid") == nullptr, is24Hour);
    }

    void Lock_data() {
        QTest::addColumn<int>("key");
        QTest::addColumn<bool>("isEntry");
        QTest::newRow("a digit") << int(Qt::Key_9) << true;
        QTest::newRow("Backspace") << int(Qt::Key_Backspace) << true;
        QTest::newRow("a step") << int(Qt::Key_Up) << true;
        QTest::newRow("the popup's key") << int(Qt::Key_F4) << true;
        QTest::newRow("moving the cursor") << int(Qt::Key_Left) << false;
        QTest::newRow("Tab") << int(Qt::Key_Tab) << false;
    }
    void Lock() {
        QFETCH(int, key);
        CTimeEdit edit(Region(false), Picking(), 5);
        edit.SetTime(Time(9, 0));
        edit.Lock(QStringLiteral("a reason"));
        QSignalSpy tried(&edit, &CPickEdit::EntryTried);
        QTest::keyClick(&edit, Qt::Key(key));
        QFETCH(bool, isEntry);
        QCOMPARE(tried.count(), isEntry ? 1 : 0);
        QCOMPARE(Shown(edit), QStringLiteral("09:00"));
        QCOMPARE(edit.toolTip(), QStringLiteral("a reason"));
        QVERIFY(!edit.findChild<CPickPopup*>());
        edit.Lock({});
        QVERIFY(edit.toolTip() != QStringLiteral("a reason"));
        QVERIFY(!edit.IsLocked());
    }

    void SettledWhenTheFocusMovesOn() {
        QWidget window;
        auto* edit = new CTimeEdit(Region(false), Picking(), 5, &window);
        auto* next = new QLineEdit(&window);
        window.show();
        QVERIFY(QTest::qWaitForWindowActive(&window));
        edit->setFocus();
        QSignalSpy settled(edit, &CPickEdit::Settled);
        next->setFocus();
        QCOMPARE(settled.count(), 0);
        edit->setFocus();
        QTest::keyClicks(edit, QStringLiteral("9"));
        next->setFocus();
        QCOMPARE(settled.count(), 1);
    }
};

TEST_CLASS(TestCTimeEdit);
#include "TestCTimeEdit.moc"
