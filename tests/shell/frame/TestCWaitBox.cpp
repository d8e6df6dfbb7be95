#include "shell/frame/CWaitBox.h"

#include "lang/LoadText.h"
#include "platform/sqlite/CSqliteFile.h"
#include "shell/controls/CBoxPrompt.h"
#include "support/TestProgram.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QLabel>
#include <QMessageBox>
#include <QProgressDialog>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <algorithm>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr SqliteFileKind kKind{.applicationId = 0x54455354, .version = 1, .busySeconds = 30};

QProgressDialog* TheBox() {
    return qobject_cast<QProgressDialog*>(QApplication::activeModalWidget());
}

}  // namespace

/// The box that comes while another program has a file in use.
class TestCWaitBox final : public QObject {
    Q_OBJECT

    /// Two programs with one file; the other one holds it.
    struct Held {
        QTemporaryDir folder;
        CSqliteFile other, file;
        CWaitBudget budget;
        const WaitBudgetScope scope{budget};
        CWaitBox box{budget};

        Held() {
            [&] {
                QCOMPARE(other.Open(folder.filePath(u"store"_s), kKind, true), OpenOutcome::Created);
                QCOMPARE(file.Open(folder.filePath(u"store"_s), kKind, true), OpenOutcome::Existed);
                QVERIFY(other.Execute("BEGIN EXCLUSIVE"));
            }();
        }
    };

 private Q_SLOTS:
    void initTestCase() { QVERIFY(LoadLanguageLibrary(QStringLiteral(TEST_BIN_DIR))); }

    /// It comes after two seconds, says which file is in use, and Cancel ends the wait.
    void Cancelled() {
        Held held;
        QElapsedTimer since;
        since.start();
        qint64 shownAt = 0;
        QString said;
        QTimer user;
        user.setInterval(20);
        connect(&user, &QTimer::timeout, &user, [&] {
            if (!TheBox()) return;
            shownAt = since.elapsed();
            said = TheBox()->labelText();
            TheBox()->findChild<QPushButton*>()->click();
        });
        user.start();
        QVERIFY(!held.file.Begin());
        QVERIFY2(shownAt >= 2000, qPrintable(QString::number(shownAt)));
        QVERIFY(since.elapsed() < 10'000);
        QVERIFY2(said.contains(held.folder.filePath(u"store"_s)), qPrintable(said));
        user.stop();
        QTRY_VERIFY(!QApplication::activeModalWidget());
    }

    /// It goes by itself when the other program is done, and what waited is carried out.
    void TheOtherProgramIsDone() {
        Held held;
        QTimer user;
        user.setInterval(20);
        connect(&user, &QTimer::timeout, &user, [&] {
            if (TheBox()) held.other.Rollback();
        });
        user.start();
        // The other connection is of this process: it may run within the wait of this one, as a test.
        QVERIFY(held.file.Begin());
        user.stop();
        QVERIFY(held.file.Commit());
        QTRY_VERIFY(!QApplication::activeModalWidget());
    }

    /// What failed at its end is told while it still stands; the message stays when it goes.
    void AMessageOutlivesIt() {
        Held held;
        const auto choice = held.box.OnWaiting(u"store"_s, std::chrono::seconds(3));
        QCOMPARE(choice, CWaitListener::Choice::GoOn);
        QVERIFY(TheBox());
        QString said;
        bool isGone = false;
        QTimer::singleShot(400, qApp, [&] {
            auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
            isGone = std::ranges::none_of(QApplication::topLevelWidgets(), [](const QWidget* window) {
                return window->objectName() == u"waiting" && window->isVisible();
            });
            if (!box) return;
            said = box->text();
            box->accept();
        });
        CBoxPrompt().Tell({.textId = 0, .title = u"Velmarch"_s, .text = u"It failed."_s, .actionLabel = {}});
        QCOMPARE(said, u"It failed."_s);
        QVERIFY(isGone);
    }

    void AShortWaitShowsNothing() {
        Held held;
        const auto choice = held.box.OnWaiting(u"store"_s, std::chrono::milliseconds(1900));
        QCOMPARE(choice, CWaitListener::Choice::GoOn);
        QVERIFY(!TheBox());
    }

    /// What comes after the program was idle may wait anew.
    void AnIdleMomentRenewsTheTime() {
        Held held;
        held.budget.Spend(std::chrono::seconds(30));
        QCOMPARE(held.budget.Left().count(), 0);
        QEventLoop idle;
        QTimer::singleShot(20, &idle, &QEventLoop::quit);
        idle.exec();
        QCOMPARE(held.budget.Left(), std::chrono::milliseconds(30'000));
    }
};

TEST_CLASS(TestCWaitBox);
#include "TestCWaitBox.moc"
