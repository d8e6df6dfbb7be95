#include "shell/controls/CSpanEdit.h"

#include "lang/LoadText.h"
#include "records/CTRecord.h"
#include "shell/controls/CPickPopup.h"
#include "shell/look/FormRows.h"
#include "support/TestProgram.h"

#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QtTest>

/// A field for a length of time under keys and clicks.
class TestCSpanEdit : public QObject {
    Q_OBJECT

 private:
    CTRecord m_entry;

    static QString Shown(const CSpanEdit& edit) {
        if (!edit.GetSpan()) return QStringLiteral("none");
        return QStringLiteral("%1h %2m").arg(edit.GetSpan()->hours).arg(edit.GetSpan()->minutes);
    }

    static CPickPopup* Popup(CSpanEdit& edit, Qt::Key key = Qt::Key_Down,
                             Qt::KeyboardModifiers modifiers = Qt::AltModifier) {
        QTest::keyClick(&edit, key, modifiers);
        return edit.findChild<CPickPopup*>();
    }
    template <class Widget>
    static Widget* Find(const CPickPopup& popup, const char* name) {
        return popup.findChild<Widget*>(QString::fromLatin1(name));
    }

 private Q_SLOTS:
    void initTestCase() { QVERIFY(LoadLanguageLibrary(QStringLiteral(TEST_BIN_DIR))); }

    void SetSpan_data() {
        QTest::addColumn<int>("hours");
        QTest::addColumn<int>("minutes");
        QTest::addColumn<QString>("expected");
        QTest::newRow("minutes only") << 0 << 5 << "0:05";
        QTest::newRow("an accumulated length over a day") << 30 << 0 << "30:00";
    }
    void SetSpan() {
        QFETCH(int, hours);
        QFETCH(int, minutes);
        CSpanEdit edit({}, m_entry, 5);
        edit.SetSpan(EnteredSpan{hours, minutes});
        QTEST(edit.text(), "expected");
        QVERIFY(!edit.IsTouched());
        edit.SetSpan({});
        QCOMPARE(edit.text(), QString());
    }

    void Type_data() {
        QTest::addColumn<QString>("keys");
        QTest::addColumn<QString>("expected");
        QTest::addColumn<bool>("isReadable");
        QTest::newRow("hours and minutes") << "1:30"
                                           << "1h 30m" << true;
        QTest::newRow("minutes") << "90m"
                                 << "1h 30m" << true;
        QTest::newRow("decimal hours") << "1.5"
                                       << "1h 30m" << true;
        QTest::newRow("25 hours keep what was there on the way") << "25"
                                                                 << "2h 0m" << false;
        QTest::newRow("a word") << "long"
                                << "8h 0m" << false;
    }
    void Type() {
        QFETCH(QString, keys);
        CSpanEdit edit({}, m_entry, 5);
        edit.SetSpan(EnteredSpan{8, 0});
        edit.selectAll();
        QTest::keyClicks(&edit, keys);
        QTEST(Shown(edit), "expected");
        QTEST(edit.IsReadable(), "isReadable");
        QCOMPARE(IsMarked(edit), !edit.IsReadable());
    }

    void Clear() {
        CSpanEdit edit({}, m_entry, 5);
        edit.SetSpan(EnteredSpan{8, 0});
        edit.selectAll();
        QTest::keyClick(&edit, Qt::Key_Backspace);
        QCOMPARE(Shown(edit), QStringLiteral("none"));
    }

    void Step_data() {
        QTest::addColumn<int>("step");
        QTest::addColumn<int>("hours");
        QTest::addColumn<int>("minutes");
        QTest::addColumn<int>("key");
        QTest::addColumn<QString>("expected");
        QTest::newRow("up") << 5 << 1 << 55 << int(Qt::Key_Up) << "2h 0m";
        QTest::newRow("up from between two steps") << 15 << 1 << 7 << int(Qt::Key_Up) << "1h 15m";
        QTest::newRow("down from between two steps") << 15 << 1 << 7 << int(Qt::Key_Down) << "1h 0m";
        QTest::newRow("down stops at nothing") << 5 << 0 << 0 << int(Qt::Key_Down) << "0h 0m";
        QTest::newRow("up stops below a day") << 5 << 23 << 55 << int(Qt::Key_Up) << "23h 59m";
        QTest::newRow("30 hours down") << 5 << 30 << 0 << int(Qt::Key_Down) << "29h 55m";
        QTest::newRow("30 hours up") << 5 << 30 << 0 << int(Qt::Key_Up) << "30h 5m";
        QTest::newRow("page up is an hour") << 5 << 1 << 7 << int(Qt::Key_PageUp) << "2h 7m";
    }
    void Step() {
        QFETCH(int, step);
        QFETCH(int, hours);
        QFETCH(int, minutes);
        QFETCH(int, key);
        CSpanEdit edit({}, m_entry, step);
        edit.SetSpan(EnteredSpan{hours, minutes});
        QTest::keyClick(&edit, Qt::Key(key));
        QTEST(Shown(edit), "expected");
    }

    void PopupOffersTheSteps_data() {
        QTest::addColumn<int>("step");
        QTest::addColumn<QString>("expected");
        QTest::newRow("a quarter") << 15 << "0 min|15 min|30 min|45 min";
        QTest::newRow("twenty minutes") << 20 << "0 min|20 min|40 min";
    }
    void PopupOffersTheSteps() {
        QFETCH(int, step);
        CSpanEdit edit({}, m_entry, step);
        edit.show();
        CPickPopup* popup = Popup(edit, Qt::Key_F4, {});
        QStringList offered;
        const auto* minutes = Find<QListWidget>(*popup, "minuteList");
        for (int line = 0; line < minutes->count(); ++line) offered << minutes->item(line)->text();
        QTEST(offered.join(QLatin1Char('|')), "expected");
        QCOMPARE(Find<QListWidget>(*popup, "hourList")->count(), 24);
        QVERIFY(!Find<QPushButton>(*popup, "nowButton"));
    }

    void ChooseFromTheLists() {
        CSpanEdit edit({}, m_entry, 15);
        edit.show();
        CPickPopup* popup = Popup(edit);
        auto* hours = Find<QListWidget>(*popup, "hourList");
        auto* minutes = Find<QListWidget>(*popup, "minuteList");
        QTest::keyClick(hours, Qt::Key_Down);
        QTest::keyClick(minutes, Qt::Key_Down);
        QTest::keyClick(minutes, Qt::Key_Down);
        QCOMPARE(Find<QLineEdit>(*popup, "hourField")->text(), QStringLiteral("1"));
        QCOMPARE(Find<QLineEdit>(*popup, "minuteField")->text(), QStringLiteral("30"));
        QTest::keyClick(minutes, Qt::Key_Return);
        QCOMPARE(Shown(edit), QStringLiteral("1h 30m"));
        QCOMPARE(edit.text(), QStringLiteral("1:30"));
        QVERIFY(!popup->isVisible());
    }

    void ClickOnTheChosenLineWritesItsNumber() {
        CSpanEdit edit({}, m_entry, 15);
        edit.SetSpan(EnteredSpan{7, 45});
        edit.show();
        CPickPopup* popup = Popup(edit);
        auto* hours = Find<QListWidget>(*popup, "hourList");
        QTest::mouseClick(hours->viewport(), Qt::LeftButton, {},
                          hours->visualItemRect(hours->item(0)).center());
        QCOMPARE(Find<QLineEdit>(*popup, "hourField")->text(), QStringLiteral("0"));
        QTest::mouseClick(Find<QPushButton>(*popup, "takeButton"), Qt::LeftButton);
        QCOMPARE(Shown(edit), QStringLiteral("0h 45m"));
    }

    void TypeIntoThePopup_data() {
        QTest::addColumn<QString>("hours");
        QTest::addColumn<QString>("minutes");
        QTest::addColumn<int>("key");
        QTest::addColumn<QString>("expected");
        QTest::newRow("a length") << "3"
                                  << "20" << int(Qt::Key_Return) << "3h 20m";
        QTest::newRow("25 hours give what the lists say") << "25"
                                                          << "20" << int(Qt::Key_Return) << "0h 0m";
        QTest::newRow("called off") << "3"
                                    << "20" << int(Qt::Key_Escape) << "7h 45m";
    }
    void TypeIntoThePopup() {
        QFETCH(QString, hours);
        QFETCH(QString, minutes);
        QFETCH(int, key);
        CSpanEdit edit({}, m_entry, 15);
        edit.SetSpan(EnteredSpan{7, 45});
        edit.show();
        CPickPopup* popup = Popup(edit);
        auto* hourField = Find<QLineEdit>(*popup, "hourField");
        auto* minuteField = Find<QLineEdit>(*popup, "minuteField");
        QCOMPARE(hourField->text(), QStringLiteral("7"));
        QCOMPARE(hourField->selectedText(), QStringLiteral("7"));
        QTest::keyClicks(hourField, hours);
        minuteField->selectAll();
        QTest::keyClicks(minuteField, minutes);
        QTest::keyClick(minuteField, Qt::Key(key));
        QTEST(Shown(edit), "expected");
        QVERIFY(!popup->isVisible());
    }

    void AnUntouchedPopupEntersNothing_data() {
        QTest::addColumn<int>("hours");
        QTest::newRow("a length") << 7;
        QTest::newRow("more than a day") << 30;
        QTest::newRow("none") << -1;
    }
    void AnUntouchedPopupEntersNothing() {
        QFETCH(int, hours);
        CSpanEdit edit({}, m_entry, 15);
        if (hours >= 0) edit.SetSpan(EnteredSpan{hours, 45});
        const QString before = Shown(edit);
        edit.show();
        CPickPopup* popup = Popup(edit);
        QTest::mouseClick(Find<QPushButton>(*popup, "takeButton"), Qt::LeftButton);
        QCOMPARE(Shown(edit), before);
        QVERIFY(!edit.IsTouched());
    }

    void ClearInThePopup() {
        CSpanEdit edit({}, m_entry, 15);
        edit.SetSpan(EnteredSpan{7, 45});
        edit.show();
        CPickPopup* popup = Popup(edit);
        QTest::mouseClick(Find<QPushButton>(*popup, "clearButton"), Qt::LeftButton);
        QCOMPARE(Shown(edit), QStringLiteral("none"));
        QVERIFY(edit.IsTouched());
    }
};

TEST_CLASS(TestCSpanEdit);
#include "TestCSpanEdit.moc"
