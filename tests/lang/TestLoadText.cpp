#include "lang/FormatText.h"
#include "lang/LoadText.h"
#include "lang/TextFormat.h"
#include "support/TestProgram.h"

#include <QFile>
#include <QTemporaryDir>
#include <QTest>
#include <algorithm>

using namespace Qt::Literals::StringLiterals;

namespace {

QString BuildFolder() {
    return QStringLiteral(TEST_BIN_DIR);
}

/// Rows of lang/eng.txt, counted without the generator's reading of them.
int RowsOfTheList() {
    QFile list(QStringLiteral(TEST_SOURCE_DIR) + u"/../../lang/eng.txt"_s);
    if (!list.open(QIODevice::ReadOnly)) return -1;
    int rows = 0;
    while (!list.atEnd()) rows += QChar::fromLatin1(list.readLine().at(0)).isDigit() ? 1 : 0;
    return rows;
}

}  // namespace

class TestLoadText final : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void cleanup() { FreeLanguageLibrary(); }

    void LoadLanguageLibrary_data();
    void LoadLanguageLibrary();
    void LoadTextWithoutLibrary();
    void LoadTextOfNumber_data();
    void LoadTextOfNumber();
    void LoadTextKeepsWhatItGave();
    void AllTextsOfTheList();
    void SignaturesFit();
    void FormatKindsOf_data();
    void FormatKindsOf();
    void FormatTextFills_data();
    void FormatTextFills();
};

void TestLoadText::LoadLanguageLibrary_data() {
    const QString bad = QStringLiteral(BAD_LIBRARIES);
    QTest::addColumn<QString>("folder");
    QTest::addColumn<bool>("loaded");
    QTest::newRow("the library of the build") << BuildFolder() << true;
    QTest::newRow("a folder that isn't there") << u"/no/such/folder"_s << false;
    QTest::newRow("a folder without the library") << QStringLiteral(TEST_SOURCE_DIR) << false;
    QTest::newRow("an empty folder name") << QString() << false;
    QTest::newRow("a library without the entry") << bad + u"/NoEntry"_s << false;
    QTest::newRow("a library whose format takes other arguments") << bad + u"/OtherArguments"_s << false;
    QTest::newRow("a library whose numbers don't ascend") << bad + u"/NotAscending"_s << false;
    QTest::newRow("a library without texts") << bad + u"/NoTexts"_s << false;
}

void TestLoadText::LoadLanguageLibrary() {
    QFETCH(QString, folder);
    QTEST(::LoadLanguageLibrary(folder), "loaded");
    QFETCH(bool, loaded);
    QCOMPARE(AllTexts().isEmpty(), !loaded);
}

void TestLoadText::LoadTextWithoutLibrary() {
    QCOMPARE(LoadText(Text::Sunday), QString());
    QCOMPARE(TextName(25440), QString());
    QVERIFY(AllTexts().isEmpty());

    QTemporaryDir folder;
    QFile file(folder.filePath(u"DvAfxRes_Eng.so"_s));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("no library at all");
    file.close();
    QVERIFY(::LoadLanguageLibrary(BuildFolder()));
    QVERIFY(!::LoadLanguageLibrary(folder.path()));
    QCOMPARE(LoadText(Text::Sunday), QString());
}

void TestLoadText::LoadTextOfNumber_data() {
    QTest::addColumn<int>("id");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("name");
    QTest::newRow("a plain text") << 25440 << u"Sunday"_s << u"Sunday"_s;
    QTest::newRow("blanks at both ends") << 23098 << u" - "_s << u"PeriodTo"_s;
    QTest::newRow("line ends in quotes") << 23556 << u"\n\n"_s << u"BetweenStatementAndError"_s;
    QTest::newRow("a backslash alone") << 23014 << u"\\"_s << u"KeySeparator"_s;
    QTest::newRow("an apostrophe") << 23214 << u"'"_s << u"SqlEndOfIdentity"_s;
    QTest::newRow("a number between two others") << 29999 << QString() << QString();
    QTest::newRow("a number below the first") << 0 << QString() << QString();
    QTest::newRow("a negative number") << -1 << QString() << QString();
    QTest::newRow("a number above the last") << 999999 << QString() << QString();
}

void TestLoadText::LoadTextOfNumber() {
    QVERIFY(::LoadLanguageLibrary(BuildFolder()));
    QFETCH(int, id);
    QTEST(LoadText(id), "text");
    QTEST(TextName(id), "name");
}

void TestLoadText::LoadTextKeepsWhatItGave() {
    QVERIFY(::LoadLanguageLibrary(BuildFolder()));
    const QString& sunday = LoadText(Text::Sunday);
    const QChar* letters = sunday.constData();
    FreeLanguageLibrary();
    QCOMPARE(sunday, u"Sunday"_s);
    QVERIFY(::LoadLanguageLibrary(BuildFolder()));
    QCOMPARE(sunday, u"Sunday"_s);
    QCOMPARE(sunday.constData(), letters);
    QCOMPARE(&LoadText(Text::Sunday), &LoadText(25440));
}

void TestLoadText::AllTextsOfTheList() {
    QVERIFY(::LoadLanguageLibrary(BuildFolder()));
    const auto all = AllTexts();
    QCOMPARE(static_cast<int>(all.size()), RowsOfTheList());
    QVERIFY(std::is_sorted(all.begin(), all.end()));
    for (const auto& [id, text] : all) {
        QVERIFY2(!text.isEmpty(), qPrintable(QString::number(id)));
        QVERIFY2(!TextName(id).isEmpty(), qPrintable(QString::number(id)));
        QVERIFY2(!text.contains(QChar::ReplacementCharacter), qPrintable(QString::number(id)));
        QCOMPARE(LoadText(id), text);
    }
}

void TestLoadText::SignaturesFit() {
    QVERIFY(::LoadLanguageLibrary(BuildFolder()));
    int formats = 0;
    for (const auto& [id, text] : AllTexts()) {
        const auto kinds = FormatKinds(text.toStdString());
        QVERIFY2(kinds.has_value(), qPrintable(text));
        QCOMPARE(QString::fromStdString(*kinds), QLatin1String(TextSignature(static_cast<Text>(id)).data()));
        formats += kinds->empty() ? 0 : 1;
    }
    QVERIFY(formats > 20);
}

void TestLoadText::FormatKindsOf_data() {
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QByteArray>("kinds");
    QTest::newRow("no percent sign") << QByteArray("plain") << QByteArray();
    QTest::newRow("a percent sign is no argument") << QByteArray("100 %%") << QByteArray();
    QTest::newRow("number, text, number") << QByteArray("%d of %s, %02d") << QByteArray("dsd");
    QTest::newRow("floating point with width and places") << QByteArray("%8.2f %g") << QByteArray("gg");
    QTest::newRow("a lone percent sign at the end") << QByteArray("100 %") << QByteArray("none");
    QTest::newRow("a form that isn't known") << QByteArray("%n") << QByteArray("none");
    QTest::newRow("a width that is an argument") << QByteArray("%*d") << QByteArray("none");
}

void TestLoadText::FormatKindsOf() {
    QFETCH(QByteArray, text);
    QTEST(QByteArray::fromStdString(FormatKinds(text.toStdString()).value_or("none")), "kinds");
}

void TestLoadText::FormatTextFills_data() {
    QTest::addColumn<QString>("filled");
    QTest::addColumn<QString>("expected");
    QVERIFY(::LoadLanguageLibrary(BuildFolder()));
    QTest::newRow("two numbers") << FormatText<Text::SpanClock>(1, 5) << u"1:05"_s;
    QTest::newRow("numbers and texts")
        << FormatText<Text::DateWithYear>(2, u"."_s, 3, u"."_s, 2026) << u"02.03.2026"_s;
    QTest::newRow("a text with umlauts and an emoji")
        << FormatText<Text::SettingsKeptAside>(u"/häuser/🏠.db"_s).section(u'\n', 0, 0)
        << u"The settings could not be read and were put aside as /häuser/🏠.db."_s;
    QTest::newRow("percent signs in an argument stay")
        << FormatText<Text::SqlSelectByIdentity>(u"100%s%n"_s, u"%d"_s)
        << u"SELECT * FROM 100%s%n WHERE identity='%d'"_s;
    QTest::newRow("a doubled percent sign becomes one")
        << FormatText<Text::SqlDeleteChunks>(u"dependency_x"_s, 7).right(3) << u"4%'"_s;
    QTest::newRow("a flag counts as a number") << FormatText<Text::PlainInteger>(true) << u"1"_s;
    QTest::newRow("an enumerator counts as its number")
        << FormatText<Text::PlainInteger>(Text::Sunday) << u"25440"_s;
}

void TestLoadText::FormatTextFills() {
    QFETCH(QString, filled);
    QTEST(filled, "expected");
}

TEST_CLASS(TestLoadText);
#include "TestLoadText.moc"
