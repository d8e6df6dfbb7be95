#include "viewmodel/list/ColumnChoice.h"

#include "lang/LoadText.h"
#include "support/TestProgram.h"

#include <QtTest>

/// The two lists of the columns, written "hidden/shown" with a comma between columns and "-" for a separator.
class TestColumnChoice : public QObject {
    Q_OBJECT

 private:
    using Breaks = std::vector<std::int32_t>;

    static QStringList Split(const QString& captions) {
        return captions.split(QLatin1Char(','), Qt::SkipEmptyParts);
    }
    /// A column's number is that of its letter.
    static std::vector<ChosenColumn> Numbered(const QString& captions) {
        std::vector<ChosenColumn> columns;
        for (const QString& caption : Split(captions))
            columns.push_back({caption.front().unicode() - u'a', caption});
        return columns;
    }
    static QStringList Captions(const std::vector<ChosenColumn>& columns) {
        QStringList captions;
        for (const ChosenColumn& column : columns) captions << column.caption;
        return captions;
    }
    static ChosenColumns Columns(const QString& hidden, const QString& shown, const Breaks& breaks) {
        return {Numbered(hidden), Numbered(shown), breaks};
    }
    static QString Lists(const ColumnChoice& choice) {
        QStringList available = choice.Available();
        QStringList shown = choice.Shown();
        for (QStringList* list : {&available, &shown})
            list->replaceInStrings(QStringLiteral("------ Separator"), QStringLiteral("-"));
        return available.join(QLatin1Char(',')) + QLatin1Char('/') + shown.join(QLatin1Char(','));
    }
    static QString Closed(const ColumnChoice& choice) {
        const ChosenColumns columns = choice.Close();
        QStringList breaks;
        for (const std::int32_t place : columns.breaks) breaks << QString::number(place);
        return Captions(columns.hidden).join(QLatin1Char(',')) + QLatin1Char('/') +
               Captions(columns.shown).join(QLatin1Char(',')) + QLatin1Char('/') +
               breaks.join(QLatin1Char(' '));
    }

 private Q_SLOTS:
    void initTestCase() { QVERIFY(LoadLanguageLibrary(QStringLiteral(TEST_BIN_DIR))); }

    void SeparatorIsCalledSo() {
        ColumnChoice choice;
        choice.Open({}, true);
        QCOMPARE(choice.Available(), QStringList(QStringLiteral("------ Separator")));
    }

    void Open_data() {
        QTest::addColumn<QString>("hidden");
        QTest::addColumn<QString>("shown");
        QTest::addColumn<QList<int>>("breaks");
        QTest::addColumn<bool>("hasSeparators");
        QTest::addColumn<QString>("lists");
        QTest::addColumn<QString>("closed");
        using L = QList<int>;
        QTest::newRow("two breaks") << "x,y"
                                    << "a,b,c,d" << L{2, 3} << true << "-,x,y/a,b,-,c,-,d"
                                    << "x,y/a,b,c,d/2 3";
        QTest::newRow("no breaks") << "x"
                                   << "a,b" << L{} << true << "-,x/a,b"
                                   << "x/a,b/";
        QTest::newRow("a break at the very end") << "x"
                                                 << "a,b" << L{2} << true << "-,x/a,b,-"
                                                 << "x/a,b/2";
        QTest::newRow("a break at the very start") << "x"
                                                   << "a,b" << L{0} << true << "-,x/-,a,b"
                                                   << "x/a,b/0";
        QTest::newRow("a break past the end goes") << "x"
                                                   << "a,b" << L{1, 7} << true << "-,x/a,-,b"
                                                   << "x/a,b/1";
        QTest::newRow("a break before the start goes") << "x"
                                                       << "a,b" << L{-1, 1} << true << "-,x/a,-,b"
                                                       << "x/a,b/1";
        QTest::newRow("two breaks at one place") << "x"
                                                 << "a,b" << L{1, 1} << true << "-,x/a,-,-,b"
                                                 << "x/a,b/1 1";
        QTest::newRow("all columns shown: the separator is still offered") << ""
                                                                           << "a,b" << L{} << true << "-/a,b"
                                                                           << "/a,b/";
        QTest::newRow("nothing shown") << "x"
                                       << "" << L{} << true << "-,x/"
                                       << "x//";
        QTest::newRow("a layout without separators keeps the breaks") << "x"
                                                                      << "a,b" << L{1, 7} << false << "x/a,b"
                                                                      << "x/a,b/1 7";
    }
    void Open() {
        QFETCH(QString, hidden);
        QFETCH(QString, shown);
        QFETCH(QList<int>, breaks);
        QFETCH(bool, hasSeparators);
        ColumnChoice choice;
        choice.Open(Columns(hidden, shown, Breaks(breaks.begin(), breaks.end())), hasSeparators);
        QTEST(Lists(choice), "lists");
        QTEST(Closed(choice), "closed");
    }

    void OpenForgetsWhatWasThere() {
        ColumnChoice choice;
        choice.Open(Columns(QStringLiteral("x,y"), QStringLiteral("a,b"), {1}), true);
        choice.Open(Columns(QStringLiteral("z"), QStringLiteral("c"), {}), true);
        QCOMPARE(Lists(choice), QStringLiteral("-,z/c"));
        QCOMPARE(Closed(choice), QStringLiteral("z/c/"));
    }

    void Take_data() {
        QTest::addColumn<bool>("hasSeparators");
        QTest::addColumn<int>("line");
        QTest::addColumn<int>("selected");
        QTest::addColumn<QString>("lists");
        QTest::newRow("a column") << true << 2 << 3 << "-,x/a,-,b,y";
        QTest::newRow("the separator stays") << true << 0 << 3 << "-,x,y/a,-,b,-";
        QTest::newRow("the first line without separators") << false << 0 << 2 << "y/a,b,x";
        QTest::newRow("no line") << true << -1 << -1 << "-,x,y/a,-,b";
        QTest::newRow("a line past the end") << true << 3 << -1 << "-,x,y/a,-,b";
    }
    void Take() {
        QFETCH(bool, hasSeparators);
        QFETCH(int, line);
        ColumnChoice choice;
        choice.Open(Columns(QStringLiteral("x,y"), QStringLiteral("a,b"), {1}), hasSeparators);
        QTEST(choice.Take(line), "selected");
        QTEST(Lists(choice), "lists");
    }

    void GiveBack_data() {
        QTest::addColumn<int>("line");
        QTest::addColumn<int>("selected");
        QTest::addColumn<QString>("lists");
        QTest::newRow("a column") << 0 << 3 << "-,x,y,a/-,b";
        QTest::newRow("a separator just goes") << 1 << -1 << "-,x,y/a,b";
        QTest::newRow("no line") << -1 << -1 << "-,x,y/a,-,b";
        QTest::newRow("a line past the end") << 3 << -1 << "-,x,y/a,-,b";
    }
    void GiveBack() {
        QFETCH(int, line);
        ColumnChoice choice;
        choice.Open(Columns(QStringLiteral("x,y"), QStringLiteral("a,b"), {1}), true);
        QTEST(choice.GiveBack(line), "selected");
        QTEST(Lists(choice), "lists");
    }

    void Move_data() {
        QTest::addColumn<bool>("isUp");
        QTest::addColumn<int>("line");
        QTest::addColumn<int>("selected");
        QTest::addColumn<QString>("closed");
        QTest::newRow("up") << true << 3 << 2 << "/a,c,b/1";
        QTest::newRow("down") << false << 2 << 3 << "/a,c,b/1";
        QTest::newRow("a separator up") << true << 1 << 0 << "/a,b,c/0";
        QTest::newRow("a separator down") << false << 1 << 2 << "/a,b,c/2";
        QTest::newRow("a column over a separator") << true << 2 << 1 << "/a,b,c/2";
        QTest::newRow("the first one up stays") << true << 0 << 0 << "/a,b,c/1";
        QTest::newRow("the last one down stays") << false << 3 << 3 << "/a,b,c/1";
        QTest::newRow("no line") << false << -1 << -1 << "/a,b,c/1";
    }
    void Move() {
        QFETCH(bool, isUp);
        QFETCH(int, line);
        ColumnChoice choice;
        choice.Open(Columns({}, QStringLiteral("a,b,c"), {1}), true);
        QTEST(isUp ? choice.MoveUp(line) : choice.MoveDown(line), "selected");
        QTEST(Closed(choice), "closed");
    }

    void SeveralSeparators() {
        ColumnChoice choice;
        choice.Open(Columns(QStringLiteral("x"), QStringLiteral("a"), {}), true);
        choice.Take(0);
        choice.Take(1);
        choice.Take(0);
        QCOMPARE(Lists(choice), QStringLiteral("-/a,-,x,-"));
        QCOMPARE(Closed(choice), QStringLiteral("/a,x/1 2"));
    }

    void ColumnThatIsCalledLikeTheSeparatorIsAColumn() {
        const QString odd = QStringLiteral("------ Separator");
        ColumnChoice choice;
        const ChosenColumns expected{{}, {{3, QStringLiteral("a")}, {7, odd}}, {1}};
        choice.Open(expected, true);
        QCOMPARE(choice.Close(), expected);
    }
};

TEST_CLASS(TestColumnChoice);
#include "TestColumnChoice.moc"
