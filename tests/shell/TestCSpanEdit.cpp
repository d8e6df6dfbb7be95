#include "shell/CSpanEdit.h"

#include "lang/LoadText.h"
#include "shell/CPickPopup.h"
#include "shell/FormRows.h"

#include <QPushButton>
#include <QTableWidget>
#include <QtTest>

/// A field for a length of time under keys and clicks.
class TestCSpanEdit : public QObject {
    Q_OBJECT

 private:
    static QString Shown(const CSpanEdit& edit) {
        if (!edit.GetSpan()) return QStringLiteral("none");
        return QStringLiteral("%1h %2m").arg(edit.GetSpan()->hours).arg(edit.GetSpan()->minutes);
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
        CSpanEdit edit({}, 5);
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
        CSpanEdit edit({}, 5);
        edit.SetSpan(EnteredSpan{8, 0});
        edit.selectAll();
        QTest::keyClicks(&edit, keys);
        QTEST(Shown(edit), "expected");
        QTEST(edit.IsReadable(), "isReadable");
        QCOMPARE(IsMarked(edit), !edit.IsReadable());
    }

    void Clear() {
        CSpanEdit edit({}, 5);
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
        QTest::newRow("page up is an hour") << 5 << 1 << 7 << int(Qt::Key_PageUp) << "2h 7m";
    }
    void Step() {
        QFETCH(int, step);
        QFETCH(int, hours);
        QFETCH(int, minutes);
        QFETCH(int, key);
        CSpanEdit edit({}, step);
        edit.SetSpan(EnteredSpan{hours, minutes});
        QTest::keyClick(&edit, Qt::Key(key));
        QTEST(Shown(edit), "expected");
    }

    void PopupOffersTheSteps_data() {
        QTest::addColumn<int>("step");
        QTest::addColumn<QString>("expected");
        QTest::newRow("a quarter") << 15 << ":00 :15 :30 :45";
        QTest::newRow("twenty minutes") << 20 << ":00 :20 :40";
    }
    void PopupOffersTheSteps() {
        QFETCH(int, step);
        CSpanEdit edit({}, step);
        edit.show();
        QTest::keyClick(&edit, Qt::Key_F4);
        auto* popup = edit.findChild<CPickPopup*>();
        QVERIFY(popup);
        auto* minutes = popup->findChild<QTableWidget*>(QStringLiteral("minuteGrid"));
        QStringList offered;
        for (int i = 0; i < minutes->columnCount(); ++i)
            if (minutes->item(0, i)->flags() & Qt::ItemIsEnabled) offered << minutes->item(0, i)->text();
        QTEST(offered.join(QLatin1Char(' ')), "expected");
        QVERIFY(!popup->findChild<QPushButton*>(QStringLiteral("nowButton")));
    }

    void PickHoursAndMinutes() {
        CSpanEdit edit({}, 15);
        edit.show();
        QTest::keyClick(&edit, Qt::Key_Down, Qt::AltModifier);
        auto* popup = edit.findChild<CPickPopup*>();
        auto* hours = popup->findChild<QTableWidget*>(QStringLiteral("hourGrid"));
        auto* minutes = popup->findChild<QTableWidget*>(QStringLiteral("minuteGrid"));
        QTest::keyClick(hours, Qt::Key_Right);
        QTest::keyClick(minutes, Qt::Key_Right);
        QTest::keyClick(minutes, Qt::Key_Right);
        QTest::keyClick(minutes, Qt::Key_Return);
        QCOMPARE(Shown(edit), QStringLiteral("1h 30m"));
        QCOMPARE(edit.text(), QStringLiteral("1:30"));
    }
};

QTEST_MAIN(TestCSpanEdit)
#include "TestCSpanEdit.moc"
