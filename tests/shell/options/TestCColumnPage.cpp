#include "shell/options/CColumnPage.h"

#include "lang/LoadText.h"
#include "support/TestProgram.h"

#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QSet>
#include <QtTest>

/// The page of the columns under keys and clicks.
class TestCColumnPage : public QObject {
    Q_OBJECT

 private:
    static ChosenColumns Columns() {
        return {{{8, QStringLiteral("Rate")}, {15, QStringLiteral("Notes")}},
                {{0, QStringLiteral("Date")}, {4, QStringLiteral("Client")}, {5, QStringLiteral("Project")}},
                {1}};
    }
    template <class Widget>
    static Widget* Find(const CColumnPage& page, const char* name) {
        return page.findChild<Widget*>(QString::fromLatin1(name));
    }
    static QListWidget* Available(const CColumnPage& page) {
        return Find<QListWidget>(page, "availableColumns");
    }
    static QListWidget* Shown(const CColumnPage& page) { return Find<QListWidget>(page, "shownColumns"); }
    /// All lines of a list, the selected one in brackets.
    static QString Lines(const QListWidget& list) {
        QStringList lines;
        for (int i = 0; i < list.count(); ++i) {
            const QString caption =
                list.item(i)->text().replace(QStringLiteral("------ Separator"), QStringLiteral("-"));
            lines << (list.item(i)->isSelected() ? QStringLiteral("[%1]").arg(caption) : caption);
        }
        return lines.join(QLatin1Char(' '));
    }
    static QString State(const CColumnPage& page) {
        return Lines(*Available(page)) + QStringLiteral(" / ") + Lines(*Shown(page));
    }
    static void Open(CColumnPage& page, bool hasSeparators = true) {
        page.SetDraft(Columns(), hasSeparators);
        page.show();
    }
    static void Press(const CColumnPage& page, const char* button) {
        QTest::mouseClick(Find<QPushButton>(page, button), Qt::LeftButton);
    }
    static void DoubleClick(const QListWidget& list, int line) {
        const QPoint place = list.visualItemRect(list.item(line)).center();
        QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, place);
        QTest::mouseDClick(list.viewport(), Qt::LeftButton, {}, place);
    }

 private Q_SLOTS:
    void initTestCase() { QVERIFY(LoadLanguageLibrary(QStringLiteral(TEST_BIN_DIR))); }

    void Opens() {
        CColumnPage page;
        Open(page);
        QCOMPARE(State(page), QStringLiteral("[-] Rate Notes / [Date] - Client Project"));
        QCOMPARE(page.GetDraft(), Columns());
        Open(page, false);
        QCOMPARE(State(page), QStringLiteral("[Rate] Notes / [Date] Client Project"));
        QCOMPARE(page.GetDraft(), Columns());
    }

    void MoveOver_data() {
        QTest::addColumn<bool>("isTake");
        QTest::addColumn<int>("line");
        QTest::addColumn<QString>("expected");
        QTest::newRow("a column is shown") << true << 1 << "- [Notes] / Date - Client Project [Rate]";
        QTest::newRow("the last column is shown") << true << 2 << "- [Rate] / Date - Client Project [Notes]";
        QTest::newRow("a separator is shown") << true << 0 << "[-] Rate Notes / Date - Client Project [-]";
        QTest::newRow("a column is hidden") << false << 2 << "- Rate Notes [Client] / Date - [Project]";
        QTest::newRow("the last column is hidden")
            << false << 3 << "- Rate Notes [Project] / Date - [Client]";
        QTest::newRow("a separator goes") << false << 1 << "[-] Rate Notes / Date [Client] Project";
    }
    void MoveOver() {
        QFETCH(bool, isTake);
        QFETCH(int, line);
        const auto prepare = [isTake, line](CColumnPage& page) {
            Open(page);
            QListWidget* list = isTake ? Available(page) : Shown(page);
            list->setCurrentRow(line);
            return list;
        };
        CColumnPage byButton;
        prepare(byButton);
        Press(byButton, isTake ? "takeColumn" : "giveBackColumn");
        QTEST(State(byButton), "expected");
        CColumnPage byKey;
        QTest::keyClick(prepare(byKey), Qt::Key_Space);
        QTEST(State(byKey), "expected");
        CColumnPage byDoubleClick;
        DoubleClick(*prepare(byDoubleClick), line);
        QTEST(State(byDoubleClick), "expected");
    }

    void MoveUpAndDown_data() {
        QTest::addColumn<bool>("isUp");
        QTest::addColumn<int>("line");
        QTest::addColumn<QString>("expected");
        QTest::newRow("up") << true << 3 << "Date - [Project] Client";
        QTest::newRow("down") << false << 2 << "Date - Project [Client]";
        QTest::newRow("a separator down") << false << 1 << "Date Client [-] Project";
        QTest::newRow("the first one stays") << true << 0 << "[Date] - Client Project";
        QTest::newRow("the last one stays") << false << 3 << "Date - Client [Project]";
    }
    void MoveUpAndDown() {
        QFETCH(bool, isUp);
        QFETCH(int, line);
        CColumnPage byButton;
        Open(byButton);
        Shown(byButton)->setCurrentRow(line);
        Press(byButton, isUp ? "columnUp" : "columnDown");
        QTEST(Lines(*Shown(byButton)), "expected");
        CColumnPage byKey;
        Open(byKey);
        Shown(byKey)->setCurrentRow(line);
        QTest::keyClick(Shown(byKey), isUp ? Qt::Key_Up : Qt::Key_Down, Qt::AltModifier);
        QTEST(Lines(*Shown(byKey)), "expected");
    }

    void ButtonsAreOfferedWhereTheyWork_data() {
        QTest::addColumn<int>("line");
        QTest::addColumn<bool>("canUp");
        QTest::addColumn<bool>("canDown");
        QTest::newRow("the first line") << 0 << false << true;
        QTest::newRow("in between") << 1 << true << true;
        QTest::newRow("the last line") << 3 << true << false;
    }
    void ButtonsAreOfferedWhereTheyWork() {
        QFETCH(int, line);
        CColumnPage page;
        Open(page);
        Shown(page)->setCurrentRow(line);
        QTEST(Find<QPushButton>(page, "columnUp")->isEnabled(), "canUp");
        QTEST(Find<QPushButton>(page, "columnDown")->isEnabled(), "canDown");
    }

    void NothingLeftToMove() {
        CColumnPage page;
        page.SetDraft({{}, {{0, QStringLiteral("Date")}}, {}}, false);
        page.show();
        QVERIFY(!Find<QPushButton>(page, "takeColumn")->isEnabled());
        QTest::keyClick(Available(page), Qt::Key_Space);
        Press(page, "giveBackColumn");
        QCOMPARE(State(page), QStringLiteral("[Date] / "));
        QVERIFY(!Find<QPushButton>(page, "giveBackColumn")->isEnabled());
        QTest::keyClick(Shown(page), Qt::Key_Space);
        QCOMPARE(State(page), QStringLiteral("[Date] / "));
    }

    void GivesBackWhatWasChosen() {
        CColumnPage page;
        Open(page);
        Press(page, "takeColumn");
        Available(page)->setCurrentRow(2);
        QTest::keyClick(Available(page), Qt::Key_Space);
        const ChosenColumns expected{{{8, QStringLiteral("Rate")}},
                                     {{0, QStringLiteral("Date")},
                                      {4, QStringLiteral("Client")},
                                      {5, QStringLiteral("Project")},
                                      {15, QStringLiteral("Notes")}},
                                     {1, 3}};
        QCOMPARE(page.GetDraft(), expected);
    }

    void MnemonicsComeOnce() {
        const CColumnPage page;
        QStringList letters;
        const auto note = [&letters](const QString& text) {
            const qsizetype mark = text.indexOf(QLatin1Char('&'));
            if (mark >= 0) letters << text[mark + 1].toUpper();
        };
        for (const auto* label : page.findChildren<QLabel*>()) note(label->text());
        for (const auto* button : page.findChildren<QPushButton*>()) note(button->text());
        QCOMPARE(letters.size(), 6);
        QCOMPARE(QSet<QString>(letters.begin(), letters.end()).size(), 6);
    }
};

TEST_CLASS(TestCColumnPage);
#include "TestCColumnPage.moc"
