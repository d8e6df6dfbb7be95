#include "viewmodel/list/ColourTable.h"

#include "lang/LoadText.h"
#include "support/TestProgram.h"

#include <QtTest>

/// The colours that can be picked.
class TestColourTable : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void initTestCase() { QVERIFY(LoadLanguageLibrary(QStringLiteral(TEST_BIN_DIR))); }

    void NamesAndValuesInOrder() {
        const QString expected = QStringLiteral(
            "Black 000000|"
            "Brown 002AA5|"
            "Dark Olive Green 404000|"
            "Dark Green 005500|"
            "Dark Teal 5E0000|"
            "Dark blue 8B0000|"
            "Indigo 82004B|"
            "Dark grey 282828|"
            "Dark red 00008B|"
            "Orange 2068FF|"
            "Dark yellow 008B8B|"
            "Green 009300|"
            "Teal 8E8E38|"
            "Blue FF0000|"
            "Blue-grey C07B7B|"
            "Grey - 40 666666|"
            "Red 0000FF|"
            "Light orange 5BADFF|"
            "Lime 32CD32|"
            "Sea green 71B33C|"
            "Aqua D4FF7F|"
            "Light blue C09E7D|"
            "Violet 800080|"
            "Grey - 50 7F7F7F|"
            "Pink CBC0FF|"
            "Gold 00D7FF|"
            "Yellow 00FFFF|"
            "Bright green 00FF00|"
            "Turquoise D0E040|"
            "Skyblue FFFFC0|"
            "Plum 480048|"
            "Light grey C0C0C0|"
            "Rose E1E4FF|"
            "Tan 8CB4D2|"
            "Light yellow E0FFFF|"
            "Pale green  98FB98|"
            "Pale turquoise EEEEAF|"
            "Pale blue 8B8368|"
            "Lavender FAE6E6|"
            "White FFFFFF|");
        QString rows;
        for (const NamedColour& colour : ColourTable())
            rows += QStringLiteral("%1 %2|")
                        .arg(LoadText(colour.name))
                        .arg(colour.value, 6, 16, QLatin1Char('0'));
        QCOMPARE(rows.toLower(), expected.toLower());
    }

    void NoValueComesTwice() {
        QSet<std::uint32_t> values;
        for (const NamedColour& colour : ColourTable()) values.insert(colour.value);
        QCOMPARE(values.size(), 40);
        QVERIFY(!values.contains(kAutomaticColour));
    }

    void Find() {
        QCOMPARE(FindColour(0x2068FF)->name, Text::ColourOrange);
        QCOMPARE(FindColour(0xFFFFFF)->name, Text::ColourWhite);
        QVERIFY(!FindColour(0xF8F8F8));
        QVERIFY(!FindColour(kAutomaticColour));
    }
};

TEST_CLASS(TestColourTable);
#include "TestColourTable.moc"
