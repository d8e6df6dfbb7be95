#include "shell/COptionsDialog.h"

#include "config/SettingsTable.h"
#include "lang/LoadText.h"
#include "shell/OptionsTable.h"
#include "support/TestHome.h"

#include <QAbstractItemModelTester>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSpinBox>
#include <QTreeView>
#include <QtTest>

/// The options dialog, driven by keys and clicks, and the settings afterwards.
class TestCOptionsDialog : public QObject {
    Q_OBJECT

 private:
    static QTreeView* Tree(const QDialog& dialog) {
        return dialog.findChild<QTreeView*>(QStringLiteral("optionsTree"));
    }
    static void Accept(const QDialog& dialog) {
        QTest::mouseClick(dialog.findChild<QPushButton*>(QStringLiteral("acceptButton")), Qt::LeftButton);
    }

    /// The row with these words one below the other, "Rounding/Start time/Type".
    static QModelIndex Find(const QTreeView& tree, const QString& path) {
        QModelIndex at;
        for (const QString& words : path.split(QLatin1Char('/'))) {
            QModelIndex next;
            for (int row = 0; row < tree.model()->rowCount(at); ++row) {
                const QModelIndex index = tree.model()->index(row, 0, at);
                if (index.data().toString() == words) next = index;
            }
            if (!next.isValid()) return {};
            at = next;
        }
        return at;
    }

    /// All rows in sight, indented by their depth, with what is in their second column.
    static void Collect(const QAbstractItemModel& model, const QModelIndex& parent, const QString& indent,
                        QStringList& out) {
        for (int row = 0; row < model.rowCount(parent); ++row) {
            const QModelIndex index = model.index(row, 0, parent);
            QString line = indent + index.data().toString();
            const QVariant state = index.data(Qt::CheckStateRole);
            if (state.isValid())
                line += state.toInt() == Qt::Checked ? QStringLiteral(" [x]") : QStringLiteral(" [ ]");
            const QString value = index.siblingAtColumn(1).data().toString();
            if (!value.isEmpty()) line += QStringLiteral(" = ") + value;
            out << line;
            Collect(model, index, indent + QLatin1Char(' '), out);
        }
    }
    static QStringList Rows(const QTreeView& tree) {
        QStringList rows;
        Collect(*tree.model(), {}, {}, rows);
        return rows;
    }

    /// Puts the cursor on a row and presses Space, which toggles it or opens its editor.
    static void PressSpace(QTreeView& tree, const QString& path) {
        tree.setFocus();
        tree.setCurrentIndex(Find(tree, path));
        QTest::keyClick(&tree, Qt::Key_Space);
        QCoreApplication::processEvents();
    }

 private Q_SLOTS:
    void FirstRunShowsTheDefaultsInOrder() {
        TestHome home;
        COptionsDialog dialog(*home.settings);
        const QStringList expected{
            QStringLiteral("Confirmation dialogs"),
            QStringLiteral(" Copy [x]"),
            QStringLiteral(" Delete [x]"),
            QStringLiteral(" Mark [x]"),
            QStringLiteral("Data entry"),
            QStringLiteral(" Accumulate duration/breaks upon re-entry [ ]"),
            QStringLiteral(" Add 1 minute upon successive entry [x]"),
            QStringLiteral(" Lock duration when modifying start/end time [ ]"),
            QStringLiteral(" Lock start time when modifying duration [x]"),
            QStringLiteral("Functionality"),
            QStringLiteral(" Refresh on ActiveSync completion [x]"),
            QStringLiteral("Interface"),
            QStringLiteral(" Re-sort record list upon add/modify [x]"),
            QStringLiteral(" Show day/week numbers [x]"),
            QStringLiteral(" Show record dialog upon new timestamp, successive, timer macros [x]"),
            QStringLiteral("Preferences, formatting"),
            QStringLiteral(" Precision"),
            QStringLiteral("  Duration = 4 decimal places"),
            QStringLiteral("  Rates = 3 decimal places"),
            QStringLiteral("  Amounts = 2 decimal places"),
            QStringLiteral(" Rounding"),
            QStringLiteral("  Start time"),
            QStringLiteral("   Type = None"),
            QStringLiteral("   Minutes = 0"),
            QStringLiteral("  End time"),
            QStringLiteral("   Type = None"),
            QStringLiteral("   Minutes = 0"),
            QStringLiteral("  Duration"),
            QStringLiteral("   Type = None"),
            QStringLiteral("   Minutes = 0"),
            QStringLiteral(" Weeknumber type"),
            QStringLiteral("  ISO-8601 [ ]"),
            QStringLiteral("  Simple (2nd week starts on the 8th) [x]"),
            QStringLiteral("  Microsoft 1 (2nd week starts on the first Sunday) [ ]"),
            QStringLiteral("  Microsoft 2 (2nd week starts on the first Monday) [ ]"),
            QStringLiteral(" First day of week = Sunday"),
            QStringLiteral(" Timespan display format = Decimal"),
            QStringLiteral(" Year display format = Short year"),
            QStringLiteral("Timer behavior"),
            QStringLiteral(" Upon a new timer, all running timers should = Continue"),
            QStringLiteral(" Upon application exit, all running timers should = Pause"),
        };
        QCOMPARE(Rows(*Tree(dialog)), expected);
    }

    void EveryRowFitsItsSetting() {
        for (const OptionRow& row : OptionRows()) {
            if (row.kind == OptionKind::Group) continue;
            const SettingRow* setting = FindSetting(QString::fromLatin1(row.setting));
            QVERIFY2(setting, row.setting);
            QCOMPARE(row.kind == OptionKind::Check, setting->type == SettingType::Flag);
            for (const OptionChoice& choice : row.choices)
                QVERIFY2(IsAllowed(*setting, choice.value), row.setting);
        }
    }

    void ModelKeepsItsPromises() {
        TestHome home;
        COptionsDialog dialog(*home.settings);
        QAbstractItemModelTester tester(Tree(dialog)->model(),
                                        QAbstractItemModelTester::FailureReportingMode::QtTest);
        auto* search = dialog.findChild<QLineEdit*>(QStringLiteral("optionsSearch"));
        search->setText(QStringLiteral("round"));
        search->setText(QString());
        QCOMPARE(Rows(*Tree(dialog)).size(), 41);
    }

    void SpaceTurnsACheckBox() {
        TestHome home;
        COptionsDialog dialog(*home.settings);
        dialog.show();
        PressSpace(*Tree(dialog), QStringLiteral("Confirmation dialogs/Delete"));
        QVERIFY(home.settings->confirmDelete);
        Accept(dialog);
        QVERIFY(!home.settings->confirmDelete);
        QCOMPARE(dialog.Changed(), std::vector<int>{1});
    }

    void ClickOnTheWordsTurnsACheckBox() {
        TestHome home;
        COptionsDialog dialog(*home.settings);
        dialog.show();
        QTreeView& tree = *Tree(dialog);
        const QRect words =
            tree.visualRect(Find(tree, QStringLiteral("Data entry/Add 1 minute upon successive entry")));
        QTest::mouseClick(tree.viewport(), Qt::LeftButton, {}, words.center());
        Accept(dialog);
        QVERIFY(!home.settings->addMinuteOnSuccessive);
    }

    void SpaceMarksARadioButtonAndClearsTheOthers() {
        TestHome home;
        COptionsDialog dialog(*home.settings);
        dialog.show();
        const QString group = QStringLiteral("Preferences, formatting/Weeknumber type/");
        PressSpace(*Tree(dialog), group + QStringLiteral("ISO-8601"));
        const QModelIndex old =
            Find(*Tree(dialog), group + QStringLiteral("Simple (2nd week starts on the 8th)"));
        QCOMPARE(old.data(Qt::CheckStateRole).toInt(), int(Qt::Unchecked));
        // Marking the marked one changes nothing.
        PressSpace(*Tree(dialog), group + QStringLiteral("ISO-8601"));
        Accept(dialog);
        QCOMPARE(home.settings->weekNumberType, 0);
    }

    void ChooseFromAComboBox_data() {
        QTest::addColumn<QString>("path");
        QTest::addColumn<QString>("setting");
        QTest::addColumn<int>("steps");
        QTest::addColumn<int>("expected");
        QTest::newRow("a rounding type is stored as 16") << "Preferences, formatting/Rounding/Duration/Type"
                                                         << "roundDurationType" << 1 << 16;
        QTest::newRow("and as 32") << "Preferences, formatting/Rounding/Start time/Type"
                                   << "roundStartType" << 2 << 32;
        QTest::newRow("a number of places") << "Preferences, formatting/Precision/Amounts"
                                            << "precisionAmount" << 2 << 4;
        QTest::newRow("a day of the week") << "Preferences, formatting/First day of week"
                                           << "firstDayOfWeek" << 1 << 1;
        QTest::newRow("a timer action") << "Timer behavior/Upon application exit, all running timers should"
                                        << "timerOnExit" << 1 << 2;
    }
    void ChooseFromAComboBox() {
        QFETCH(QString, path);
        QFETCH(QString, setting);
        QFETCH(int, steps);
        TestHome home;
        COptionsDialog dialog(*home.settings);
        dialog.show();
        PressSpace(*Tree(dialog), path);
        auto* box = dialog.findChild<QComboBox*>(setting);
        QVERIFY(box);
        for (int i = 0; i < steps; ++i) QTest::keyClick(box, Qt::Key_Down);
        Accept(dialog);
        const int stored = static_cast<int>(SettingValue(*home.settings, *FindSetting(setting)));
        QTEST(stored, "expected");
    }

    void TypeANumber_data() {
        QTest::addColumn<QString>("keys");
        QTest::addColumn<int>("expected");
        QTest::newRow("minutes") << "15" << 15;
        QTest::newRow("the most") << "59" << 59;
        QTest::newRow("a number the setting can't have") << "75" << 7;
    }
    void TypeANumber() {
        QFETCH(QString, keys);
        TestHome home;
        COptionsDialog dialog(*home.settings);
        dialog.show();
        QVERIFY(QTest::qWaitForWindowActive(&dialog));
        PressSpace(*Tree(dialog), QStringLiteral("Preferences, formatting/Rounding/End time/Minutes"));
        auto* box = dialog.findChild<QSpinBox*>(QStringLiteral("roundEndMinutes"));
        QVERIFY(box);
        box->selectAll();
        QTest::keyClicks(box, keys);
        Accept(dialog);
        QTEST(home.settings->roundEndMinutes, "expected");
    }

    void StoredValueThatIsNoChoiceShowsNoneAndStays() {
        TestHome home;
        home.settings->roundStartType = 1;
        COptionsDialog dialog(*home.settings);
        const QModelIndex type =
            Find(*Tree(dialog), QStringLiteral("Preferences, formatting/Rounding/Start time/Type"));
        QCOMPARE(type.siblingAtColumn(1).data().toString(), QString());
        dialog.accept();
        QCOMPARE(home.settings->roundStartType, 1);
        QVERIFY(dialog.Changed().empty());
    }

    void CancelChangesNothing() {
        TestHome home;
        COptionsDialog dialog(*home.settings);
        dialog.show();
        PressSpace(*Tree(dialog), QStringLiteral("Confirmation dialogs/Copy"));
        QTest::keyClick(&dialog, Qt::Key_Escape);
        QCOMPARE(dialog.result(), int(QDialog::Rejected));
        QVERIFY(home.settings->confirmCopy);
    }

    void Search_data() {
        QTest::addColumn<QString>("words");
        QTest::addColumn<QString>("expected");
        QTest::newRow("a word of a leaf shows its groups")
            << "amounts"
            << "Preferences, formatting| Precision|  Amounts = 2 decimal places";
        QTest::newRow("a group's word shows its leaves")
            << "confirm"
            << "Confirmation dialogs| Copy [x]| Delete [x]| Mark [x]";
        QTest::newRow("a word of a value") << "thursday"
                                           << "Preferences, formatting| First day of week = Sunday";
        QTest::newRow("two words in any order")
            << "minutes end"
            << "Preferences, formatting| Rounding|  End time|   Minutes = 0";
        QTest::newRow("signs are signs") << "add/modify"
                                         << "Interface| Re-sort record list upon add/modify [x]";
        QTest::newRow("nothing") << "zzz"
                                 << "";
    }
    void Search() {
        QFETCH(QString, words);
        TestHome home;
        COptionsDialog dialog(*home.settings);
        dialog.show();
        auto* search = dialog.findChild<QLineEdit*>(QStringLiteral("optionsSearch"));
        QTest::keyClicks(search, words);
        QTEST(Rows(*Tree(dialog)).join(QLatin1Char('|')), "expected");
        auto* nothing = dialog.findChild<QLabel*>(QStringLiteral("optionsNothing"));
        QCOMPARE(nothing->isVisible(), Rows(*Tree(dialog)).isEmpty());
    }

    void WhatWasChangedIsFoundAndKeptThroughASearch() {
        TestHome home;
        COptionsDialog dialog(*home.settings);
        dialog.show();
        PressSpace(*Tree(dialog), QStringLiteral("Interface/Show day/week numbers"));
        auto* search = dialog.findChild<QLineEdit*>(QStringLiteral("optionsSearch"));
        QTest::keyClicks(search, QStringLiteral("copy"));
        PressSpace(*Tree(dialog), QStringLiteral("Confirmation dialogs/Copy"));
        Accept(dialog);
        QVERIFY(!home.settings->confirmCopy);
    }

    void RemembersItsSize() {
        TestHome home;
        {
            COptionsDialog dialog(*home.settings);
            dialog.show();
            dialog.resize(610, 470);
            dialog.reject();
        }
        COptionsDialog again(*home.settings);
        QCOMPARE(again.size(), QSize(610, 470));
    }

    void RunSavesWhatWasChanged() {
        TestHome home;
        QTimer::singleShot(0, qApp, [] {
            auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
            PressSpace(*Tree(*dialog), QStringLiteral("Confirmation dialogs/Mark"));
            Accept(*dialog);
        });
        QVERIFY(RunOptionsDialog(nullptr, *home.settings, home.prompt));
        QVERIFY(!home.settings->confirmMark);
        CCfgStore fresh(home.tree, *home.profile, home.prompt, home.region, LoadText(Text::BaseKeyPath));
        fresh.LoadValues();
        fresh.KeepStoreUntouched();
        QVERIFY(!fresh.confirmMark);
        QVERIFY(fresh.confirmCopy);
        home.prompt.Finish();
    }
};

QTEST_MAIN(TestCOptionsDialog)
#include "TestCOptionsDialog.moc"
