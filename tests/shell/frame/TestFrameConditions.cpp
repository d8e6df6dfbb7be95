#include "shell/frame/FrameHome.h"
#include "shell/list/CConditionStrip.h"
#include "shell/look/IconTheme.h"
#include "support/TestProgram.h"
#include "viewmodel/commands/CPeriodCommands.h"

#include <QLabel>
#include <QTemporaryDir>
#include <QToolButton>

using namespace Qt::Literals::StringLiterals;

namespace {

struct Filtered {
    QTemporaryDir folder;
    Window window{folder.path()};

    Filtered() {
        window.frame->Refresh();
        window.Add(18);
        window.Add(19);
    }
    [[nodiscard]] CConditionStrip& Strip() const { return *window.Find<CConditionStrip>("conditionStrip"); }
    [[nodiscard]] TimeFilter& Filter() { return window.app.Document().Filter(); }
    void Apply(const TimeFilter& filter) { CPeriodCommands(window.app.Document()).ApplyFilter(filter); }
    /// What the buttons say, from left to right.
    [[nodiscard]] QString Shown() const {
        QStringList words;
        for (const QToolButton* button : Strip().findChildren<QToolButton*>())
            if (!button->isHidden()) words.append(button->text());
        return words.join(u" | "_s);
    }
    void End(const char* condition) {
        for (QToolButton* button : Strip().findChildren<QToolButton*>())
            if (!button->isHidden() && button->objectName() == QString::fromLatin1(condition))
                return button->click();
        QFAIL("no such condition");
    }
};

}  // namespace

class TestFrameConditions final : public QObject {
    Q_OBJECT

 private Q_SLOTS:
    void initTestCase() {
        QVERIFY(LoadLanguageLibrary(QStringLiteral(TEST_BIN_DIR)));
        ChooseIconTheme();
    }

    void noneWithoutConditions() {
        Filtered filtered;
        QVERIFY(filtered.Strip().isHidden());
        CPeriodCommands(filtered.window.app.Document()).Preset(1);
        QVERIFY(filtered.Strip().isHidden());
    }

    /// Each by its name and with its own end; the period stays.
    void namedAndEnded() {
        Filtered filtered;
        TimeFilter filter = filtered.Filter();
        filter.items[0] = u"Hollis & Sons"_s;
        filter.billable = FlagCriterion::kClear;
        filtered.Apply(filter);
        QVERIFY(filtered.Strip().isVisible());
        QCOMPARE(filtered.Shown(), u"Client: Hollis && Sons | Billable: no"_s);
        QCOMPARE(filtered.window.Find<QLabel>("emptySentence")->text(),
                 u"No record passes this condition: Client: Hollis & Sons (This month)."_s);
        filtered.End("condition0");
        QCOMPARE(filtered.Shown(), u"Billable: no"_s);
        QCOMPARE(filtered.Filter().preset, 4);
        filtered.End("condition0");
        QVERIFY(filtered.Strip().isHidden());
        QCOMPARE(filtered.window.Rows(), 2);
    }

    /// The timer filter takes all days; its end brings the period back, by the cross or by the command.
    void endOfTheTimerFilter_data() {
        QTest::addColumn<bool>("byCommand");
        QTest::newRow("by the cross") << false;
        QTest::newRow("by the command") << true;
    }
    void endOfTheTimerFilter() {
        QFETCH(bool, byCommand);
        Filtered filtered;
        const QString id = filtered.window.Add(19);
        QVERIFY(filtered.window.timers->StartRecordTimer(id));
        filtered.window.frame->RunCommand(Command::kFilterTimers);
        QCOMPARE(filtered.Shown(), u"with a timer"_s);
        QCOMPARE(filtered.window.Rows(), 1);
        QAction* action = filtered.window.frame->findChild<CActions*>()->Action(Command::kFilterTimers);
        QVERIFY(action->isChecked());
        if (byCommand)
            filtered.window.frame->RunCommand(Command::kFilterTimers);
        else
            filtered.End("condition0");
        QCOMPARE(filtered.Filter().preset, 4);
        QCOMPARE(filtered.window.Rows(), 3);
        QVERIFY(!action->isChecked());
        QVERIFY(filtered.Strip().isHidden());
    }

    void theOtherModeHasItsOwn() {
        Filtered filtered;
        TimeFilter filter = filtered.Filter();
        filter.items[0] = u"Hollis"_s;
        filtered.Apply(filter);
        filtered.window.frame->SwitchMode(RecordMode::Expense);
        QVERIFY(filtered.Strip().isHidden());
        filtered.window.frame->SwitchMode(RecordMode::Time);
        QCOMPARE(filtered.Shown(), u"Client: Hollis"_s);
    }
};

TEST_CLASS(TestFrameConditions);
#include "TestFrameConditions.moc"
