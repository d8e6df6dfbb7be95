#include "changes/CProgress.h"
#include "changes/CRecordChanges.h"
#include "changes/CTimersOfRecords.h"
#include "lists/LabelChanges.h"
#include "shell/commands/CButtonChooser.h"
#include "shell/commands/CPalette.h"
#include "shell/controls/AskText.h"
#include "shell/controls/CCalendarPopup.h"
#include "shell/controls/CColourPopup.h"
#include "shell/controls/CPickDialog.h"
#include "shell/controls/CSpanPopup.h"
#include "shell/controls/CTimePopup.h"
#include "shell/frame/CAboutDialog.h"
#include "shell/frame/ModalUser.h"
#include "shell/guide/CGuideDialog.h"
#include "shell/lists/CLabelPreview.h"
#include "shell/lists/CLabelsDialog.h"
#include "shell/lists/CListsDialog.h"
#include "shell/lists/CPulldownDepDlg.h"
#include "shell/options/CAppearancePage.h"
#include "shell/options/CColumnsDialog.h"
#include "shell/options/COptionsDialog.h"
#include "shell/options/ListFontDialog.h"
#include "shell/record/CCodedTextDialog.h"
#include "shell/record/CDefaultsDialog.h"
#include "shell/record/CExpenseDialog.h"
#include "shell/record/COdometerDialog.h"
#include "shell/record/CRecordDialog.h"
#include "shell/record/DialogHome.h"
#include "support/TestProgram.h"
#include "viewmodel/guide/CGuide.h"

#include <QAccessible>
#include <QComboBox>
#include <QFontDialog>
#include <QListView>
#include <QPlainTextEdit>
#include <QSpinBox>
#include <QTreeView>
#include <memory>

using namespace Qt::Literals::StringLiterals;

namespace {

using Look = std::function<void(QWidget& window)>;

/// A dialog or popup of the program, opened over a home; look gets it while it is shown.
struct WindowRow {
    const char* name;
    void (*open)(DialogHome& home, const Look& look);
    /// The fields without words of their own beside them, each a key away from what has some: the second part
    /// of a row, the notes that are their page, a search line that has the focus at first, and its list.
    const char* withoutWords = "";
};

void ShowAndLook(DialogHome& home, QWidget& window, const Look& look) {
    home.Look(window);
    window.show();
    QVERIFY(QTest::qWaitForWindowActive(&window));
    look(window);
}

void OpenRecord(DialogHome& home, const Look& look) {
    CRecordDialog dialog(home.Context());
    CTRecord record;
    record.GenUnique();
    record.date.Set(11, 19, 2026);
    record.SetBillable(true);
    TimeDraft draft(*home.home.settings);
    draft.Begin(record);
    dialog.SetDraft(draft);
    ShowAndLook(home, dialog, look);
}

/// With a line that has items to add below it.
void OpenDependencies(DialogHome& home, const Look& look) {
    home.Hang(DependencySet::Time, {{16, u"Client A"_s}, {17, u"Alpha"_s}});
    home.AddItems(17, {u"Beta"_s});
    CDependencyEditor editor(*home.home.catalogue, RecordMode::Time);
    CPulldownDepDlg dialog(editor, {.catalogue = *home.home.catalogue,
                                    .settings = *home.home.settings,
                                    .prompt = home.home.prompt,
                                    .renamed = {}});
    auto* tree = dialog.findChild<QTreeView*>(u"dependencyTree"_s);
    tree->setCurrentIndex(tree->model()->index(0, 0, tree->model()->index(0, 0)));
    dialog.findChild<QListView*>(u"candidates"_s)->selectAll();
    tree->setFocus();
    ShowAndLook(home, dialog, look);
}

void OpenExpense(DialogHome& home, const Look& look, bool isDistance) {
    CExpenseDialog dialog(home.Context());
    CERecord record;
    record.GenUnique();
    record.date.Set(11, 19, 2026);
    record.isDistance = isDistance;
    record.flag1 = record.flag3 = true;
    ExpenseDraft draft;
    draft.Begin(record);
    dialog.SetDraft(draft);
    ShowAndLook(home, dialog, look);
}

template <bool isChoosing>
void OpenDefaults(DialogHome& home, const Look& look) {
    CTRecord working;
    CDefaultsDialog dialog(working, isChoosing, home.Context());
    ShowAndLook(home, dialog, look);
}

void OpenOptions(DialogHome& home, const Look& look, const char* row) {
    COptionsDialog dialog(*home.home.settings);
    ShowAndLook(home, dialog, [&look, row](QWidget& window) {
        auto* tree = window.findChild<QTreeView*>(u"optionsTree"_s);
        const QModelIndexList found =
            tree->model()->match(tree->model()->index(0, 0), Qt::DisplayRole, QString::fromLatin1(row), 1,
                                 Qt::MatchExactly | Qt::MatchRecursive);
        tree->setCurrentIndex(found.front());
        QCoreApplication::processEvents();
        look(window);
    });
}

template <CColumnsDialog::Of of>
void OpenColumns(DialogHome& home, const Look& look) {
    CColumnsDialog dialog(of, ColumnHalf::Time, *home.home.settings);
    ShowAndLook(home, dialog, look);
}

void OpenLabels(DialogHome& home, const Look& look) {
    CLabelsDialog dialog(*home.home.catalogue, *home.home.profile);
    ShowAndLook(home, dialog, look);
}

void OpenLabelPreview(DialogHome& home, const Look& look) {
    CLabelPreview dialog({Text::AskLabelsPreset1, Text::AskLabelsPresetTitle, Text::NamesUse},
                         LabelChanges(home.home.catalogue->Labels(), PresetNames(1)), *home.home.profile);
    ShowAndLook(home, dialog, look);
}

TimePicking Picking(DialogHome& home) {
    return {TimeField::Start, home.clockEntry, home.home.clock, home.home.prompt};
}

/// The guide on a page, from 0.
template <int page>
void OpenGuide(DialogHome& home, const Look& look) {
    COwnTimers timers(home.timers);
    CNoProgress progress;
    CRecordChanges changes({.document = *home.home.document,
                            .timers = timers,
                            .catalogue = *home.home.catalogue,
                            .entered = home.entered,
                            .settings = *home.home.settings,
                            .prompt = home.home.prompt,
                            .progress = progress,
                            .partial = CRecordChanges::Partial::Kept});
    CGuide guide({.document = *home.home.document,
                  .timers = home.timers,
                  .settings = *home.home.settings,
                  .catalogue = *home.home.catalogue,
                  .changes = changes,
                  .clock = home.home.clock,
                  .habits = {}});
    CGuideDialog dialog(guide, home.home.prompt, *home.home.profile, nullptr);
    for (int i = 0; i < page; ++i) dialog.accept();
    ShowAndLook(home, dialog, look);
}

template <bool is24Hour>
void OpenTimePad(DialogHome& home, const Look& look) {
    CTimePopup popup(Picking(home), is24Hour, {}, nullptr);
    ShowAndLook(home, popup, look);
}

constexpr WindowRow kWindows[] = {
    {"time record", OpenRecord, "notesField"},
    {"expense", [](DialogHome& home, const Look& look) { OpenExpense(home, look, false); }, "notesField"},
    {"expense of a distance", [](DialogHome& home, const Look& look) { OpenExpense(home, look, true); },
     "notesField"},
    {"odometer",
     [](DialogHome& home, const Look& look) {
         COdometerDialog dialog(home.Context(), {});
         ShowAndLook(home, dialog, look);
     }},
    {"coded texts",
     [](DialogHome& home, const Look& look) {
         CCodedTextDialog dialog(home.Context());
         ShowAndLook(home, dialog, look);
     },
     "item1Name item2Name item3Name"},
    {"defaults, to manage", OpenDefaults<false>, "defaultsList"},
    {"defaults, to choose", OpenDefaults<true>, "defaultsList"},
    {"names of fields", OpenLabels, "timeLabels expenseLabels"},
    {"names of fields, what a set changes", OpenLabelPreview, "changesList"},
    {"options", [](DialogHome& home, const Look& look) { OpenOptions(home, look, "Copy"); },
     "optionsSearch optionsTree"},
    {"options with a list of values",
     [](DialogHome& home, const Look& look) { OpenOptions(home, look, "First day of week"); },
     "optionsSearch optionsTree firstDayOfWeek"},
    {"options with a number",
     [](DialogHome& home, const Look& look) { OpenOptions(home, look, "Last end value"); },
     "optionsSearch optionsTree odometerLastEnd"},
    {"dependencies", OpenDependencies, "candidateSearch"},
    {"columns of the list", OpenColumns<CColumnsDialog::Of::List>},
    {"levels of the tree", OpenColumns<CColumnsDialog::Of::Tree>},
    {"a choice with a search",
     [](DialogHome& home, const Look& look) {
         CPickDialog dialog({.title = u"Client"_s, .rows = {u"A"_s, u"B"_s}, .present = 0},
                            *home.home.profile);
         ShowAndLook(home, dialog, look);
     },
     "searchLine searchRows"},
    {"a choice without a search",
     [](DialogHome& home, const Look& look) {
         CPickDialog dialog({.title = u"Client"_s, .rows = {u"A"_s}, .present = 0, .hasSearch = false},
                            *home.home.profile);
         ShowAndLook(home, dialog, look);
     },
     "searchRows"},
    {"the palette of commands",
     [](DialogHome& home, const Look& look) {
         CommandState state;
         CPalette dialog(PaletteEntries(state, FieldLabels()), *home.home.profile);
         ShowAndLook(home, dialog, look);
     },
     "searchLine searchRows"},
    {"buttons of a bar",
     [](DialogHome& home, const Look& look) {
         const FieldLabels labels;
         CButtonChooser dialog(Bar::Records, {103, 102}, {true, labels}, *home.home.profile);
         ShowAndLook(home, dialog, look);
     }},
    {"about",
     [](DialogHome& home, const Look& look) {
         CAboutDialog dialog(home.home.Path(), u"Last good backup: today"_s);
         ShowAndLook(home, dialog, look);
     }},
    {"first steps, the names", OpenGuide<0>},
    {"first steps, the client", OpenGuide<1>},
    {"first steps, the rate", OpenGuide<2>},
    {"first steps, the timer", OpenGuide<3>},
    {"the pick lists",
     [](DialogHome& home, const Look& look) {
         home.AddItems(16, {u"Client A"_s});
         COwnTimers timers(home.timers);
         CNoProgress progress;
         CRecordChanges changes({.document = *home.home.document,
                                 .timers = timers,
                                 .catalogue = *home.home.catalogue,
                                 .entered = home.entered,
                                 .settings = *home.home.settings,
                                 .prompt = home.home.prompt,
                                 .progress = progress,
                                 .partial = CRecordChanges::Partial::Undone});
         CListsDialog dialog({.catalogue = *home.home.catalogue,
                              .store = *home.home.store,
                              .changes = changes,
                              .settings = *home.home.settings,
                              .prompt = home.home.prompt});
         ShowAndLook(home, dialog, look);
     },
     "itemLine items lists"},
    {"a question for a text",
     [](DialogHome&, const Look& look) {
         const ModalUser user([&look](QDialog& dialog) {
             look(dialog);
             dialog.reject();
         });
         QVERIFY(!AskText(nullptr, {u"New default"_s, u"Name"_s, {}}));
     }},
    {"the font of the list",
     [](DialogHome&, const Look& look) {
         const ModalUser user([&look](QDialog& dialog) {
             look(dialog);
             dialog.reject();
         });
         QVERIFY(!AskListFont(nullptr, QFont(u"Sans"_s, 10)));
     }},
    {"time pad, 12 hours", OpenTimePad<false>, "timeControl halfGrid"},
    {"time pad, 24 hours", OpenTimePad<true>, "timeControl"},
    {"pad of a duration",
     [](DialogHome& home, const Look& look) {
         CSpanPopup popup(home.spanEntry, 5, {}, nullptr);
         ShowAndLook(home, popup, look);
     },
     "hourList minuteList"},
    {"colours",
     [](DialogHome& home, const Look& look) {
         CColourPopup popup(0, u"Default"_s, {}, nullptr);
         ShowAndLook(home, popup, look);
     },
     "colourGrid"},
    {"calendar",
     [](DialogHome& home, const Look& look) {
         DateTimeVal day;
         day.SetToday(home.home.clock);
         CCalendarPopup popup(day, 1, nullptr);
         ShowAndLook(home, popup, look);
     },
     "qt_calendar_calendarview"},
};

/// What Tab can come to.
bool TakesTab(const QWidget& widget, const QWidget& window) {
    return widget.isVisibleTo(&window) && widget.isEnabledTo(&window) && !widget.focusProxy() &&
           (widget.focusPolicy() & Qt::TabFocus) == Qt::TabFocus;
}

QString Describe(const QWidget& widget) {
    return QString::fromLatin1(widget.metaObject()->className()) + u' ' + widget.objectName();
}

/// Those of the window's widgets in its tab chain for which a condition doesn't hold.
QString Failing(QWidget& window, const std::function<bool(QWidget&)>& holds) {
    QStringList failing;
    for (QWidget* widget = window.nextInFocusChain(); widget != &window; widget = widget->nextInFocusChain())
        if (widget->window() == &window && TakesTab(*widget, window) && !holds(*widget))
            failing << Describe(*widget);
    return failing.join(u", "_s);
}

bool HasName(QWidget& widget) {
    QAccessibleInterface* spoken = QAccessible::queryAccessibleInterface(&widget);
    return spoken && !spoken->text(QAccessible::Name).isEmpty();
}

/// What the focus comes to by Tab, from where it is until it is there again; each once, though Tab goes
/// through a time field part by part, and through options below one another editor by editor.
QList<QWidget*> TabRound(const QWidget& window, qsizetype most) {
    constexpr qsizetype kParts = 6;
    QList<QWidget*> stops{window.focusWidget()};
    for (qsizetype step = 0; step < most + kParts; ++step) {
        QTest::keyClick(window.focusWidget(), Qt::Key_Tab);
        if (window.focusWidget() == stops.front()) break;
        if (window.focusWidget() != stops.back()) stops << window.focusWidget();
    }
    return stops;
}

QRect PlaceIn(const QWidget& widget, const QWidget& window) {
    return {widget.mapTo(&window, QPoint()), widget.size()};
}

/// Above another widget, or in its row to the left of it.
bool StandsBefore(const QWidget& widget, const QWidget& other, const QWidget& window) {
    const QRect a = PlaceIn(widget, window), b = PlaceIn(other, window);
    if (a.bottom() < b.top()) return true;
    const bool isOneRow = a.top() <= b.bottom() && b.top() <= a.bottom();
    return isOneRow && a.right() < b.left();
}

/// A group of fields of its own to the right of the others is read behind them.
bool BeginsAColumn(const QWidget& widget, const QWidget& before, const QWidget& window) {
    return widget.parentWidget() != before.parentWidget() &&
           widget.parentWidget()->parent() == before.parent() &&
           PlaceIn(widget, window).left() > PlaceIn(before, window).right();
}

/// Something to enter or to choose in, for which there must be a way to get to by its words.
bool IsField(const QWidget& widget) {
    return qobject_cast<const QLineEdit*>(&widget) || qobject_cast<const QComboBox*>(&widget) ||
           qobject_cast<const QAbstractSpinBox*>(&widget) || qobject_cast<const QPlainTextEdit*>(&widget) ||
           qobject_cast<const QAbstractItemView*>(&widget);
}

/// The font dialog is Qt's own: its sample has no words, and Tab comes to it before the writing system.
bool IsOfQt(const QWidget& widget) {
    return qobject_cast<const QFontDialog*>(widget.window()) != nullptr;
}

bool HasBuddy(const QWidget& field, const QWidget& window) {
    const auto labels = window.findChildren<QLabel*>();
    return std::any_of(labels.begin(), labels.end(), [&field](const QLabel* label) {
        return label->buddy() == &field && !QKeySequence::mnemonic(label->text()).isEmpty();
    });
}

}  // namespace

/// Every dialog and popup with keys and a screen reader alone.
class TestAccessibleNames final : public QObject {
    Q_OBJECT

 private:
    static void Rows() {
        QTest::addColumn<int>("row");
        for (std::size_t i = 0; i < std::size(kWindows); ++i)
            QTest::newRow(kWindows[i].name) << static_cast<int>(i);
    }
    /// Looks at a window, and at each page of one that has pages.
    void OnEachPage(const Look& look) const {
        Open([&look](QWidget& window) {
            auto* pages = window.findChild<QTabWidget*>();
            for (int page = 0; page < (pages ? pages->count() : 1); ++page) {
                if (pages) pages->setCurrentIndex(page);
                look(window);
            }
        });
    }
    void Open(const Look& look) const {
        QFETCH(int, row);
        kWindows[row].open(*m_home, look);
        m_home->home.prompt.Finish();
    }

    std::unique_ptr<DialogHome> m_home;  ///< one for all: no dialog changes what another shows

 private Q_SLOTS:
    void initTestCase() { m_home = std::make_unique<DialogHome>(); }
    void cleanupTestCase() { m_home.reset(); }

    void WhatTakesTheFocusHasAName_data() { Rows(); }
    void WhatTakesTheFocusHasAName() {
        OnEachPage([](QWidget& window) { QCOMPARE(Failing(window, HasName), QString()); });
    }

    void FieldsAreReachedByTheirWords_data() { Rows(); }
    void FieldsAreReachedByTheirWords() {
        QFETCH(int, row);
        const QStringList known = QString::fromLatin1(kWindows[row].withoutWords).split(u' ');
        OnEachPage([&known](QWidget& window) {
            const auto isReached = [&](const QWidget& widget) {
                return !IsField(widget) || HasBuddy(widget, window) || known.contains(widget.objectName()) ||
                       IsOfQt(widget);
            };
            QCOMPARE(Failing(window, isReached), QString());
        });
    }

    void TabComesToEverythingAndRoundAgain_data() { Rows(); }
    void TabComesToEverythingAndRoundAgain() {
        OnEachPage([](QWidget& window) {
            QStringList missing = Failing(window, [](QWidget&) { return false; }).split(u", "_s);
            QVERIFY(window.focusWidget());
            const QList<QWidget*> stops = TabRound(window, missing.size());
            for (const QWidget* stop : stops) missing.removeOne(Describe(*stop));
            QCOMPARE(missing, QStringList());
            QCOMPARE(window.focusWidget(), stops.front());
        });
    }

    void TabGoesAsOneReads_data() { Rows(); }
    /// From left to right and from top to bottom, one column of fields after the other, and once back to the
    /// start.
    void TabGoesAsOneReads() {
        OnEachPage([](QWidget& window) {
            if (IsOfQt(window)) return;
            const QList<QWidget*> stops = TabRound(window, 60);
            QStringList back;
            for (qsizetype i = 0; i < stops.size(); ++i) {
                const QWidget& next = *stops[(i + 1) % stops.size()];
                if (StandsBefore(next, *stops[i], window) && !BeginsAColumn(next, *stops[i], window))
                    back << Describe(*stops[i]) + u" to "_s + Describe(next);
            }
            QVERIFY2(back.size() <= 1, qPrintable(back.join(u", "_s)));
        });
    }

    void EscapeClosesAndAsksNothing_data() { Rows(); }
    void EscapeClosesAndAsksNothing() {
        Open([](QWidget& window) {
            QTRY_VERIFY(window.focusWidget());
            QTest::keyClick(window.focusWidget(), Qt::Key_Escape);
            QVERIFY(!window.isVisible());
            if (const auto* dialog = qobject_cast<QDialog*>(&window))
                QCOMPARE(dialog->result(), int(QDialog::Rejected));
        });
    }
};

TEST_CLASS(TestAccessibleNames);
#include "TestAccessibleNames.moc"
