#include "shell/controls/CDateEdit.h"

#include "lang/LoadText.h"
#include "shell/controls/CCalendarPopup.h"
#include "shell/look/FormRows.h"
#include "support/CTestClock.h"
#include "support/TestProgram.h"

#include <QCalendarWidget>
#include <QPushButton>
#include <QtTest>

/// A date field under keys and clicks.
class TestCDateEdit : public QObject {
    Q_OBJECT

 private:
    /// A Thursday.
    CTestClock m_clock{2026, 11, 19};

    static QString Shown(const CDateEdit& edit) {
        if (!edit.GetDate()) return QStringLiteral("none");
        return QStringLiteral("%1-%2-%3")
            .arg(edit.GetDate()->year)
            .arg(edit.GetDate()->month)
            .arg(edit.GetDate()->day);
    }
    static DateTimeVal Day(int month, int day, int year) {
        DateTimeVal value;
        Q_ASSERT(value.SetDate(month, day, year));
        return value;
    }

 private Q_SLOTS:
    void initTestCase() { QVERIFY(LoadLanguageLibrary(QStringLiteral(TEST_BIN_DIR))); }

    void SetDate_data() {
        QTest::addColumn<int>("order");
        QTest::addColumn<QString>("separator");
        QTest::addColumn<QString>("expected");
        QTest::newRow("month first") << 0 << "/"
                                     << "03/04/2026";
        QTest::newRow("day first") << 1 << "."
                                   << "04.03.2026";
        QTest::newRow("year first") << 2 << "-"
                                    << "2026-03-04";
    }
    void SetDate() {
        QFETCH(int, order);
        QFETCH(QString, separator);
        CRegionalInfo region;
        region.dateOrder = order;
        region.dateSeparator = separator.front().unicode();
        CDateEdit edit(region, m_clock, 0);
        edit.SetDate(Day(3, 4, 2026));
        QTEST(edit.text(), "expected");
        QVERIFY(!edit.IsTouched());
    }

    void Type_data() {
        QTest::addColumn<QString>("keys");
        QTest::addColumn<QString>("expected");
        QTest::addColumn<bool>("isReadable");
        QTest::newRow("a date") << "12/24/2026"
                                << "2026-12-24" << true;
        QTest::newRow("a day of this month") << "7"
                                             << "2026-11-7" << true;
        QTest::newRow("today") << "t"
                               << "2026-11-19" << true;
        QTest::newRow("31 February") << "2/31/2026"
                                     << "2026-2-3" << false;
    }
    void Type() {
        QFETCH(QString, keys);
        CDateEdit edit({}, m_clock, 0);
        edit.SetDate(Day(3, 4, 2026));
        edit.selectAll();
        QTest::keyClicks(&edit, keys);
        QTEST(edit.IsReadable(), "isReadable");
        QCOMPARE(IsMarked(edit), !edit.IsReadable());
        if (edit.IsReadable()) QTEST(Shown(edit), "expected");
        QVERIFY(edit.IsReadable() || edit.WhyUnreadable().contains(keys));
    }

    void Step_data() {
        QTest::addColumn<int>("key");
        QTest::addColumn<QString>("expected");
        QTest::newRow("a day on, past the end of the year") << int(Qt::Key_Up) << "2027-1-1";
        QTest::newRow("a day back") << int(Qt::Key_Down) << "2026-12-30";
        QTest::newRow("a month on, past the end of the year") << int(Qt::Key_PageUp) << "2027-1-31";
        QTest::newRow("a month back, to its last day") << int(Qt::Key_PageDown) << "2026-11-30";
    }
    void Step() {
        QFETCH(int, key);
        CDateEdit edit({}, m_clock, 0);
        edit.SetDate(Day(12, 31, 2026));
        QTest::keyClick(&edit, Qt::Key(key));
        QTEST(Shown(edit), "expected");
    }

    void StepIntoAnEmptyFieldShowsToday() {
        CDateEdit edit({}, m_clock, 0);
        QTest::keyClick(&edit, Qt::Key_Up);
        QCOMPARE(Shown(edit), QStringLiteral("2026-11-19"));
    }

    void PickFromTheCalendar() {
        CDateEdit edit({}, m_clock, 1);
        edit.SetDate(Day(11, 5, 2026));
        edit.show();
        QTest::keyClick(&edit, Qt::Key_Down, Qt::AltModifier);
        auto* popup = edit.findChild<CCalendarPopup*>();
        QVERIFY(popup);
        auto* calendar = popup->findChild<QCalendarWidget*>(QStringLiteral("calendar"));
        QCOMPARE(calendar->selectedDate(), QDate(2026, 11, 5));
        QCOMPARE(calendar->firstDayOfWeek(), Qt::Monday);
        auto* grid = calendar->findChild<QWidget*>(QStringLiteral("qt_calendar_calendarview"));
        QTest::keyClick(grid, Qt::Key_Right);
        QTest::keyClick(grid, Qt::Key_Return);
        QCOMPARE(Shown(edit), QStringLiteral("2026-11-6"));
        QVERIFY(!popup->isVisible());
    }

    void PickToday() {
        CDateEdit edit({}, m_clock, 0);
        edit.show();
        edit.OpenPopup();
        auto* today = edit.findChild<QPushButton*>(QStringLiteral("todayButton"));
        QTest::mouseClick(today, Qt::LeftButton);
        QCOMPARE(Shown(edit), QStringLiteral("2026-11-19"));
    }

    void EscapeLeavesTheDate() {
        CDateEdit edit({}, m_clock, 0);
        edit.SetDate(Day(11, 5, 2026));
        edit.show();
        edit.OpenPopup();
        auto* popup = edit.findChild<CCalendarPopup*>();
        QTest::keyClick(popup, Qt::Key_Escape);
        QVERIFY(!popup->isVisible());
        QCOMPARE(Shown(edit), QStringLiteral("2026-11-5"));
        QVERIFY(!edit.IsTouched());
    }
};

TEST_CLASS(TestCDateEdit);
#include "TestCDateEdit.moc"
