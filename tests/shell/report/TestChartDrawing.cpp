#include "lang/LoadText.h"
#include "shell/look/CDrawing.h"
#include "shell/report/CChartPicture.h"
#include "shell/report/ChartColours.h"
#include "support/TestProgram.h"
#include "viewmodel/report/ChartModel.h"

#include <QElapsedTimer>
#include <QImage>
#include <QPainter>
#include <QTest>
#include <cmath>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int kWidth = 600;

using Groups = std::vector<ChartGroup>;

PictureStyle Light() {
    QFont font;
    font.setPixelSize(13);
    return {.font = font, .paper = Qt::white, .ink = Qt::black};
}

PictureStyle Dark() {
    PictureStyle style = Light();
    style.paper = QColor(0x1E, 0x1E, 0x1E);
    style.ink = QColor(0xF0, 0xF0, 0xF0);
    return style;
}

ChartModel Chart(const Groups& groups) {
    static const CRegionalInfo kRegion;
    return MakeChart({.sumCaption = u"Effective"_s,
                      .keyCaptions = {u"Client"_s},
                      .dateKey = std::nullopt,
                      .places = 2,
                      .groups = groups},
                     {.region = kRegion, .firstDayOfWeek = 1});
}

ChartModel DateChart(const Groups& groups) {
    static const CRegionalInfo kRegion;
    ChartSource source{.sumCaption = u"Effective"_s,
                       .keyCaptions = {u"Date"_s},
                       .dateKey = 0,
                       .places = 2,
                       .groups = groups};
    if (groups.front().keys.size() > 1) source.keyCaptions.append(u"Client"_s);
    return MakeChart(source, {.region = kRegion, .firstDayOfWeek = 1});
}

Groups Two() {
    return {{{u"A"_s}, 8.0}, {{u"B"_s}, 4.0}};
}

/// A chart on a sheet of its size.
class CSheet final : public QWidget {
 public:
    explicit CSheet(const ChartModel& model, const PictureStyle& style = Light(), int width = kWidth)
        : m_model(model), m_style(style) {
        resize(width, static_cast<int>(std::ceil(Picture().HeightFor(width, m_style))));
    }
    [[nodiscard]] CChartPicture Picture() const {
        return CChartPicture([this] { return &m_model; });
    }
    [[nodiscard]] QImage Image() const {
        QImage image(size(), QImage::Format_RGB32);
        image.fill(m_style.paper);
        QPainter painter(&image);
        Picture().Paint(painter, rect(), m_style);
        return image;
    }
    [[nodiscard]] QString TipAt(const QPointF& point) const {
        return Picture().TipAt(point, rect(), m_style);
    }

 protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        Picture().Paint(painter, rect(), m_style);
    }

 private:
    const ChartModel m_model;
    const PictureStyle m_style;
};

/// Where a colour stands in a row of pixels, from the first to the last; -1 where it doesn't.
struct Run {
    int first = -1;
    int last = -1;
    [[nodiscard]] int Length() const { return first < 0 ? 0 : last - first + 1; }
};

Run RunIn(const QImage& image, int y, const QColor& colour) {
    Run run;
    for (int x = 0; x < image.width(); ++x) {
        if (image.pixelColor(x, y) != colour) continue;
        if (run.first < 0) run.first = x;
        run.last = x;
    }
    return run;
}

/// Middle of the row in which a word was drawn, beside its bar.
int RowOf(const Drawing& drawing, const QString& word) {
    for (const DrawnText& text : drawing.texts)
        if (text.text == word) return static_cast<int>(text.place.center().y());
    return -1;
}

QRectF PlaceOf(const Drawing& drawing, const QString& word) {
    for (const DrawnText& text : drawing.texts)
        if (text.text == word) return text.place;
    return {};
}

int Count(const QImage& image, const QColor& colour) {
    int count = 0;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x) count += image.pixelColor(x, y) == colour ? 1 : 0;
    return count;
}

/// WCAG 2.1: relative luminance, and the contrast of two colours.
double Luminance(const QColor& colour) {
    const auto linear = [](double part) {
        return part <= 0.03928 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) +
           0.0722 * linear(colour.blueF());
}

double Contrast(const QColor& a, const QColor& b) {
    const double one = Luminance(a) + 0.05, other = Luminance(b) + 0.05;
    return std::max(one, other) / std::min(one, other);
}

}  // namespace

/// Charts as they are drawn.
class TestChartDrawing final : public QObject {
    Q_OBJECT

    const ChartColours m_light = MakeChartColours(Light().paper, Light().ink);

 private Q_SLOTS:
    void initTestCase() { QVERIFY(LoadLanguageLibrary(QStringLiteral(TEST_BIN_DIR))); }

    void BarsAreAsLongAsTheirSums() {
        CSheet sheet(Chart({{{u"A"_s}, 8.0}, {{u"B"_s}, 4.0}, {{u"C"_s}, 1.0}, {{u"D"_s}, 0.0}}));
        const Drawing drawing = CDrawing::Of(sheet);
        const QImage image = sheet.Image();
        const auto length = [&](const QString& label) {
            return RunIn(image, RowOf(drawing, label), m_light.lines.front()).Length();
        };
        QVERIFY2(length(u"A"_s) > kWidth / 2, "the longest takes most of the width");
        QVERIFY(std::abs(length(u"A"_s) - 2 * length(u"B"_s)) <= 2);
        QVERIFY(std::abs(length(u"A"_s) / 8 - length(u"C"_s)) <= 1);
        QCOMPARE(length(u"D"_s), 0);
    }

    void BarsBelowZeroGoToTheLeft() {
        CSheet sheet(Chart({{{u"A"_s}, 6.5}, {{u"B"_s}, -6.5}}));
        const Drawing drawing = CDrawing::Of(sheet);
        const QImage image = sheet.Image();
        const Run above = RunIn(image, RowOf(drawing, u"A"_s), m_light.lines.front());
        const Run below = RunIn(image, RowOf(drawing, u"B"_s), m_light.below);
        QVERIFY(above.Length() > kWidth / 5);
        QVERIFY(std::abs(above.Length() - below.Length()) <= 2);
        QVERIFY(below.last <= above.first);
        // The sums stand outside their bars.
        QVERIFY(PlaceOf(drawing, u"-6.50"_s).right() <= below.first + 1);
        QVERIFY(PlaceOf(drawing, u"6.50"_s).left() >= above.last - 1);
    }

    void AFineLineStandsAtEachTick() {
        CSheet sheet(Chart(Two()));
        const Drawing drawing = CDrawing::Of(sheet);

        const QString all = drawing.Words().join(u' ');
        QVERIFY2(all.contains(u"0.00 2.00 4.00 6.00 8.00"_s), qPrintable(all));
        QCOMPARE(drawing.lines.size(), 5);
        QCOMPARE(drawing.lines.front().pen.color(), m_light.zero);
        QCOMPARE(drawing.lines.back().pen.color(), m_light.grid);
    }

    /// The zero line lies where the bars begin.
    void TicksStandUnderTheirPlace() {
        CSheet sheet(Chart(Two()));
        const Drawing drawing = CDrawing::Of(sheet);
        const Run bar = RunIn(sheet.Image(), RowOf(drawing, u"A"_s), m_light.lines.front());
        QVERIFY(std::abs(drawing.lines.front().line.x1() - bar.first) <= 1.0);
        QVERIFY(std::abs(drawing.lines.back().line.x1() - bar.last) <= 1.5);
    }

    void EveryBarHasItsWords() {
        CSheet sheet(Chart(Two()));
        const QStringList words = CDrawing::Of(sheet).Words();
        QCOMPARE(words.front(), u"Effective by Client"_s);
        for (const QString& word : {u"A"_s, u"B"_s, u"8.00"_s, u"4.00"_s}) QVERIFY(words.contains(word));
    }

    void TheOtherBarHasAColourOfItsOwn() {
        Groups groups;
        for (int group = 0; group < 1000; ++group) groups.push_back({{QString::number(group)}, 1.0});
        CSheet sheet(Chart(groups));
        const Drawing drawing = CDrawing::Of(sheet);
        const QImage image = sheet.Image();
        const int other = RowOf(drawing, u"Other (980)"_s);
        QVERIFY(RunIn(image, other, m_light.other).Length() > kWidth / 2);
        // It is longer than the axis, and broken to show so; its sum is told in full, the others are seen.
        const int middle =
            RunIn(image, other, m_light.other).first + RunIn(image, other, m_light.other).Length() / 2;
        const auto isBroken = [&] {
            for (int x = middle - 20; x < middle + 20; ++x)
                if (image.pixelColor(x, other) == QColor(Qt::white)) return true;
            return false;
        };
        QVERIFY(isBroken());
        QVERIFY(drawing.Words().contains(u"980.00"_s));
        QVERIFY(RunIn(image, RowOf(drawing, u"19"_s), m_light.lines.front()).Length() > kWidth / 2);
        QCOMPARE(RunIn(image, RowOf(drawing, u"19"_s), m_light.other).Length(), 0);
        QVERIFY2(sheet.height() < 600, "a chart of many groups still lets its table be seen");
    }

    void ALongLabelIsCutAndToldWhole() {
        const QString label = u"A client with a name that never ends "_s.repeated(3000);
        QElapsedTimer timer;
        timer.start();
        CSheet sheet(Chart({{{label}, 8.0}, {{u"B"_s}, 1.0}}));
        const Drawing drawing = CDrawing::Of(sheet);
        QVERIFY2(timer.elapsed() < 1000, "as quick as any other");
        const QString drawn = drawing.texts.at(drawing.texts.size() - 4).text;
        QVERIFY2(drawn.startsWith(u"A client"_s) && drawn.endsWith(u'…'), qPrintable(drawn));
        const QRectF place = PlaceOf(drawing, drawn);
        QVERIFY(place.left() >= 0 && place.width() <= kWidth * 0.34);
        QCOMPARE(sheet.TipAt(place.center()), label + u": 8.00"_s);
    }

    void NothingIsDrawnOutside_data() {
        QTest::addColumn<int>("width");
        QTest::addColumn<double>("sum");
        QTest::newRow("a common place") << 600 << 8.0;
        QTest::newRow("a wide one") << 1600 << -1234567.0;
        QTest::newRow("a narrow one") << 260 << 8.0;
        QTest::newRow("large sums") << 600 << 1e15;
    }
    void NothingIsDrawnOutside() {
        QFETCH(int, width);
        QFETCH(double, sum);
        CSheet sheet(Chart({{{u"Client A"_s}, sum}, {{u"Client B"_s}, sum / 3}}), Light(), width);
        for (const DrawnText& text : CDrawing::Of(sheet).texts) {
            const QRectF place = text.place;
            QVERIFY2(place.left() >= -1 && place.right() <= width + 1 && place.bottom() <= sheet.height(),
                     qPrintable(text.text));
        }
    }

    void WhatLiesUnderThePointer() {
        CSheet sheet(Chart(Two()));
        const Drawing drawing = CDrawing::Of(sheet);
        QCOMPARE(sheet.TipAt(QPointF(kWidth / 2.0, RowOf(drawing, u"A"_s))), u"A: 8.00"_s);
        QCOMPARE(sheet.TipAt(QPointF(5, RowOf(drawing, u"B"_s))), u"B: 4.00"_s);
        QCOMPARE(sheet.TipAt(QPointF(5, 3)), QString());
        QCOMPARE(sheet.TipAt(QPointF(5, sheet.height() - 1)), QString());
        QCOMPARE(sheet.TipAt(QPointF(-5, RowOf(drawing, u"B"_s))), QString());
    }

    void ALineGoesThroughItsPoints() {
        CSheet sheet(
            DateChart({{{u"11/16/2026"_s}, 8.0}, {{u"11/17/2026"_s}, 0.0}, {{u"11/18/2026"_s}, 4.0}}));
        const Drawing drawing = CDrawing::Of(sheet);
        const QImage image = sheet.Image();
        const auto y = [&](const QString& tick) { return RowOf(drawing, tick); };
        const auto x = [&](const QString& date) {
            return static_cast<int>(PlaceOf(drawing, date).center().x());
        };
        const QColor line = m_light.lines.front();
        QCOMPARE(image.pixelColor(x(u"11/16/2026"_s), y(u"8.00"_s)), line);
        QCOMPARE(image.pixelColor(x(u"11/17/2026"_s), y(u"0.00"_s)), line);
        QCOMPARE(image.pixelColor(x(u"11/18/2026"_s), y(u"4.00"_s)), line);
        QCOMPARE(sheet.TipAt(QPointF(x(u"11/17/2026"_s) + 9, y(u"4.00"_s))), u"11/17/2026: 0.00"_s);
        QVERIFY(sheet.TipAt(QPointF(2, 2)).isEmpty());
    }

    void LinesAreNamedAndToldApartWithoutColours() {
        CSheet sheet(DateChart({{{u"11/16/2026"_s, u"A"_s}, 8.0},
                                {{u"11/18/2026"_s, u"A"_s}, 8.0},
                                {{u"11/16/2026"_s, u"B"_s}, 2.0},
                                {{u"11/18/2026"_s, u"B"_s}, 2.0}}));
        const Drawing drawing = CDrawing::Of(sheet);
        QSet<Qt::PenStyle> dashes;
        for (const DrawnLine& line : drawing.lines)
            if (m_light.lines.front() == line.pen.color() || m_light.lines.at(1) == line.pen.color())
                dashes.insert(line.pen.style());
        QCOMPARE(dashes, (QSet<Qt::PenStyle>{Qt::SolidLine, Qt::DashLine}));
        QVERIFY(drawing.Words().contains(u"A"_s) && drawing.Words().contains(u"B"_s));
        const int x = static_cast<int>(PlaceOf(drawing, u"11/16/2026"_s).center().x());
        QCOMPARE(sheet.TipAt(QPointF(x, RowOf(drawing, u"2.00"_s) - 3)), u"11/16/2026 · B: 2.00"_s);
    }

    void AsManyDatesAsHavePlace_data() {
        QTest::addColumn<QString>("last");
        QTest::newRow("days") << u"12/30/2026"_s;
        QTest::newRow("weeks") << u"11/01/2027"_s;
        QTest::newRow("months") << u"11/01/2040"_s;
        QTest::newRow("years") << u"11/01/9000"_s;
    }
    void AsManyDatesAsHavePlace() {
        QFETCH(QString, last);
        CSheet sheet(DateChart({{{u"11/01/2026"_s}, 1.0}, {{last}, 2.0}}));
        QList<QRectF> dates;
        for (const DrawnText& text : CDrawing::Of(sheet).texts)
            if (text.text.contains(u'/')) dates.append(text.place);
        QVERIFY(dates.size() >= 3);
        for (qsizetype date = 1; date < dates.size(); ++date)
            QVERIFY(dates[date].left() > dates[date - 1].right() + 4);
        QVERIFY(dates.front().left() >= 0 && dates.back().right() <= kWidth);
    }

    void NothingToDrawTakesNoPlace() {
        const ChartModel empty = Chart({});
        const CChartPicture picture([&empty] { return &empty; });
        QCOMPARE(picture.HeightFor(kWidth, Light()), 0.0);
        QCOMPARE(picture.Description(), QString());
        const CChartPicture none([] { return nullptr; });
        QCOMPARE(none.HeightFor(kWidth, Light()), 0.0);
        QCOMPARE(none.TipAt({1, 1}, {0, 0, 9, 9}, Light()), QString());
    }

    void Contrasts_data() {
        QTest::addColumn<QColor>("paper");
        QTest::addColumn<QColor>("ink");
        QTest::newRow("white paper") << Light().paper << Light().ink;
        QTest::newRow("dark paper") << Dark().paper << Dark().ink;
        QTest::newRow("grey paper of a dark desktop") << QColor(0x2E, 0x34, 0x36) << QColor(0xEE, 0xEE, 0xEC);
    }
    void Contrasts() {
        QFETCH(QColor, paper);
        QFETCH(QColor, ink);
        const ChartColours colours = MakeChartColours(paper, ink);
        for (const QColor& colour : colours.lines) QVERIFY(Contrast(colour, paper) >= 3.0);
        for (const QColor& colour : {colours.other, colours.below, colours.zero})
            QVERIFY(Contrast(colour, paper) >= 3.0);
        QVERIFY2(Contrast(colours.grid, paper) < 2.0, "what lies behind stays behind");
    }

    void OnDarkPaper() {
        const CSheet sheet(Chart(Two()), Dark());
        const QImage image = sheet.Image();
        QVERIFY(Count(image, MakeChartColours(Dark().paper, Dark().ink).lines.front()) > 1000);
        QCOMPARE(Count(image, Qt::white) + Count(image, Qt::black), 0);
    }
};

TEST_CLASS(TestChartDrawing);
#include "TestChartDrawing.moc"
