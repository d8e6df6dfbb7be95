#include "viewmodel/report/ChartModel.h"

#include "lang/LoadText.h"
#include "platform/host/CRegionalInfo.h"
#include "support/TestProgram.h"

#include <QTest>
#include <cmath>
#include <limits>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int kMonday = 1;

using Groups = std::vector<ChartGroup>;

ChartSource ByClient(const Groups& groups) {
    return {.sumCaption = u"Effective"_s,
            .keyCaptions = {u"Client"_s},
            .dateKey = std::nullopt,
            .places = 2,
            .groups = groups};
}

ChartSource ByDate(const Groups& groups) {
    return {.sumCaption = u"Effective"_s,
            .keyCaptions = {u"Date"_s},
            .dateKey = 0,
            .places = 2,
            .groups = groups};
}

ChartSource ByDateAndClient(const Groups& groups) {
    ChartSource source = ByDate(groups);
    source.keyCaptions = {u"Client"_s, u"Date"_s};
    source.dateKey = 1;
    return source;
}

/// So many groups "G1", "G2" … with the sums 1, 2, …
Groups Counted(int count) {
    Groups groups;
    for (int number = 1; number <= count; ++number)
        groups.push_back({{u'G' + QString::number(number)}, static_cast<double>(number)});
    return groups;
}

ChartModel Make(const ChartSource& source, const CRegionalInfo& region = {}) {
    return MakeChart(source, {.region = region, .firstDayOfWeek = kMonday});
}

/// "A 1.00, B 2.00" of a series.
QString Words(const ChartModel& model, std::size_t series = 0) {
    QStringList words;
    for (qsizetype label = 0; label < model.labels.size(); ++label)
        words.append(model.labels[label] + u' ' +
                     model.series.at(series).values.at(static_cast<std::size_t>(label)).text);
    return words.join(u", ");
}

QStringList Names(const ChartModel& model) {
    QStringList names;
    for (const ChartSeries& series : model.series) names.append(series.name);
    return names;
}

}  // namespace

/// What a chart shows of the sums of a report.
class TestChartModel final : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void initTestCase() { QVERIFY(LoadLanguageLibrary(QStringLiteral(TEST_BIN_DIR))); }

    void Bars_data() {
        QTest::addColumn<Groups>("groups");
        QTest::addColumn<QString>("bars");
        QTest::newRow("in the order of the table")
            << Groups{{{u"B"_s}, 2.0}, {{u"A"_s}, 12.5}} << u"B 2.00, A 12.50"_s;
        QTest::newRow("one group") << Groups{{{u"A"_s}, 1.0}} << u"A 1.00"_s;
        QTest::newRow("a sum below 0") << Groups{{{u"A"_s}, -1.5}, {{u"B"_s}, 0.0}} << u"A -1.50, B 0.00"_s;
        QTest::newRow("a group without a text") << Groups{{{QString()}, 1.0}} << u"(empty) 1.00"_s;
        QTest::newRow("letters that differ in case make two")
            << Groups{{{u"a"_s}, 1.0}, {{u"A"_s}, 2.0}} << u"a 1.00, A 2.00"_s;
        QTest::newRow("percent signs and letters of all kinds")
            << Groups{{{u"100 % %s Ü 😀"_s}, 1.0}} << u"100 % %s Ü 😀 1.00"_s;
        QTest::newRow("nothing") << Groups() << QString();
        QTest::newRow("what is no number") << Groups{{{u"A"_s}, std::nan("")}} << u"A nan"_s;
    }
    void Bars() {
        QFETCH(Groups, groups);
        const ChartModel model = Make(ByClient(groups));
        QCOMPARE(model.form, ChartForm::Bars);
        QTEST(Words(model), "bars");
        QCOMPARE(model.IsEmpty(), groups.empty());
        QVERIFY(!model.hasOtherBar);
        QCOMPARE(model.title, u"Effective by Client"_s);
    }

    void SeveralKeysAreJoined() {
        ChartSource source = ByClient({{{u"A"_s, u"x"_s}, 1.0}, {{u"A"_s, QString()}, 2.0}});
        source.keyCaptions = {u"Client"_s, u"Project"_s};
        const ChartModel model = Make(source);
        QCOMPARE(Words(model), u"A · x 1.00, A · (empty) 2.00"_s);
        QCOMPARE(model.title, u"Effective by Client · Project"_s);
    }

    void NumbersAreWrittenAsInTheTable() {
        CRegionalInfo region;
        region.usesDotDecimal = false;
        region.decimalChar = u',';
        ChartSource source = ByClient({{{u"A"_s}, 1234.5}});
        source.places = 4;
        QCOMPARE(Words(Make(source, region)), u"A 1234,5000"_s);
        source.places = -1;
        QCOMPARE(Words(Make(source, region)), u"A 1234,5"_s);
    }

    void TwentyBarsHaveNoOther() {
        const ChartModel model = Make(ByClient(Counted(20)));
        QCOMPARE(model.labels.size(), 20);
        QVERIFY(!model.hasOtherBar);
    }

    /// Of 1 to 21 the 1 is the one that goes.
    void TheTwentyFirstIsOther() {
        const ChartModel model = Make(ByClient(Counted(21)));
        QCOMPARE(model.labels.size(), 21);
        QCOMPARE(model.labels.front(), u"G2"_s);
        QVERIFY(model.hasOtherBar);
        QCOMPARE(model.labels.back(), u"Other (1)"_s);
        QCOMPARE(model.series.front().values.back().text, u"1.00"_s);
    }

    /// 981 to 1,000 have bars; 1 to 980 together are 980 * 981 / 2.
    void AThousandGroups() {
        const ChartModel model = Make(ByClient(Counted(1000)));
        QCOMPARE(model.labels.front(), u"G981"_s);
        QCOMPARE(model.labels.at(19), u"G1000"_s);
        QCOMPARE(model.labels.back(), u"Other (980)"_s);
        QCOMPARE(model.series.front().values.back().text, u"480690.00"_s);
    }

    /// What is far below 0 is as large as what is far above it.
    void LargeBelowZeroHaveBarsToo() {
        Groups groups = Counted(20);
        groups.push_back({{u"N"_s}, -7.0});
        const ChartModel model = Make(ByClient(groups));
        QVERIFY(model.labels.contains(u"N"_s));
        QVERIFY(!model.labels.contains(u"G1"_s));
        QCOMPARE(model.Range().low, -7.0);
        QCOMPARE(model.Range().high, 20.0);
    }

    /// Of 25 groups 5 are together, at most as far from 0 as the farthest of the 20.
    void TheOthersDontDwarfTheRest_data() {
        QTest::addColumn<double>("others");
        QTest::addColumn<double>("low");
        QTest::addColumn<double>("high");
        QTest::newRow("more than the farthest") << 9.0 << 0.0 << 10.0;
        QTest::newRow("within") << 1.0 << 0.0 << 10.0;
        QTest::newRow("below 0") << -1.0 << -5.0 << 10.0;
        QTest::newRow("far below 0") << -9.0 << -10.0 << 10.0;
    }
    void TheOthersDontDwarfTheRest() {
        QFETCH(double, others);
        Groups groups = Counted(25);
        for (std::size_t group = 0; group < groups.size(); ++group)
            groups[group].sum = group < 20 ? 10.0 : others;
        const ChartModel model = Make(ByClient(groups));
        QCOMPARE(model.series.front().values.back().number, 5 * others);
        QTEST(model.Range().low, "low");
        QTEST(model.Range().high, "high");
    }

    void EqualsAreTakenInTheirOrder() {
        Groups groups = Counted(25);
        for (ChartGroup& group : groups) group.sum = 3.0;
        const ChartModel model = Make(ByClient(groups));
        QCOMPARE(model.labels.first(20).join(u' '),
                 u"G1 G2 G3 G4 G5 G6 G7 G8 G9 G10 G11 G12 G13 G14 G15 G16 G17 G18 G19 G20"_s);
    }

    void WhatCannotBeDrawnIsZero_data() {
        QTest::addColumn<double>("sum");
        QTest::newRow("no number") << std::nan("");
        QTest::newRow("without end") << std::numeric_limits<double>::infinity();
    }
    void WhatCannotBeDrawnIsZero() {
        QFETCH(double, sum);
        const ChartModel model = Make(ByClient({{{u"A"_s}, sum}}));
        QCOMPARE(model.series.front().values.front().number, 0.0);
        QCOMPARE(model.Range().high, 0.0);
    }

    void Days_data() {
        QTest::addColumn<Groups>("groups");
        QTest::addColumn<QString>("points");
        QTest::newRow("a gap counts as 0") << Groups{{{u"11/19/2026"_s}, 8.0}, {{u"11/21/2026"_s}, 2.0}}
                                           << u"11/19/2026 8.00, 11/20/2026 0.00, 11/21/2026 2.00"_s;
        QTest::newRow("ascending whatever the order of the table")
            << Groups{{{u"11/20/2026"_s}, 2.0}, {{u"11/19/2026"_s}, 8.0}}
            << u"11/19/2026 8.00, 11/20/2026 2.00"_s;
        QTest::newRow("over 29 February") << Groups{{{u"02/28/2028"_s}, 1.0}, {{u"03/01/2028"_s}, 2.0}}
                                          << u"02/28/2028 1.00, 02/29/2028 0.00, 03/01/2028 2.00"_s;
        QTest::newRow("over the end of a year") << Groups{{{u"12/31/2026"_s}, 1.0}, {{u"01/01/2027"_s}, 2.0}}
                                                << u"12/31/2026 1.00, 01/01/2027 2.00"_s;
    }
    void Days() {
        QFETCH(Groups, groups);
        const ChartModel model = Make(ByDate(groups));
        QCOMPARE(model.form, ChartForm::Lines);
        QTEST(Words(model), "points");
        QCOMPARE(model.title, u"Effective per day"_s);
        QCOMPARE(Names(model), QStringList{u"Effective"_s});
        QCOMPARE(model.spans, model.labels);
    }

    /// From 1 November 2026, a Sunday: the 60th day is 30 December, the 61st the last of the year.
    void Steps_data() {
        QTest::addColumn<QString>("last");
        QTest::addColumn<QString>("title");
        QTest::addColumn<QString>("firstSpan");
        QTest::addColumn<qsizetype>("points");
        QTest::newRow("60 days") << u"12/30/2026"_s << u"Effective per day"_s << u"11/01/2026"_s
                                 << qsizetype{60};
        QTest::newRow("61 days, by the week from Monday")
            << u"12/31/2026"_s << u"Effective per week"_s << u"10/26/2026 to 11/01/2026"_s << qsizetype{10};
        QTest::newRow("1,100 days") << u"11/04/2029"_s << u"Effective per week"_s
                                    << u"10/26/2026 to 11/01/2026"_s << qsizetype{158};
        QTest::newRow("1,101 days") << u"11/05/2029"_s << u"Effective per month"_s
                                    << u"11/01/2026 to 11/30/2026"_s << qsizetype{37};
        QTest::newRow("31 years") << u"01/01/2058"_s << u"Effective per year"_s
                                  << u"01/01/2026 to 12/31/2026"_s << qsizetype{33};
        QTest::newRow("a slip in the year")
            << u"11/01/9999"_s << u"Effective per year"_s << u"01/01/2026 to 12/31/2026"_s << qsizetype{7974};
    }
    void Steps() {
        QFETCH(QString, last);
        const ChartModel model = Make(ByDate({{{u"11/01/2026"_s}, 1.5}, {{last}, 2.0}}));
        QTEST(model.title, "title");
        QTEST(model.spans.front(), "firstSpan");
        QTEST(model.labels.size(), "points");
        QCOMPARE(model.series.front().values.front().text, u"1.50"_s);
        QCOMPARE(model.series.front().values.back().text, u"2.00"_s);
    }

    void DaysOfAWeekAreAddedUp() {
        const ChartModel model = Make(ByDate({{{u"09/01/2026"_s}, 0.0},
                                              {{u"11/16/2026"_s}, 1.0},
                                              {{u"11/22/2026"_s}, 2.0},
                                              {{u"11/23/2026"_s}, 4.0}}));
        const qsizetype week = model.labels.indexOf(u"11/16/2026"_s);
        QCOMPARE(model.TextOf(0, week), u"11/16/2026 to 11/22/2026: 3.00"_s);
        QCOMPARE(model.TextOf(0, week + 1), u"11/23/2026 to 11/29/2026: 4.00"_s);
    }

    void WeeksBeginOnTheUsersDay() {
        const CRegionalInfo region;
        const ChartSource source = ByDate({{{u"11/01/2026"_s}, 1.0}, {{u"12/31/2026"_s}, 1.0}});
        QCOMPARE(MakeChart(source, {.region = region, .firstDayOfWeek = 0}).labels.front(), u"11/01/2026"_s);
        QCOMPARE(MakeChart(source, {.region = region, .firstDayOfWeek = 6}).labels.front(), u"10/31/2026"_s);
    }

    void DatesInTheUsersForm() {
        CRegionalInfo region;
        region.dateOrder = 1;
        region.dateSeparator = u'.';
        const ChartModel model = Make(ByDate({{{u"31.12.2026"_s}, 1.0}, {{u"2.1.2027"_s}, 2.0}}), region);
        QCOMPARE(model.labels, (QStringList{u"31.12.2026"_s, u"01.01.2027"_s, u"02.01.2027"_s}));
    }

    void NoLine_data() {
        QTest::addColumn<Groups>("groups");
        QTest::newRow("one day only") << Groups{{{u"11/19/2026"_s}, 8.0}};
        QTest::newRow("a group without a day") << Groups{{{u"11/19/2026"_s}, 8.0}, {{QString()}, 1.0}};
        QTest::newRow("no groups") << Groups();
    }
    void NoLine() {
        QFETCH(Groups, groups);
        const ChartModel model = Make(ByDate(groups));
        QCOMPARE(model.form, ChartForm::Bars);
        QCOMPARE(model.labels.size(), static_cast<qsizetype>(groups.size()));
    }

    void ALineForEachOfTheOtherKeys() {
        const ChartModel model = Make(ByDateAndClient({{{u"A"_s, u"11/19/2026"_s}, 1.0},
                                                       {{u"B"_s, u"11/20/2026"_s}, 2.0},
                                                       {{u"A"_s, u"11/20/2026"_s}, 4.0}}));
        QCOMPARE(model.title, u"Effective per day by Client"_s);
        QCOMPARE(Names(model), (QStringList{u"A"_s, u"B"_s}));
        QCOMPARE(Words(model, 0), u"11/19/2026 1.00, 11/20/2026 4.00"_s);
        QCOMPARE(Words(model, 1), u"11/19/2026 0.00, 11/20/2026 2.00"_s);
        QCOMPARE(model.TextOf(0, 1), u"11/20/2026 · A: 4.00"_s);
    }

    /// A to E come to more than F and G.
    void TheSixthLineIsOther() {
        Groups groups;
        const QString names = u"FABCDEG"_s;
        for (int name = 0; name < names.size(); ++name) {
            const double sum = names[name] > u'E' ? 1.0 : 10.0;
            groups.push_back({{names[name], u"11/19/2026"_s}, sum});
            groups.push_back({{names[name], u"11/20/2026"_s}, 2.0 * sum});
        }
        const ChartModel model = Make(ByDateAndClient(groups));
        QCOMPARE(Names(model), (QStringList{u"A"_s, u"B"_s, u"C"_s, u"D"_s, u"E"_s, u"Other (2)"_s}));
        QVERIFY(model.series.back().isOther);
        QVERIFY(!model.series.front().isOther);
        QCOMPARE(Words(model, 5), u"11/19/2026 2.00, 11/20/2026 4.00"_s);
    }

    void KeysThatReadAlikeWhenJoinedAreTwoLines() {
        ChartSource source = ByDate(
            {{{u"11/19/2026"_s, u"a · b"_s, u"c"_s}, 1.0}, {{u"11/20/2026"_s, u"a"_s, u"b · c"_s}, 1.0}});
        source.keyCaptions = {u"Date"_s, u"Client"_s, u"Project"_s};
        QCOMPARE(Names(Make(source)), (QStringList{u"a · b · c"_s, u"a · b · c"_s}));
    }

    void InWords() {
        const ChartModel model = Make(ByClient({{{u"A"_s}, 1.0}, {{u"B"_s}, -2.0}}));
        QCOMPARE(model.Description(), u"Chart: Effective by Client. A: 1.00; B: -2.00"_s);
    }
    void OfManyTheFirstInWords() {
        const ChartModel model = Make(ByDate({{{u"01/01/2026"_s}, 1.0}, {{u"02/25/2026"_s}, 2.0}}));
        QVERIFY(model.Description().startsWith(
            u"Chart: Effective per day. 01/01/2026: 1.00; 01/02/2026: 0.00;"_s));
        QVERIFY(model.Description().endsWith(u"; 02/19/2026: 0.00; and 6 more"_s));
    }
};

TEST_CLASS(TestChartModel);
#include "TestChartModel.moc"
