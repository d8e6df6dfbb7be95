#include "lang/LoadText.h"
#include "shell/frame/FrameHome.h"
#include "shell/work/CRecentMenu.h"
#include "shell/work/CWorkBar.h"
#include "support/TestProgram.h"

#include <QApplication>
#include <QTemporaryDir>
#include <QToolButton>

using namespace Qt::Literals::StringLiterals;

namespace {

/// Somebody who uses nothing but the work bar, with keys and clicks, and the record dialog for corrections.
class Worker {
 public:
    Worker() {
        m_window.app.Settings().precisionDuration = 2;
        m_window.app.Settings().precisionAmount = 2;
        m_window.frame->Refresh();
        Activate();
    }

    /// November 2026; the 16th is a Monday.
    void At(int day, int hour, int minute) { m_window.clock.Set(2026, 11, day, hour, minute); }
    /// "16:45", on the same day.
    void At(int hour, int minute) { At(m_window.clock.GetLocalTime().wDay, hour, minute); }

    /// Ctrl+J, the words, Enter.
    void Say(const QString& line) {
        Press(Qt::Key_J, Qt::ControlModifier);
        Type(line);
        Press(Qt::Key_Return);
    }
    /// Ctrl+J, some letters, arrow down, Enter: what is proposed first.
    void SayInShort(const QString& letters) {
        Press(Qt::Key_J, Qt::ControlModifier);
        Type(letters);
        Press(Qt::Key_Down);
        Press(Qt::Key_Return);
    }
    /// Ctrl+Shift+J, and the digit.
    void BeginRecent(int number) {
        Press(Qt::Key_J, Qt::ControlModifier | Qt::ShiftModifier);
        Press(static_cast<Qt::Key>(Qt::Key_0 + number));
    }
    /// Ctrl+G on a record of the list.
    void ContinueThe(const QString& id) {
        m_window.List().SelectIds({id});
        Press(Qt::Key_G, Qt::ControlModifier);
    }
    void Pause() { Click("workPause"); }
    void GoOn() { Click("workPause"); }
    void Stop() { Click("workStop"); }
    /// A click on what runs opens it.
    void Correct(const std::function<void(CTRecord&)>& correct) {
        Answer(correct);
        Click("workWords");
    }
    /// Return on a record of the list.
    void CorrectThe(const QString& id, const std::function<void(CTRecord&)>& correct) {
        Answer(correct);
        m_window.List().SelectIds({id});
        m_window.List().setFocus();
        Press(Qt::Key_Return);
    }
    void ShowExpenses() { Press(Qt::Key_2, Qt::ControlModifier); }
    void ShowTimes() {
        Press(Qt::Key_1, Qt::ControlModifier);
        // Without a window manager nobody says which window is in use once a widget with the keyboard hides.
        Activate();
    }

    [[nodiscard]] QString Words() const { return m_window.Find<QToolButton>("workWords")->text(); }
    [[nodiscard]] QString Title() const { return m_window.frame->windowTitle(); }
    [[nodiscard]] QString Status(const char* part) const { return m_window.Status(part); }
    [[nodiscard]] Window& Frame() { return m_window; }
    /// The record whose timer is the newest.
    [[nodiscard]] QString Running() const { return m_window.set->IdAt(m_window.set->Count() - 1); }
    [[nodiscard]] QString Duration(const QString& id) {
        return m_window.app.Document().FindTime(id)->spans.duration.clockText;
    }

 private:
    void Activate() {
        m_window.frame->activateWindow();
        [&] { QVERIFY(QTest::qWaitForWindowActive(m_window.frame.get())); }();
    }
    /// What becomes of the record in the dialog that opens next.
    void Answer(const std::function<void(CTRecord&)>& correct) {
        m_window.dialog = [correct](CTRecord& record) {
            correct(record);
            return true;
        };
    }
    void Press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        QWidget* popup = QApplication::activePopupWidget();
        QWidget* focus = QApplication::focusWidget();
        QTest::keyClick(popup ? popup : focus ? focus : m_window.frame.get(), key, modifiers);
    }
    void Type(const QString& text) { QTest::keyClicks(&m_window.Find<CWorkBar>("workBar")->Line(), text); }
    void Click(const char* button) { QTest::mouseClick(m_window.Find<QToolButton>(button), Qt::LeftButton); }

    QTemporaryDir m_folder;
    Window m_window{m_folder.path()};
};

}  // namespace

/// A week from Monday to Friday.
class TestWeekAtWork final : public QObject {
    Q_OBJECT

    std::unique_ptr<Worker> me;
    QString firstTalk;

 private Q_SLOTS:
    void initTestCase() {
        QVERIFY(LoadLanguageLibrary(QStringLiteral(TEST_BIN_DIR)));
        me = std::make_unique<Worker>();
        me->Frame().frame->RunCommand(Command::kPeriodAll);
    }
    void cleanupTestCase() { me.reset(); }

    /// Nothing is known yet: what is typed is notes, and the clients are entered in the dialog.
    void monday() {
        me->At(16, 8, 0);
        me->Say(u"first talk"_s);
        firstTalk = me->Running();
        me->Correct([](CTRecord& record) {
            record.item1 = u"Acme"_s;
            record.item5 = u"EUR"_s;
            record.SetBillable(true);
            static_cast<void>(record.SetRate(80.0F));
        });
        QCOMPARE(me->Words(), u"Acme · first talk"_s);
        me->At(9, 30);
        me->Stop();
        QCOMPARE(me->Duration(firstTalk), u"1:30"_s);

        me->Say(u"plan"_s);
        const QString plan = me->Running();
        me->Correct([](CTRecord& record) {
            record.item1 = u"Hollis Bakery"_s;
            record.item2 = u"Web Site"_s;
        });
        me->At(12, 0);
        me->Pause();
        me->At(13, 0);
        me->GoOn();
        me->At(15, 0);
        me->Stop();
        QCOMPARE(me->Duration(plan), u"4:30"_s);
        QCOMPARE(me->Status("statusToday"), u"Today 6.00 h"_s);
    }

    /// Both clients are known now, and the first one's terms.
    void tuesday() {
        me->At(17, 8, 15);
        me->BeginRecent(2);
        QCOMPARE(me->Title(), u"0:00 Acme · Velmarch"_s);
        const QString acme = me->Running();
        me->At(10, 15);
        me->Stop();
        QCOMPARE(me->Duration(acme), u"2:00"_s);
        QCOMPARE(me->Frame().app.Document().FindTime(acme)->GetAmountText(), u"160.00"_s);

        me->Say(u"hollis bakery, web site, call"_s);
        QCOMPARE(me->Words(), u"Hollis Bakery · Web Site · call"_s);
        const QString call = me->Running();
        me->At(12, 0);
        me->Pause();
        me->At(12, 45);
        me->GoOn();
        me->At(16, 45);
        me->Stop();
        QCOMPARE(me->Duration(call), u"5:45"_s);
        QCOMPARE(me->Status("statusToday"), u"Today 7.75 h"_s);
    }

    /// Something else comes in between while the first goes on.
    void wednesday() {
        me->At(18, 9, 0);
        me->SayInShort(u"web"_s);
        const QString web = me->Running();
        QCOMPARE(me->Words(), u"Hollis Bakery · Web Site"_s);
        me->At(11, 0);
        me->Say(u"acme"_s);
        const QString acme = me->Running();
        QCOMPARE(me->Words(), u"Acme"_s);
        me->At(12, 0);
        me->Stop();
        QCOMPARE(me->Words(), u"Hollis Bakery · Web Site"_s);
        me->At(13, 0);
        me->Stop();
        QCOMPARE(me->Duration(acme), u"1:00"_s);
        QCOMPARE(me->Duration(web), u"4:00"_s);
        QCOMPARE(me->Status("statusToday"), u"Today 5.00 h"_s);
    }

    void thursday() {
        me->At(19, 9, 0);
        me->ContinueThe(firstTalk);
        QCOMPARE(me->Words(), u"Acme · first talk"_s);
        const QString again = me->Running();
        QVERIFY(again != firstTalk);
        me->At(9, 30);
        me->Stop();
        QCOMPARE(me->Duration(again), u"0:30"_s);

        me->At(10, 0);
        me->Say(u"Acme"_s);
        const QString acme = me->Running();
        me->ShowExpenses();
        me->At(14, 0);
        me->Stop();
        me->ShowTimes();
        QCOMPARE(me->Duration(acme), u"4:00"_s);
        QCOMPARE(me->Status("statusToday"), u"Today 4.50 h"_s);
    }

    /// The pause at noon was forgotten.
    void friday() {
        me->At(20, 9, 0);
        me->Say(u"Acme"_s);
        QCOMPARE(me->Words(), u"Acme"_s);
        QCOMPARE(me->Title(), u"0:00 Acme · Velmarch"_s);
        const QString acme = me->Running();
        me->At(17, 0);
        me->Stop();
        QCOMPARE(me->Duration(acme), u"8:00"_s);
        QCOMPARE(me->Status("statusToday"), u"Today 8.00 h"_s);
        me->CorrectThe(acme, [](CTRecord& record) { record.SetBreak(1, 0); });
        QCOMPARE(me->Status("statusToday"), u"Today 7.00 h"_s);
    }

    /// 6:00 and 7:45, 5:00, 4:30, 7:00. Of these 16 hours were for the client with a rate of 80.
    void theWeek() {
        QCOMPARE(me->Status("statusWeek"), u"Week 30.25 h"_s);
        me->Frame().List().clearSelection();
        QVERIFY2(me->Status("statusSums").startsWith(u"EUR 1,280.00"_s),
                 qPrintable(me->Status("statusSums")));
        QCOMPARE(me->Status("statusCount"), u"9 records"_s);
        QCOMPARE(me->Title(), u"Velmarch"_s);
        QVERIFY(me->Frame().app.Catalogue().Texts(16).isEmpty());
    }
};

TEST_CLASS(TestWeekAtWork);
#include "TestWeekAtWork.moc"
