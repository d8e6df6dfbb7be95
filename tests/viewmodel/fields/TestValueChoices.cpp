#include "viewmodel/fields/ValueChoices.h"

#include "lang/LoadText.h"
#include "support/TestProgram.h"

#include <QtTest>

Q_DECLARE_METATYPE(std::span<const ValueChoice>)

/// The fixed lists of values, between number and words.
class TestValueChoices : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void initTestCase() { QVERIFY(LoadLanguageLibrary(QStringLiteral(TEST_BIN_DIR))); }

    void Rows_data() {
        using namespace ValueChoices;
        QTest::addColumn<std::span<const ValueChoice>>("choices");
        QTest::addColumn<QString>("expected");
        const auto row = [](const char* name, std::span<const ValueChoice> choices, const char* expected) {
            QTest::newRow(name) << choices << QString::fromLatin1(expected);
        };
        row("days of the week", kDaysOfWeek,
            "0 Sunday|1 Monday|2 Tuesday|3 Wednesday|4 Thursday|5 Friday|6 Saturday");
        row("precisions", kPrecisions,
            "0 No decimal places|1 1 decimal place|2 2 decimal places|3 3 decimal places|"
            "4 4 decimal places|5 5 decimal places|6 6 decimal places");
        row("rounding", kRoundTypes, "0 None|16 Expansion|32 Nearest");
        row("lengths of time", kSpanFormats, "0 Decimal|1 HH:MM");
        row("timers", kTimerActions, "0 Continue|1 Pause|2 Stop");
        row("years", kYearFormats, "0 Full year|1 Short year|2 No year");
        row("week numbers", kWeekNumberTypes,
            "0 ISO-8601|1 Simple (2nd week starts on the 8th)|2 Microsoft 1 (2nd week starts on the first "
            "Sunday)|3 Microsoft 2 (2nd week starts on the first Monday)");
        row("pens", kPenStyles, "0 Solid|1 Dashes|2 Dots|3 Dash and dot|4 Dash and two dots");
        row("after an export", kPostProcessings, "0 Ask me|1 Do nothing|2 Delete|3 Mark as \"exported\"");
    }
    void Rows() {
        QFETCH(std::span<const ValueChoice>, choices);
        QStringList rows;
        for (const ValueChoice& choice : choices)
            rows << QStringLiteral("%1 %2").arg(choice.value).arg(LoadText(choice.text));
        QTEST(rows.join(QLatin1Char('|')), "expected");
    }

    void TextOfANumber() {
        QCOMPARE(TextOf(ValueChoices::kRoundTypes, 16), QStringLiteral("Expansion"));
        QCOMPARE(TextOf(ValueChoices::kRoundTypes, 1), QString());
        QCOMPARE(TextOf(ValueChoices::kDaysOfWeek, 7), QString());
        QCOMPARE(TextOf(ValueChoices::kDaysOfWeek, -1), QString());
    }

    void NumberOfAText() {
        QCOMPARE(NumberOf(ValueChoices::kRoundTypes, QStringLiteral("Nearest")), 32);
        QCOMPARE(NumberOf(ValueChoices::kDaysOfWeek, QStringLiteral("Saturday")), 6);
        QVERIFY(!NumberOf(ValueChoices::kDaysOfWeek, QStringLiteral("Someday")));
        QVERIFY(!NumberOf(ValueChoices::kDaysOfWeek, QString()));
    }
};

TEST_CLASS(TestValueChoices);
#include "TestValueChoices.moc"
