#include "viewmodel/fields/SpanPad.h"

#include "lang/LoadText.h"
#include "records/CTRecord.h"
#include "support/TestProgram.h"

#include <QtTest>

/// The pad for a length of time: its lists, its fields and which of them count.
class TestSpanPad : public QObject {
    Q_OBJECT

 private:
    CTRecord m_entry;

    static QString Shown(const SpanPad& pad) {
        const auto span = pad.Span();
        return span ? QStringLiteral("%1:%2").arg(span->hours).arg(span->minutes, 2, 10, QLatin1Char('0'))
                    : QStringLiteral("none");
    }

 private Q_SLOTS:
    void initTestCase() { QVERIFY(LoadLanguageLibrary(QStringLiteral(TEST_BIN_DIR))); }

    void Step_data() {
        QTest::addColumn<int>("type");
        QTest::addColumn<int>("minutes");
        QTest::addColumn<QString>("expected");
        QTest::newRow("expansion to a quarter") << 16 << 15 << "0 15 30 45";
        QTest::newRow("to the nearest twenty") << 32 << 20 << "0 20 40";
        QTest::newRow("no rounding: fives, whatever number is set")
            << 0 << 15 << "0 5 10 15 20 25 30 35 40 45 50 55";
        QTest::newRow("rounding without minutes") << 16 << 0 << "0 5 10 15 20 25 30 35 40 45 50 55";
        QTest::newRow("seven") << 16 << 7 << "0 7 14 21 28 35 42 49 56";
        QTest::newRow("an hour and more") << 16 << 90 << "0";
        QStringList each;
        for (int minute = 0; minute < 60; ++minute) each << QString::number(minute);
        QTest::newRow("to one minute") << 16 << 1 << each.join(QLatin1Char(' '));
    }
    void Step() {
        QFETCH(int, type);
        QFETCH(int, minutes);
        const SpanPad pad(m_entry, PickStep(type, minutes));
        QStringList offered = pad.MinuteTexts();
        for (QString& line : offered) line.remove(QStringLiteral(" min"));
        QTEST(offered.join(QLatin1Char(' ')), "expected");
    }

    void Lists() {
        SpanPad pad(m_entry, 5);
        pad.Open(7, 45);
        QCOMPARE(pad.HourTexts().size(), 24);
        QCOMPARE(pad.HourTexts().mid(0, 3).join(QLatin1Char('|')), QStringLiteral("0 hours|1 hour|2 hours"));
        QCOMPARE(pad.HourTexts().last(), QStringLiteral("23 hours"));
        QCOMPARE(pad.ChosenHour(), 0);
        QCOMPARE(pad.ChosenMinute(), 0);
        QCOMPARE(pad.TypedHours(), QStringLiteral("7"));
        QCOMPARE(pad.TypedMinutes(), QStringLiteral("45"));
    }

    void FieldsAreEmptyWithoutALength() {
        SpanPad pad(m_entry, 5);
        pad.Open(-1, -1);
        QCOMPARE(pad.TypedHours(), QString());
        QCOMPARE(pad.TypedMinutes(), QString());
        QVERIFY(!pad.Span());
    }

    void ChoiceGoesIntoTheField() {
        SpanPad pad(m_entry, 15);
        pad.Open(7, 45);
        pad.ChooseHour(2);
        QCOMPARE(pad.TypedHours(), QStringLiteral("2"));
        QCOMPARE(pad.TypedMinutes(), QStringLiteral("45"));
        pad.ChooseMinute(2);
        QCOMPARE(pad.TypedMinutes(), QStringLiteral("30"));
        QCOMPARE(pad.Press(1), PadState::Accepted);
        QCOMPARE(Shown(pad), QStringLiteral("2:30"));
    }

    void Accept_data() {
        QTest::addColumn<QString>("hours");
        QTest::addColumn<QString>("minutes");
        QTest::addColumn<int>("hourLine");
        QTest::addColumn<int>("minuteLine");
        QTest::addColumn<QString>("expected");
        // The lists are chosen from first, what is typed comes after.
        QTest::newRow("typed") << "1"
                               << "30" << 4 << 9 << "1:30";
        QTest::newRow("typed with blanks and more behind") << " 1"
                                                           << "30x" << 4 << 9 << "1:30";
        QTest::newRow("the most") << "23"
                                  << "59" << 4 << 9 << "23:59";
        QTest::newRow("nothing is a length") << "0"
                                             << "0" << 4 << 9 << "0:00";
        QTest::newRow("25 hours fall back on the lists") << "25"
                                                         << "30" << 4 << 9 << "4:45";
        QTest::newRow("24 hours do so too") << "24"
                                            << "00" << 4 << 9 << "4:45";
        QTest::newRow("60 minutes") << "1"
                                    << "60" << 4 << 9 << "4:45";
        QTest::newRow("a word") << "one"
                                << "30" << 4 << 9 << "4:45";
        QTest::newRow("nothing typed") << ""
                                       << "" << 4 << 9 << "4:45";
        QTest::newRow("below nothing") << "-1"
                                       << "30" << 4 << 9 << "4:45";
        QTest::newRow("fall back with no hour chosen") << "25"
                                                       << "30" << -1 << 9 << "none";
        QTest::newRow("fall back with no minute chosen") << "1"
                                                         << "x" << 4 << -1 << "none";
        QTest::newRow("typed with nothing chosen") << "1"
                                                   << "30" << -1 << -1 << "1:30";
    }
    void Accept() {
        QFETCH(QString, hours);
        QFETCH(QString, minutes);
        QFETCH(int, hourLine);
        QFETCH(int, minuteLine);
        SpanPad pad(m_entry, 5);
        pad.Open(0, 0);
        pad.ChooseHour(hourLine);
        pad.ChooseMinute(minuteLine);
        pad.TypeHours(hours);
        pad.TypeMinutes(minutes);
        QCOMPARE(pad.Press(1), PadState::Accepted);
        QTEST(Shown(pad), "expected");
    }

    void AcceptUntouched_data() {
        QTest::addColumn<int>("hours");
        QTest::addColumn<int>("minutes");
        QTest::addColumn<QString>("expected");
        QTest::newRow("a length stays") << 7 << 45 << "7:45";
        QTest::newRow("so do 30 hours, which can't be typed") << 30 << 15 << "30:15";
        QTest::newRow("no length stays none") << -1 << -1 << "none";
    }
    void AcceptUntouched() {
        QFETCH(int, hours);
        QFETCH(int, minutes);
        SpanPad pad(m_entry, 5);
        pad.Open(hours, minutes);
        QVERIFY(!pad.IsTouched());
        pad.Press(1);
        QTEST(Shown(pad), "expected");
    }

    void APartThatNobodyTouchedStays_data() {
        QTest::addColumn<int>("hours");
        QTest::addColumn<int>("minutes");
        QTest::addColumn<QString>("typedHours");  // a dash: not touched
        QTest::addColumn<QString>("typedMinutes");
        QTest::addColumn<QString>("expected");
        QTest::newRow("only minutes, without a length before") << -1 << -1 << "-"
                                                               << "30"
                                                               << "0:30";
        QTest::newRow("only hours, without a length before") << -1 << -1 << "2"
                                                             << "-"
                                                             << "2:00";
        QTest::newRow("only minutes over 30 hours") << 30 << 0 << "-"
                                                    << "20"
                                                    << "30:20";
        QTest::newRow("only hours") << 7 << 45 << "3"
                                    << "-"
                                    << "3:45";
        QTest::newRow("minutes that are none") << 7 << 45 << "-"
                                               << "60"
                                               << "0:00";
    }
    void APartThatNobodyTouchedStays() {
        QFETCH(int, hours);
        QFETCH(int, minutes);
        QFETCH(QString, typedHours);
        QFETCH(QString, typedMinutes);
        SpanPad pad(m_entry, 5);
        pad.Open(hours, minutes);
        if (typedHours != QStringLiteral("-")) pad.TypeHours(typedHours);
        if (typedMinutes != QStringLiteral("-")) pad.TypeMinutes(typedMinutes);
        QVERIFY(pad.IsTouched());
        pad.Press(1);
        QTEST(Shown(pad), "expected");
    }

    void Clear() {
        SpanPad pad(m_entry, 5);
        pad.Open(7, 45);
        pad.Press(1);
        QVERIFY(m_entry.spans.effective.IsSet());
        QCOMPARE(pad.Press(1008), PadState::Accepted);
        QCOMPARE(Shown(pad), QStringLiteral("none"));
        QVERIFY(!m_entry.spans.effective.IsSet());
    }

    void CancelAndOtherNumbers() {
        SpanPad pad(m_entry, 5);
        pad.Open(7, 45);
        QCOMPARE(pad.Press(6), PadState::Open);
        QCOMPARE(pad.Press(2), PadState::Cancelled);
        QCOMPARE(Shown(pad), QStringLiteral("none"));
    }

    void OpenForgetsTheLastLength() {
        SpanPad pad(m_entry, 5);
        pad.Open(7, 45);
        pad.Press(1);
        pad.Open(1, 0);
        QVERIFY(!pad.Span());
    }
};

TEST_CLASS(TestSpanPad);
#include "TestSpanPad.moc"
