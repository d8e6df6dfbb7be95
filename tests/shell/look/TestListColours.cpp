#include "shell/look/ListColours.h"

#include "config/Settings.h"
#include "shell/look/Contrast.h"
#include "support/TestProgram.h"

#include <QPalette>
#include <QTest>

namespace {

/// Black on white, with highlights that are told apart; the program without focus has its own.
QPalette Light() {
    QPalette palette;
    palette.setColor(QPalette::Base, Qt::white);
    palette.setColor(QPalette::Text, Qt::black);
    palette.setColor(QPalette::Active, QPalette::Highlight, QColor(0, 0, 200));
    palette.setColor(QPalette::Active, QPalette::HighlightedText, QColor(250, 250, 251));
    palette.setColor(QPalette::Inactive, QPalette::Highlight, QColor(190, 190, 190));
    palette.setColor(QPalette::Inactive, QPalette::HighlightedText, QColor(20, 20, 20));
    return palette;
}

QPalette Dark() {
    QPalette palette = Light();
    palette.setColor(QPalette::Base, QColor(30, 30, 30));
    palette.setColor(QPalette::Text, QColor(240, 240, 240));
    return palette;
}

/// The colours that a setting decides, as text.
QStringList Words(const ListColours& colours) {
    QStringList words{colours.alternate.name(), colours.grid.name()};
    for (const QColor& line : colours.lines) words.append(line.name());
    return words;
}

}  // namespace

class TestListColours final : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    /// Settings hold blue, green, red: 0xE1E9EA is #eae9e1. Of the way from 30 to 240, a twentieth is 10.5
    /// and 16 hundredths are 33.6.
    void Defaults_data() {
        QTest::addColumn<bool>("isDark");
        QTest::addColumn<QString>("colours");
        QTest::newRow("on white") << false << "#f8f8f8 #eae9e1 #000000 #62617f #60607d #646464";
        QTest::newRow("on a dark ground") << true << "#282828 #3f3f3f #f2f2f5 #c6c5db #c6c6dd #c8c8c8";
    }
    void Defaults() {
        QFETCH(bool, isDark);
        QTEST(Words(MakeListColours(Settings(), isDark ? Dark() : Light())).join(u' '), "colours");
    }

    /// Black on white is 21 to 1, #767676 on white the last grey of 4.5, a colour on itself 1.
    void Contrasts() {
        QCOMPARE(Contrast(Qt::black, Qt::white), 21.0);
        QVERIFY(Contrast(QColor(0x76, 0x76, 0x76), Qt::white) >= 4.5);
        QVERIFY(Contrast(Qt::white, QColor(0x77, 0x77, 0x77)) < 4.5);
        QCOMPARE(Contrast(Qt::red, Qt::red), 1.0);
    }

    /// Whatever the list draws in its default colours is read without effort, on each of its grounds.
    void DefaultsAreLegible_data() {
        QTest::addColumn<QPalette>("palette");
        QTest::newRow("on white") << Light();
        QTest::newRow("on a dark ground") << Dark();
        QPalette grey = Dark();
        grey.setColor(QPalette::Base, QColor(0x31, 0x36, 0x3B));
        QTest::newRow("on a grey ground") << grey;
    }
    void DefaultsAreLegible() {
        QFETCH(QPalette, palette);
        const ListColours colours = MakeListColours(Settings(), palette);
        for (const QColor& line : colours.lines)
            for (const QColor& ground : {colours.window, colours.alternate, colours.found})
                QVERIFY2(Contrast(line, ground) >= 4.5, qPrintable(line.name() + u' ' + ground.name()));
        QVERIFY(Contrast(colours.headText, colours.head) >= 4.5);
    }

    void Chosen_data() {
        QTest::addColumn<std::uint32_t Settings::*>("member");
        QTest::addColumn<int>("place");
        QTest::newRow("second ground") << &Settings::alternateRowColour << 0;
        QTest::newRow("grid") << &Settings::gridLineColour << 1;
        QTest::newRow("line 1") << &Settings::lineColour1 << 2;
        QTest::newRow("line 2") << &Settings::lineColour2 << 3;
        QTest::newRow("line 3") << &Settings::lineColour3 << 4;
        QTest::newRow("line 4") << &Settings::lineColour4 << 5;
    }
    /// A colour that the user chose stays on any ground, and changes no other.
    void Chosen() {
        using Member = std::uint32_t Settings::*;
        QFETCH(Member, member);
        QFETCH(int, place);
        for (const QPalette& palette : {Light(), Dark()}) {
            QStringList expected = Words(MakeListColours(Settings(), palette));
            expected[place] = QStringLiteral("#123456");
            Settings settings;
            settings.*member = 0x563412;
            QCOMPARE(Words(MakeListColours(settings, palette)), expected);
        }
    }

    void Highlights() {
        const ListColours colours = MakeListColours(Settings(), Light());
        QCOMPARE(colours.window, QColor(Qt::white));
        QCOMPARE(colours.highlight, QColor(0, 0, 200));
        QCOMPARE(colours.highlightText, QColor(250, 250, 251));
        QCOMPARE(colours.highlightNoFocus, QColor(190, 190, 190));
        QCOMPARE(colours.highlightTextNoFocus, QColor(20, 20, 20));
    }

    /// A desktop with one highlight for both: without focus the rows get a third of it, and the usual text.
    void OneHighlightForBoth() {
        QPalette palette = Light();
        palette.setColor(QPalette::Inactive, QPalette::Highlight, QColor(0, 0, 200));
        const ListColours colours = MakeListColours(Settings(), palette);
        QCOMPARE(colours.highlightNoFocus, QColor(165, 165, 235));
        QCOMPARE(colours.highlightTextNoFocus, QColor(Qt::black));
    }
};

TEST_CLASS(TestListColours);
#include "TestListColours.moc"
