#include "shell/frame/CProgressBox.h"

#include "lang/LoadText.h"
#include "support/TestProgram.h"

#include <QApplication>
#include <QLabel>
#include <QProgressBar>
#include <QProgressDialog>
#include <QPushButton>
#include <QTest>
#include <QWidget>
#include <functional>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int kLongEnough = 600;  // milliseconds

using Cancel = std::function<void(QProgressDialog&)>;

QProgressDialog* TheBox() {
    return qobject_cast<QProgressDialog*>(QApplication::activeModalWidget());
}

}  // namespace

/// The box over long work.
class TestCProgressBox final : public QObject {
    Q_OBJECT

    QWidget m_window;

 private Q_SLOTS:
    void initTestCase() {
        QVERIFY(LoadLanguageLibrary(QStringLiteral(TEST_BIN_DIR)));
        m_window.show();
    }

    void shortWorkShowsNothing() {
        CProgressBox box(m_window);
        box.Begin(u"Reading"_s, 3);
        QVERIFY(box.Advance() && box.Advance());
        QTest::qWait(kLongEnough);
        QVERIFY(!TheBox());
        box.End();
        QVERIFY(!TheBox());
    }

    void longWorkSaysWhatAndHowFar() {
        CProgressBox box(m_window);
        box.Begin(u"Reading 40 records"_s, 40);
        QTest::qWait(kLongEnough);
        for (int step = 0; step < 10; ++step) QVERIFY(box.Advance());
        QProgressDialog* shown = TheBox();
        QVERIFY(shown && shown->isVisible());
        QCOMPARE(shown->windowTitle(), u"Velmarch"_s);
        QCOMPARE(shown->findChild<QLabel*>()->text(), u"Reading 40 records"_s);
        QCOMPARE(shown->findChild<QProgressBar*>()->value(), 10);
        QCOMPARE(shown->findChild<QProgressBar*>()->maximum(), 40);
        QCOMPARE(shown->findChild<QPushButton*>()->text(), LoadText(Text::ActionCancel));
        box.End();
        QVERIFY(!TheBox());
    }

    void cancelEndsTheWork_data() {
        QTest::addColumn<Cancel>("cancel");
        const auto row = [](const char* name, const Cancel& cancel) { QTest::newRow(name) << cancel; };
        row("the button", [](QProgressDialog& shown) {
            QTest::mouseClick(shown.findChild<QPushButton*>(), Qt::LeftButton);
        });
        row("Escape", [](QProgressDialog& shown) { QTest::keyClick(&shown, Qt::Key_Escape); });
        row("the cross of the window", [](QProgressDialog& shown) { shown.close(); });
    }
    void cancelEndsTheWork() {
        QFETCH(Cancel, cancel);
        CProgressBox box(m_window);
        box.Begin(u"Reading"_s, 40);
        QTest::qWait(kLongEnough);
        QVERIFY(box.Advance());
        QProgressDialog* shown = TheBox();
        QVERIFY(shown && QTest::qWaitForWindowActive(shown));
        cancel(*shown);
        QVERIFY(!box.Advance());
        QVERIFY(!box.Advance());
        box.End();
        // The next work is none that was cancelled.
        box.Begin(u"Writing"_s, 2);
        QVERIFY(box.Advance());
        box.End();
    }
};

TEST_CLASS(TestCProgressBox);
#include "TestCProgressBox.moc"
