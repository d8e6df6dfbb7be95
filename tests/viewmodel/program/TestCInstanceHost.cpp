#include "viewmodel/program/CInstanceHost.h"

#include "entry/NamedDefaults.h"
#include "lang/LoadText.h"
#include "records/CERecord.h"
#include "records/CTRecord.h"
#include "support/TestHome.h"
#include "support/TestProgram.h"
#include "timers/CRecordTimers.h"

#include <QJsonArray>
#include <QTest>

using namespace Qt::Literals::StringLiterals;

namespace {

struct Fixture {
    TestHome home;
    ActiveTimerSet set{home.clock};
    CRecordTimers timers{set, *home.document, *home.settings};
    int refreshed = 0, raised = 0, left = 0;
    bool busy = false, dialog = false;
    CInstanceHost host{{*home.document, timers, *home.settings, [this] { ++refreshed; }, [this] { ++raised; },
                        [this] { ++left; }, [this] { return busy; }, [this] { return dialog; }}};
    QString id = home.AddTime(2026, 11, 19, u"09:00"_s);

    Fixture() {
        home.document->LoadRecords(RecordKind::Time);
        home.document->BuildVisible();
        home.views.seen.clear();
    }
    QJsonObject Changed(const QStringList& ids) const {
        return {{u"kind"_s, u"time"_s}, {u"ids"_s, QJsonArray::fromStringList(ids)}};
    }
    /// Another program writes a record into the same store.
    QString AddOutside() {
        TestHome other(home.Path());
        return other.AddTime(2026, 11, 20);
    }
};

}  // namespace

class TestCInstanceHost final : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void comesForward() {
        Fixture fixture;
        QVERIFY(fixture.host.Handle({InstanceCommand::Raise}));
        QCOMPARE(fixture.raised, 1);
    }

    /// A command that comes while the window writes what it has to keep finds nothing to work on any more.
    void refusesWhileTheWindowEnds() {
        Fixture fixture;
        (void)fixture.host.Handle({InstanceCommand::SyncEnd});
        fixture.host.BeginEnd();
        for (const InstanceCommand command : {InstanceCommand::Timer, InstanceCommand::Setting,
                                              InstanceCommand::SyncEnd, InstanceCommand::Exit}) {
            const InstanceReply reply = fixture.host.Handle({command});
            QCOMPARE(reply.reason, ReplyReason::WindowEnds);
            QCOMPARE(reply.words, LoadText(Text::WindowIsEnding));
        }
        QVERIFY(fixture.host.Handle({InstanceCommand::Raise}));
        QTest::qWait(150);
        QCOMPARE(fixture.refreshed, 0);
        QCOMPARE(fixture.left, 0);
        QCOMPARE(fixture.raised, 1);
    }

    /// The record that was added outside appears by itself; nothing else is read.
    void showsAChange() {
        Fixture fixture;
        const QString added = fixture.AddOutside();
        (void)fixture.host.Handle({InstanceCommand::SyncEnd, fixture.Changed({added})});
        QTRY_VERIFY(fixture.home.document->FindTime(added));
        QCOMPARE(fixture.refreshed, 0);
        QCOMPARE(fixture.home.views.seen.last().first, Hint::Added);
    }

    void readsAllWithoutIdentities() {
        Fixture fixture;
        (void)fixture.host.Handle({InstanceCommand::SyncEnd});
        (void)fixture.host.Handle({InstanceCommand::SyncEnd});
        (void)fixture.host.Handle({InstanceCommand::SyncEnd});
        QTRY_COMPARE(fixture.refreshed, 1);
        QTest::qWait(150);
        QCOMPARE(fixture.refreshed, 1);
    }

    /// Records that are gone can't stay on the screen, whatever the user has set about changes from outside.
    void readsAllWhenTheRecordsWereReplaced() {
        Fixture fixture;
        fixture.home.settings->refreshOnSyncEnd = false;
        QVERIFY(fixture.host.Handle({InstanceCommand::Refresh}));
        QTRY_COMPARE(fixture.refreshed, 1);
    }

    void saysWhetherTheRecordsMayBeReplaced() {
        Fixture fixture;
        const InstanceMessage question{InstanceCommand::Refresh, {{u"ask"_s, true}}};
        QVERIFY(fixture.host.Handle(question));
        fixture.dialog = true;
        QCOMPARE(fixture.host.Handle(question).words, LoadText(Text::DialogIsOpen));
        QCOMPARE(fixture.host.Handle(question).reason, ReplyReason::WindowOwns);
        fixture.dialog = false;
        fixture.busy = true;
        QCOMPARE(fixture.host.Handle(question).words, LoadText(Text::WindowIsBusy));
        fixture.busy = false;
        QTest::qWait(150);
        QCOMPARE(fixture.refreshed, 0);
    }

    /// While times are shown, a change of expenses is nothing to see.
    void changedExpensesBesideTimes() {
        Fixture fixture;
        (void)fixture.host.Handle(
            {InstanceCommand::SyncEnd,
             {{u"kind"_s, u"expense"_s}, {u"ids"_s, QJsonArray{u"0123456789ABCDEF0123456789ABCDEF"_s}}}});
        QTest::qWait(150);
        QCOMPARE(fixture.refreshed, 0);
        QVERIFY(fixture.home.views.seen.isEmpty());
    }

    void showsAChangedExpense() {
        Fixture fixture;
        const RecordModeScope mode(RecordMode::Expense);
        fixture.home.document->LoadRecords(RecordKind::Expense);
        fixture.home.document->BuildVisible();
        TestHome other(fixture.home.Path());
        CERecord lunch;
        QString id;
        QVERIFY(other.document->AddRecord(lunch, {Notify::Later, Commit::Now, Identity::New}, &id));
        (void)fixture.host.Handle(
            {InstanceCommand::SyncEnd, {{u"kind"_s, u"expense"_s}, {u"ids"_s, QJsonArray{id}}}});
        QTRY_VERIFY(fixture.home.document->FindExpense(id));
        QCOMPARE(fixture.refreshed, 0);
        QCOMPARE(fixture.home.views.seen.last().first, Hint::Added);
    }

    /// What the console wants changed of the settings is changed here, columns and stored defaults too.
    void changesWhatTheSettingsHold() {
        Fixture fixture;
        const auto ask = [&](const QJsonObject& arguments) {
            return bool(fixture.host.Handle({InstanceCommand::Setting, arguments}));
        };
        QVERIFY(ask({{u"name"_s, u"confirmCopy"_s}, {u"value"_s, 0}}));
        QVERIFY(ask({{u"columns"_s, u"list"_s}, {u"half"_s, u"time"_s}, {u"shown"_s, QJsonArray{4, 0}}}));
        const QByteArray bytes = CTRecord().ToBytes();
        QVERIFY(ask({{u"defaults"_s, u"time"_s},
                     {u"action"_s, u"write"_s},
                     {u"name"_s, u"Mine"_s},
                     {u"record"_s, QString::fromLatin1(bytes.toBase64())}}));
        QVERIFY(!ask({{u"columns"_s, u"menu"_s}}));
        QVERIFY(!fixture.home.settings->confirmCopy);
        QCOMPARE(fixture.home.settings->ListColumns().Order(ColumnHalf::Time), (std::vector<int>{4, 0}));
        const NamedDefaults defaults(*fixture.home.settings, fixture.home.clock, RecordMode::Time);
        QCOMPARE(defaults.Names().first(), u"Mine"_s);
        QTRY_COMPARE(fixture.refreshed, 1);
    }

    void notWhenItIsSwitchedOff() {
        Fixture fixture;
        fixture.home.settings->refreshOnSyncEnd = false;
        (void)fixture.host.Handle({InstanceCommand::SyncEnd});
        QTest::qWait(150);
        QCOMPARE(fixture.refreshed, 0);
    }

    void waitsWhileRecordsAreRead() {
        Fixture fixture;
        fixture.busy = true;
        (void)fixture.host.Handle({InstanceCommand::SyncEnd});
        QTest::qWait(200);
        QCOMPARE(fixture.refreshed, 0);
        const InstanceReply answer =
            fixture.host.Handle({InstanceCommand::Timer, {{u"action"_s, u"status"_s}}});
        QCOMPARE(answer.reason, ReplyReason::WindowOwns);
        fixture.busy = false;
        QTRY_COMPARE(fixture.refreshed, 1);
    }

    /// Records are being changed, and a message or the progress lets what waits come in between: it is shown
    /// afterwards, once.
    void waitsWhileRecordsAreChanged() {
        Fixture fixture;
        const QString added = fixture.AddOutside();
        {
            const CVelmarchDoc::ChangeScope changing(*fixture.home.document);
            (void)fixture.host.Handle({InstanceCommand::SyncEnd, fixture.Changed({added})});
            QVERIFY(fixture.host.Handle(
                {InstanceCommand::Setting, {{u"name"_s, u"spanDisplayFormat"_s}, {u"value"_s, 1}}}));
            QTest::qWait(200);
            QCOMPARE(fixture.refreshed, 0);
            QVERIFY(!fixture.home.document->FindTime(added));
            const InstanceReply answer =
                fixture.host.Handle({InstanceCommand::Timer, {{u"action"_s, u"status"_s}}});
            QCOMPARE(answer.reason, ReplyReason::WindowOwns);
        }
        QTRY_COMPARE(fixture.refreshed, 1);
    }

    /// What a dialog shows isn't taken away under it.
    void aWholeRefreshWaitsForADialog_data() {
        QTest::addColumn<bool>("replaced");
        QTest::newRow("everything may have changed") << false;
        QTest::newRow("all records were replaced") << true;
    }
    void aWholeRefreshWaitsForADialog() {
        QFETCH(bool, replaced);
        Fixture fixture;
        fixture.dialog = true;
        QVERIFY(fixture.host.Handle({replaced ? InstanceCommand::Refresh : InstanceCommand::SyncEnd}));
        QTest::qWait(150);
        QCOMPARE(fixture.refreshed, 0);
        fixture.dialog = false;
        QTRY_COMPARE(fixture.refreshed, 1);
        QTest::qWait(150);
        QCOMPARE(fixture.refreshed, 1);
    }

    void listsWaitForADialogButRecordsDont() {
        Fixture fixture;
        fixture.dialog = true;
        const QString added = fixture.AddOutside();
        QJsonObject change = fixture.Changed({added});
        change.insert(u"lists"_s, true);
        (void)fixture.host.Handle({InstanceCommand::SyncEnd, change});
        QTRY_VERIFY(fixture.home.document->FindTime(added));
        QCOMPARE(fixture.refreshed, 0);
        fixture.dialog = false;
        QTRY_COMPARE(fixture.refreshed, 1);
    }

    void runsATimerCommand() {
        Fixture fixture;
        const InstanceReply answer =
            fixture.host.Handle({InstanceCommand::Timer, {{u"action"_s, u"start"_s}, {u"id"_s, fixture.id}}});
        QVERIFY(answer);
        QCOMPARE(fixture.set.StateOf(fixture.id), TimerState::Running);
        const InstanceReply unknown = fixture.host.Handle(
            {InstanceCommand::Timer,
             {{u"action"_s, u"start"_s}, {u"id"_s, u"0123456789ABCDEF0123456789ABCDEF"_s}}});
        QCOMPARE(unknown.reason, ReplyReason::NotFound);
    }

    /// Added outside a moment ago, its timer starts at once: the change is taken in first.
    void timerOfARecordJustAdded() {
        Fixture fixture;
        const QString added = fixture.AddOutside();
        (void)fixture.host.Handle({InstanceCommand::SyncEnd, fixture.Changed({added})});
        const InstanceReply answer =
            fixture.host.Handle({InstanceCommand::Timer, {{u"action"_s, u"start"_s}, {u"id"_s, added}}});
        QVERIFY(answer);
        QVERIFY(fixture.home.document->FindTime(added));
    }

    void changesASetting() {
        Fixture fixture;
        const InstanceReply answer = fixture.host.Handle(
            {InstanceCommand::Setting, {{u"name"_s, u"spanDisplayFormat"_s}, {u"value"_s, 1}}});
        QVERIFY(answer);
        QCOMPARE(fixture.home.settings->spanDisplayFormat, 1);
        QTRY_COMPARE(fixture.refreshed, 1);
        const InstanceReply refused = fixture.host.Handle(
            {InstanceCommand::Setting, {{u"name"_s, u"spanDisplayFormat"_s}, {u"value"_s, 7}}});
        QVERIFY(!refused);
    }

    void leaves() {
        Fixture fixture;
        QVERIFY(fixture.host.Handle({InstanceCommand::Exit}));
        QCOMPARE(fixture.left, 0);  // the answer goes out first
        QTRY_COMPARE(fixture.left, 1);
        QCOMPARE(fixture.raised, 1);
    }

    void doesNotLeaveADialogBehind() {
        Fixture fixture;
        fixture.dialog = true;
        const InstanceReply answer = fixture.host.Handle({InstanceCommand::Exit});
        QVERIFY(!answer);
        QCOMPARE(answer.words, LoadText(Text::DialogIsOpen));
        QTest::qWait(50);
        QCOMPARE(fixture.left, 0);
    }

    void unknownCommand() {
        Fixture fixture;
        QVERIFY(!fixture.host.Handle({InstanceCommand{4711}}));
    }
};

TEST_CLASS(TestCInstanceHost);
#include "TestCInstanceHost.moc"
