#include "shell/look/LegiblePalette.h"

#include "support/TestProgram.h"

#include <QTest>

class TestLegiblePalette : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void Hints_data();
    void Hints();
    void NothingElseChanges();
};

void TestLegiblePalette::Hints_data() {
    QTest::addColumn<QColor>("ground");
    QTest::addColumn<QColor>("text");
    QTest::addColumn<QColor>("hint");
    QTest::addColumn<QColor>("mended");
    const QColor black(0, 0, 0), white(255, 255, 255), dark(27, 30, 32), light(252, 252, 252);
    QTest::newRow("half of black on white stays")
        << white << black << QColor(0, 0, 0, 128) << QColor(0, 0, 0, 128);
    QTest::newRow("half of black on a dark ground becomes half of the text")
        << dark << light << QColor(0, 0, 0, 128) << QColor(252, 252, 252, 128);
    QTest::newRow("the ground's own colour, too") << dark << light << dark << QColor(252, 252, 252, 128);
    QTest::newRow("a full grey on a dark ground stays")
        << dark << light << QColor(161, 169, 177) << QColor(161, 169, 177);
    QTest::newRow("nearly transparent becomes half of the text")
        << white << black << QColor(0, 0, 0, 20) << QColor(0, 0, 0, 128);
}

void TestLegiblePalette::Hints() {
    QFETCH(const QColor, ground);
    QFETCH(const QColor, text);
    QFETCH(const QColor, hint);
    QPalette palette;
    palette.setColor(QPalette::Base, ground);
    palette.setColor(QPalette::Text, text);
    palette.setColor(QPalette::PlaceholderText, hint);
    QTEST(Legible(palette).color(QPalette::PlaceholderText), "mended");
}

void TestLegiblePalette::NothingElseChanges() {
    QPalette palette;
    palette.setColor(QPalette::Base, Qt::black);
    palette.setColor(QPalette::Text, Qt::white);
    palette.setColor(QPalette::PlaceholderText, Qt::black);
    const QPalette mended = Legible(palette);
    for (int role = 0; role < QPalette::NColorRoles; ++role)
        if (role != QPalette::PlaceholderText)
            QCOMPARE(mended.color(QPalette::ColorRole(role)), palette.color(QPalette::ColorRole(role)));
}

TEST_CLASS(TestLegiblePalette);
#include "TestLegiblePalette.moc"
