#include "shell/options/COptionsDialog.h"

#include "app/FieldLabels.h"
#include "config/SettingsTable.h"
#include "lang/LoadText.h"
#include "shell/options/OptionsTable.h"
#include "support/TestHome.h"
#include "support/TestProgram.h"

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

    /// The row with these words one below the other, "Rounding>Start time>Type".
    static QModelIndex Find(const QTreeView& tree, const QString& path) {
        QModelIndex at;
        for (const QString& words : path.split(QLatin1Char('>'))) {
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
        const QModelIndex row = Find(tree, path);
        if (!row.isValid()) qFatal("no row %s", qPrintable(path));
        tree.setCurrentIndex(row);
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
            QStringLiteral(" Add list item [ ]"),
            QStringLiteral(" Delete list item [x]"),
            QStringLiteral("Data entry"),
            QStringLiteral(" Odometer"),
            QStringLiteral("  Last end value = -1"),
            QStringLiteral("  Suggest as start value [x]"),
            QStringLiteral(" Accumulate duration/breaks upon re-entry [ ]"),
            QStringLiteral(" Add 1 minute upon successive entry [x]"),
            QStringLiteral(" Lock duration when modifying start/end time [ ]"),
            QStringLiteral(" Lock start time when modifying duration [x]"),
            QStringLiteral("Functionality"),
            QStringLiteral(" Use dependencies [ ]"),
            QStringLiteral(" Refresh on ActiveSync completion [x]"),
            QStringLiteral("Import / export"),
            QStringLiteral(" Post-processing"),
            QStringLiteral("  Ask me [x]"),
            QStringLiteral("  Do nothing [ ]"),
            QStringLiteral("  Delete [ ]"),
            QStringLiteral("  Mark as \"exported\" [ ]"),
            QStringLiteral("Interface"),
            QStringLiteral(" Re-sort record list upon add/modify [x]"),
            QStringLiteral(" Groups in the list = none"),
            QStringLiteral(" Show day/week numbers [x]"),
            QStringLiteral(" Show record dialog upon new timestamp, successive, timer macros [x]"),
            QStringLiteral(" Closing the window keeps it in the notification area [ ]"),
            QStringLiteral("List item persistence"),
            QStringLiteral(" Time items"),
            QStringLiteral("  Client [x]"),
            QStringLiteral("  Project [x]"),
            QStringLiteral("  Activity [x]"),
            QStringLiteral("  Cost centre [x]"),
            QStringLiteral("  Amount [ ]"),
            QStringLiteral("  Rate [x]"),
            QStringLiteral("  Currency [x]"),
            QStringLiteral(" Expense items"),
            QStringLiteral("  Client [x]"),
            QStringLiteral("  Project [x]"),
            QStringLiteral("  Description [x]"),
            QStringLiteral("  Payment [x]"),
            QStringLiteral("  Amount [ ]"),
            QStringLiteral("  Currency [x]"),
            QStringLiteral("  Distance [x]"),
            QStringLiteral("  Distance Rate [x]"),
            QStringLiteral("Preferences, formatting"),
            QStringLiteral(" Precision"),
            QStringLiteral("  Duration = 4 decimal places"),
            QStringLiteral("  Distances = 2 decimal places"),
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
            QStringLiteral(" Times of day = As the region has it"),
            QStringLiteral(" Distances = As the region has it"),
            QStringLiteral("Timer behavior"),
            QStringLiteral(" Upon a new timer, all running timers should = Continue"),
            QStringLiteral(" Upon application exit, all running timers should = Pause"),
        };
        QCOMPARE(Rows(*Tree(dialog)), expected);
    }

    void ListItemsAreCalledLikeTheirFields() {
        TestHome home;
        FieldLabels labels;
        labels.Set(109, QStringLiteral("Customer"));
        labels.Set(136, QStringLiteral("Sum & tax"));
        const QString times = QStringLiteral("List item persistence>Time items>");
        const QString expenses = QStringLiteral("List item persistence>Expense items>");
        {
            COptionsDialog dialog(*home.settings, &labels);
            dialog.show();
            QVERIFY(Find(*Tree(dialog), times + QStringLiteral("Customer")).isValid());
            QVERIFY(!Find(*Tree(dialog), times + QStringLiteral("Client")).isValid());
            // Without a name of its own a field has the default one.
            QVERIFY(Find(*Tree(dialog), times + QStringLiteral("Project")).isValid());
            QVERIFY(Find(*Tree(dialog), expenses + QStringLiteral("Client")).isValid());
            PressSpace(*Tree(dialog), expenses + QStringLiteral("Sum & tax"));
            Accept(dialog);
            QVERIFY(home.settings->keepExpenseList136);
            QCOMPARE(dialog.Changed(), std::vector<int>{23});
        }
        labels.Set(109, QStringLiteral("Patient"));
        COptionsDialog again(*home.settings, &labels);
        QVERIFY(Find(*Tree(again), times + QStringLiteral("Patient")).isValid());
    }

    void ListItemsWithoutNames() {
        class CNoNames final : public CColumnNames {
            QString ColumnName(int) const override { return {}; }
        };
        TestHome home;
        const CNoNames names;
        COptionsDialog dialog(*home.settings, &names);
        QVERIFY(Find(*Tree(dialog), QStringLiteral("List item persistence>Time items>Client")).isValid());
    }

    void EveryRowFitsItsSetting() {
        for (const OptionRow& row : OptionRows()) {
            QCOMPARE(row.kind == OptionKind::Group, row.setting == nullptr);
            if (row.kind == OptionKind::Group) continue;
            const SettingRow* setting = FindSetting(QString::fromLatin1(row.setting));
            QVERIFY2(setting, row.setting);
            QCOMPARE(row.kind == OptionKind::Check, setting->type == SettingType::Flag);
            for (const ValueChoice& choice : row.choices)
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
        QCOMPARE(Rows(*Tree(dialog)).size(), 76);
    }

    void SpaceTurnsACheckBox() {
        TestHome home;
        COptionsDialog dialog(*home.settings);
        dialog.show();
        PressSpace(*Tree(dialog), QStringLiteral("Confirmation dialogs>Delete"));
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
            tree.visualRect(Find(tree, QStringLiteral("Data entry>Add 1 minute upon successive entry")));
        QTest::mouseClick(tree.viewport(), Qt::LeftButton, {}, words.center());
        Accept(dialog);
        QVERIFY(!home.settings->addMinuteOnSuccessive);
    }

    void SpaceMarksARadioButtonAndClearsTheOthers() {
        TestHome home;
        COptionsDialog dialog(*home.settings);
        dialog.show();
        const QString group = QStringLiteral("Preferences, formatting>Weeknumber type>");
        PressSpace(*Tree(dialog), group + QStringLiteral("ISO-8601"));
        const QModelIndex old =
            Find(*Tree(dialog), group + QStringLiteral("Simple (2nd week starts on the 8th)"));
        QCOMPARE(old.data(Qt::CheckStateRole).toInt(), int(Qt::Unchecked));
        // Marking the marked one changes nothing.
        PressSpace(*Tree(dialog), group + QStringLiteral("ISO-8601"));
        Accept(dialog);
        QCOMPARE(home.settings->weekNumberType, 0);
    }

    /// Setting a check box past its keys, as a screen reader may, sets the option.
    void ACheckBoxSetFromOutside() {
        TestHome home;
        COptionsDialog dialog(*home.settings);
        dialog.show();
        QTreeView& tree = *Tree(dialog);
        const QModelIndex box = Find(tree, QStringLiteral("Confirmation dialogs>Delete"));
        QVERIFY(tree.model()->setData(box, Qt::Checked, Qt::CheckStateRole));
        QCOMPARE(box.data(Qt::CheckStateRole).toInt(), int(Qt::Checked));
        QVERIFY(tree.model()->setData(box, Qt::Unchecked, Qt::CheckStateRole));
        QCOMPARE(box.data(Qt::CheckStateRole).toInt(), int(Qt::Unchecked));
        const QModelIndex radio =
            Find(tree, QStringLiteral("Preferences, formatting>Weeknumber type>ISO-8601"));
        QVERIFY(tree.model()->setData(radio, Qt::Checked, Qt::CheckStateRole));
        Accept(dialog);
        QVERIFY(!home.settings->confirmDelete);
        QCOMPARE(home.settings->weekNumberType, 0);
        QCOMPARE(dialog.Changed().size(), std::size_t{2});
    }

    void PostProcessingIsTheNumberOfItsButton() {
        TestHome home;
        home.settings->exportPostProcessing = 1;
        COptionsDialog dialog(*home.settings);
        dialog.show();
        const QString group = QStringLiteral("Import / export>Post-processing>");
        PressSpace(*Tree(dialog), group + QStringLiteral("Mark as \"exported\""));
        Accept(dialog);
        QCOMPARE(home.settings->exportPostProcessing, 3);
        QCOMPARE(dialog.Changed(), std::vector<int>{67});
    }

    void ChooseFromAComboBox_data() {
        QTest::addColumn<QString>("path");
        QTest::addColumn<QString>("setting");
        QTest::addColumn<int>("steps");
        QTest::addColumn<int>("expected");
        QTest::newRow("a rounding type is stored as 16") << "Preferences, formatting>Rounding>Duration>Type"
                                                         << "roundDurationType" << 1 << 16;
        QTest::newRow("and as 32") << "Preferences, formatting>Rounding>Start time>Type"
                                   << "roundStartType" << 2 << 32;
        QTest::newRow("a number of places") << "Preferences, formatting>Precision>Amounts"
                                            << "precisionAmount" << 2 << 4;
        QTest::newRow("a day of the week") << "Preferences, formatting>First day of week"
                                           << "firstDayOfWeek" << 1 << 1;
        QTest::newRow("a timer action") << "Timer behavior>Upon application exit, all running timers should"
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
        PressSpace(*Tree(dialog), QStringLiteral("Preferences, formatting>Rounding>End time>Minutes"));
        auto* box = dialog.findChild<QSpinBox*>(QStringLiteral("roundEndMinutes"));
        QVERIFY(box);
        box->selectAll();
        QTest::keyClicks(box, keys);
        Accept(dialog);
        QTEST(home.settings->roundEndMinutes, "expected");
    }

    void LastEndOfTheOdometer_data() {
        QTest::addColumn<int>("before");
        QTest::addColumn<QString>("keys");
        QTest::addColumn<int>("expected");
        QTest::newRow("a reading") << -1 << "120450" << 120450;
        QTest::newRow("none any more") << 120450 << "-1" << -1;
    }
    void LastEndOfTheOdometer() {
        QFETCH(int, before);
        QFETCH(QString, keys);
        TestHome home;
        home.settings->odometerLastEnd = before;
        COptionsDialog dialog(*home.settings);
        dialog.show();
        QVERIFY(QTest::qWaitForWindowActive(&dialog));
        PressSpace(*Tree(dialog), QStringLiteral("Data entry>Odometer>Last end value"));
        auto* box = dialog.findChild<QSpinBox*>(QStringLiteral("odometerLastEnd"));
        QVERIFY(box);
        box->selectAll();
        QTest::keyClicks(box, keys);
        Accept(dialog);
        QTEST(home.settings->odometerLastEnd, "expected");
    }

    void StoredValueThatIsNoChoiceSelectsNoRow() {
        TestHome home;
        home.settings->roundStartType = 1;
        COptionsDialog dialog(*home.settings);
        dialog.show();
        PressSpace(*Tree(dialog), QStringLiteral("Preferences, formatting>Rounding>Start time>Type"));
        auto* box = dialog.findChild<QComboBox*>(QStringLiteral("roundStartType"));
        QVERIFY(box);
        QCOMPARE(box->currentIndex(), -1);
        QCOMPARE(box->count(), 3);
        Accept(dialog);
        QCOMPARE(home.settings->roundStartType, 1);
    }

    void StoredValueThatIsNoChoiceShowsNoneAndStays() {
        TestHome home;
        home.settings->roundStartType = 1;
        COptionsDialog dialog(*home.settings);
        const QModelIndex type =
            Find(*Tree(dialog), QStringLiteral("Preferences, formatting>Rounding>Start time>Type"));
        QCOMPARE(type.siblingAtColumn(1).data().toString(), QString());
        dialog.accept();
        QCOMPARE(home.settings->roundStartType, 1);
        QVERIFY(dialog.Changed().empty());
    }

    void CancelChangesNothing() {
        TestHome home;
        COptionsDialog dialog(*home.settings);
        dialog.show();
        PressSpace(*Tree(dialog), QStringLiteral("Confirmation dialogs>Copy"));
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
            << "Confirmation dialogs| Copy [x]| Delete [x]| Mark [x]| Add list item [ ]| Delete list item "
               "[x]";
        QTest::newRow("a word of a value") << "thursday"
                                           << "Preferences, formatting| First day of week = Sunday";
        QTest::newRow("two words in any order")
            << "minutes end"
            << "Preferences, formatting| Rounding|  End time|   Minutes = 0";
        QTest::newRow("signs are signs") << "add/modify"
                                         << "Interface| Re-sort record list upon add/modify [x]";
        QTest::newRow("a radio button") << "ask me"
                                        << "Import / export| Post-processing|  Ask me [x]|  Do nothing [ ]|  "
                                           "Delete [ ]|  Mark as \"exported\" [ ]";
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
        PressSpace(*Tree(dialog), QStringLiteral("Interface>Show day/week numbers"));
        auto* search = dialog.findChild<QLineEdit*>(QStringLiteral("optionsSearch"));
        QTest::keyClicks(search, QStringLiteral("copy"));
        PressSpace(*Tree(dialog), QStringLiteral("Confirmation dialogs>Copy"));
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
            PressSpace(*Tree(*dialog), QStringLiteral("Confirmation dialogs>Mark"));
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

TEST_CLASS(TestCOptionsDialog);
#include "TestCOptionsDialog.moc"
