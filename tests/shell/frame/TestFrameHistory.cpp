#include "FrameHome.h"
#include "changes/CHistory.h"
#include "platform/sqlite/CSqliteFile.h"
#include "support/TestProgram.h"

#include <QDir>
#include <QTemporaryDir>

using namespace Qt::Literals::StringLiterals;

/// Undo and Redo in the window: menu, keys, list.
class TestFrameHistory final : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void initTestCase() { QVERIFY(LoadLanguageLibrary(QStringLiteral(TEST_BIN_DIR))); }
    void menuNamesTheChange();
    void keysTakeItBackAndAgain();
    void manyRecords();
    void namesOfFields();
    void refusedInWords();
    void passedOver();
    void timerComesBack();
    void changeOfAnotherProgram();

 private:
    [[nodiscard]] static QString Caption(const Window& window, int command) {
        return window.frame->findChild<CActions*>()->Action(command)->text();
    }
    static void Delete(Window& window) {
        window.app.Settings().confirmDelete = 0;
        window.frame->RunCommand(Command::kSelectAll);
        window.frame->RunCommand(Command::kDelete);
    }
    QTemporaryDir m_folder;
    [[nodiscard]] QString Home() {
        const QString home = m_folder.filePath(QString::fromLatin1(QTest::currentTestFunction()));
        return QDir().mkpath(home) ? home : QString();
    }
};

void TestFrameHistory::menuNamesTheChange() {
    Window window(Home());
    window.frame->Refresh();
    QVERIFY(!window.Offers(Command::kUndo) && !window.Offers(Command::kRedo));
    QCOMPARE(Caption(window, Command::kUndo), u"&Undo"_s);
    for (const int day : {17, 18, 19}) window.Add(day);
    window.frame->Refresh();
    Delete(window);
    QVERIFY(window.Offers(Command::kUndo) && !window.Offers(Command::kRedo));
    QCOMPARE(Caption(window, Command::kUndo), u"&Undo: delete 3 records"_s);
    window.frame->RunCommand(Command::kUndo);
    QCOMPARE(Caption(window, Command::kUndo), u"&Undo: add a record"_s);
    QCOMPARE(Caption(window, Command::kRedo), u"&Redo: delete 3 records"_s);
}

void TestFrameHistory::keysTakeItBackAndAgain() {
    Window window(Home());
    for (const int day : {17, 18, 19}) window.Add(day);
    window.frame->Refresh();
    Delete(window);
    QCOMPARE(window.Rows(), 0);
    QTest::keyClick(window.frame.get(), Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(window.Rows(), 3);
    QTest::keyClick(window.frame.get(), Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
    QCOMPARE(window.Rows(), 0);
}

/// More than are read one by one.
void TestFrameHistory::manyRecords() {
    Window window(Home());
    const QString first = window.Add(17);
    constexpr int kRecords = 2 * static_cast<int>(CVelmarchDoc::kMostRefreshed) + 1;
    CTRecord record;
    record.Reset();
    record.date.Set(11, 17, 2026);
    QVERIFY(window.app.Store().BeginBatch());
    for (int number = 0; number < kRecords; ++number) {
        record.GenUnique();
        QVERIFY(window.app.Store().InsertRecord(record, Commit::Later));
    }
    QVERIFY(window.app.Store().Commit());
    window.frame->Refresh();
    // So many are a question, whatever the setting says.
    window.prompt.Expect(Text::AskDeleteRecords, Answer::Yes);
    Delete(window);
    window.prompt.Finish();
    QCOMPARE(window.Rows(), 0);
    window.frame->RunCommand(Command::kUndo);
    QCOMPARE(window.Rows(), kRecords + 1);
    QVERIFY(window.app.Document().FindLoaded(first));
}

void TestFrameHistory::namesOfFields() {
    Window window(Home());
    window.frame->Refresh();
    QVERIFY(window.app.Catalogue().SetNames({{110, u"Matter"_s}}));
    QCOMPARE(window.app.Catalogue().Labels().GetLabel(110), u"Matter"_s);
    window.frame->RunCommand(Command::kUndo);
    QCOMPARE(window.app.Catalogue().Labels().GetLabel(110), u"Project"_s);
}

namespace {

void TouchFromOutside(const QString& home, const QString& id) {
    CVOSrcMgr manager;
    manager.m_directory = home;
    manager.m_fileName = LoadText(Text::StoreFileName);
    eActionDisposition source{}, second{};
    QVERIFY(manager.InitDataSrc(source, second));
    QVERIFY(
        manager.File().Execute("UPDATE time_velmarch SET notes='x' WHERE identity='" + id.toLatin1() + '\''));
}

}  // namespace

void TestFrameHistory::refusedInWords() {
    const QString home = Home();
    Window window(home);
    const QString id = window.Add(19);
    window.frame->Refresh();
    TouchFromOutside(home, id);
    window.prompt.ExpectTold(Text::HistoryTitle);
    window.frame->RunCommand(Command::kUndo);
    QCOMPARE(window.Rows(), 1);
    QVERIFY(window.prompt.told.last().contains(id));
}

/// Of two records the newer one was changed by another program: the older one can be undone in its place.
void TestFrameHistory::passedOver() {
    const QString home = Home();
    Window window(home);
    window.Add(18);
    const QString second = window.Add(19);
    window.frame->Refresh();
    TouchFromOutside(home, second);
    window.frame->Refresh();
    window.prompt.Expect(Text::HistorySkipUndo, Answer::No);
    window.frame->RunCommand(Command::kUndo);
    QCOMPARE(window.Rows(), 2);
    window.prompt.Expect(Text::HistorySkipUndo, Answer::Yes);
    window.frame->RunCommand(Command::kUndo);
    QCOMPARE(window.Rows(), 1);
    QVERIFY(window.app.Document().FindLoaded(second));
}

/// The timer is back in the list with its record.
void TestFrameHistory::timerComesBack() {
    Window window(Home());
    const QString id = window.Add(19);
    window.frame->Refresh();
    QVERIFY(window.timers->StartRecordTimer(id));
    Delete(window);
    QVERIFY(!window.timers->HasTimer(id));
    window.frame->RunCommand(Command::kUndo);
    QCOMPARE(window.Rows(), 1);
    QCOMPARE(window.timers->StateOf(id), TimerState::Running);
}

/// It stands in the menu, and is undone here.
void TestFrameHistory::changeOfAnotherProgram() {
    const QString home = Home();
    Window window(home);
    const QString id = window.Add(19);
    window.frame->Refresh();
    {
        CVOSrcMgr manager;
        manager.m_directory = home;
        manager.m_fileName = LoadText(Text::StoreFileName);
        eActionDisposition source{}, second{};
        QVERIFY(manager.InitDataSrc(source, second));
        CHistory history(home, window.clock, window.app.Settings());
        manager.SetJournal(&history);
        CRecordStore store(manager, window.prompt, u"velmarch"_s);
        QVERIFY(store.DeleteRecord(RecordKind::Time, id));
        manager.SetJournal(nullptr);
    }
    window.frame->Refresh();
    QCOMPARE(window.Rows(), 0);
    QCOMPARE(Caption(window, Command::kUndo), u"&Undo: delete a record"_s);
    window.frame->RunCommand(Command::kUndo);
    QCOMPARE(window.Rows(), 1);
}

TEST_CLASS(TestFrameHistory);
#include "TestFrameHistory.moc"
