#include "WindowMeasures.h"

#include "Painted.h"
#include "PlainList.h"
#include "ProcessorTime.h"
#include "SortFloor.h"
#include "WindowHome.h"
#include "config/CCfgStore.h"
#include "config/ColumnTable.h"
#include "records/CTRecord.h"
#include "shell/list/CListFindBar.h"
#include "viewmodel/program/CTimerTicker.h"

#include <malloc.h>
#include <QCoreApplication>
#include <QHeaderView>
#include <QLineEdit>
#include <QMouseEvent>
#include <QStringView>
#include <algorithm>
#include <cstdio>
#include <functional>
#include <limits>
#include <string>

namespace {

constexpr int kPages = 41;
constexpr int kTicks = 41;
constexpr int kTimers = 1000;
constexpr int kRounds = 5;
constexpr int kChanges = 11;

void Say(const std::string& name, double value) {
    std::printf("%s %.3f\n", name.c_str(), value);
}

double Median(std::vector<double> values) {
    std::ranges::sort(values);
    return values[values.size() / 2];
}

void Press(QWidget& widget, int key) {
    QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier), release(QEvent::KeyRelease, key, Qt::NoModifier);
    QCoreApplication::sendEvent(&widget, &press);
    QCoreApplication::sendEvent(&widget, &release);
}

void Click(QWidget& widget, const QPoint& at) {
    for (const QEvent::Type type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease}) {
        const Qt::MouseButtons held = type == QEvent::MouseButtonPress ? Qt::LeftButton : Qt::NoButton;
        QMouseEvent event(type, at, widget.mapToGlobal(at), Qt::LeftButton, held, Qt::NoModifier);
        QCoreApplication::sendEvent(&widget, &event);
    }
}

/// From the first row down. The first key only goes to the end of what is in sight.
double PageDown(QTableView& view) {
    view.setCurrentIndex(view.model()->index(0, 0));
    view.scrollToTop();
    WaitForPaint(*view.viewport(), [&view] { Press(view, Qt::Key_PageDown); });
    std::vector<double> pages;
    for (int page = 0; page < kPages; ++page)
        pages.push_back(TookToPaint(*view.viewport(), [&view] { Press(view, Qt::Key_PageDown); }));
    return Median(pages);
}

void MeasurePages(WindowHome& home, ListLayout layout, const std::string& name) {
    home.SetLayout(layout);
    Say(name + "_us", PageDown(home.List()));
    PlainList plain(home);
    Say(name + "_floor_us", PageDown(plain.View()));
}

double HeapBytes() {
    const struct mallinfo2 heap = mallinfo2();
    return static_cast<double>(heap.uordblks + heap.hblkhd);
}

/// Of a second list over the same records, which is on the screen before its rows come.
void MeasureRowMemory(WindowHome& home) {
    CRecordListModel model(home.app.Document(), home.set, home.app.Settings());
    CRecordListView view(model, home.app.Settings());
    WaitForPaint(*view.viewport(), [&view] { view.show(); });
    const double before = HeapBytes();
    WaitForPaint(*view.viewport(), [&] {
        model.Rebuild();
        view.ApplyLayout();
    });
    Say("row_bytes", (HeapBytes() - before) / model.rowCount());
}

void ClickHeader(CRecordListView& list, int section) {
    QHeaderView& header = *list.horizontalHeader();
    Click(*header.viewport(),
          {header.sectionViewportPosition(section) + header.sectionSize(section) / 2, header.height() / 2});
}

/// From the order of another column each time, and so the floor.
void MeasureSort(WindowHome& home, int column, int otherColumn, const std::string& name) {
    CRecordListView& list = home.List();
    const CRecordListModel& model = home.Model();
    std::vector<double> ours, floor;
    for (int round = 0; round < kRounds; ++round) {
        WaitForPaint(*list.viewport(), [&] { ClickHeader(list, model.ModelColumnOf(otherColumn)); });
        floor.push_back(SortFloor(model, column));
        ours.push_back(
            TookToPaint(*list.viewport(), [&] { ClickHeader(list, model.ModelColumnOf(column)); }));
        if (model.SortColumn() != column) qFatal("the click on the header has not sorted");
    }
    Say(name + "_us", std::ranges::min(ours));
    Say(name + "_floor_us", std::ranges::min(floor));
}

double Ticks(WindowHome& home) {
    auto& ticker = *home.frame->findChild<CTimerTicker*>();
    std::vector<double> ticks;
    for (int tick = 0; tick < kTicks; ++tick)
        ticks.push_back(TookToPaint(*home.List().viewport(), [&] {
            home.clock.Advance(1);
            ticker.Tick();
        }));
    return std::ranges::min(ticks);
}

/// The same cells painted anew, without a timer in them.
double Repaints(WindowHome& home) {
    const std::vector<int> rows = home.List().ListRowsInSight();
    std::vector<double> repaints;
    for (int repaint = 0; repaint < kTicks; ++repaint)
        repaints.push_back(TookToPaint(*home.List().viewport(), [&] {
            for (const int row : rows) home.Model().TouchTimers(row, row);
        }));
    return std::ranges::min(repaints);
}

void MeasureTicks(WindowHome& home, ListLayout layout, const std::string& name) {
    home.SetLayout(layout);
    home.List().scrollToTop();
    Settle();
    Say(name + "_floor_us", Repaints(home));
    for (int row = 0; row < std::min(kTimers, home.Model().rowCount()); ++row)
        home.set.Start(home.Model().IdAt(row), false, 0, 0, 0);
    home.List().viewport()->update();
    Say(name + "_us", Ticks(home));
    home.set.Clear();
}

/// One record after the other gets another text, as the record dialog does it: the record is selected.
double Changes(WindowHome& home, const std::function<double(const CTRecord&)>& change) {
    std::vector<double> changes;
    for (int row = 0; row < kChanges; ++row) {
        const QString id = home.Model().IdAt(row);
        home.List().SelectIds({id});
        Settle();
        CTRecord record;
        record.Copy(*home.app.Document().FindTime(id));
        record.notes += QStringLiteral(" changed");
        changes.push_back(change(record));
    }
    return Median(changes);
}

/// The list read anew, as after a change of the period.
double Fills(WindowHome& home) {
    std::vector<double> fills;
    for (int round = 0; round < kRounds; ++round)
        fills.push_back(TookToPaint(*home.List().viewport(),
                                    [&home] { home.app.Document().NotifyViews(Hint::Rebuild); }));
    return std::ranges::min(fills);
}

/// A click that turns the order of the dates.
double Turns(WindowHome& home) {
    std::vector<double> turns;
    for (int round = 0; round < kRounds; ++round)
        turns.push_back(TookToPaint(*home.List().viewport(), [&home] {
            ClickHeader(home.List(), home.Model().ModelColumnOf(Column::kDate));
        }));
    return std::ranges::min(turns);
}

/// A record comes and goes, at the end of the list where all heads are above it.
double Additions(WindowHome& home) {
    std::vector<double> additions;
    CTRecord record;
    record.Copy(*home.app.Document().FindTime(home.Model().IdAt(home.Model().rowCount() - 1)));
    for (int round = 0; round < kRounds; ++round) {
        QString id;
        additions.push_back(TookToPaint(*home.List().viewport(), [&] {
            if (!home.app.Document().AddRecord(record, {Notify::Yes, Commit::Now, Identity::New}, &id))
                qFatal("the record can't be added");
        }));
        if (!home.app.Document().DeleteRecord(RecordKind::Time, id, Notify::Yes))
            qFatal("the record can't be deleted");
        Settle();
    }
    return std::ranges::min(additions);
}

double TicksOfThousand(WindowHome& home) {
    for (int row = 0; row < std::min(kTimers, home.Model().rowCount()); ++row)
        home.set.Start(home.Model().IdAt(row), false, 0, 0, 0);
    const double ticks = Ticks(home);
    home.set.Clear();
    return ticks;
}

void MeasureWithGroups(WindowHome& home, ListLayout layout, const std::string& name, int groups) {
    home.app.Settings().listGroups = groups;
    home.SetLayout(layout);
    if (home.List().IsGrouped() != (groups != 0)) qFatal("the list isn't grouped as it should be");
    const std::string end = groups == 0 ? "_floor_us" : "_us";
    Say(name + "_fill" + end, Fills(home));
    Say(name + "_page" + end, PageDown(home.List()));
    Say(name + "_add" + end, Additions(home));
    home.List().scrollToTop();
    Settle();
    Say(name + "_tick" + end, TicksOfThousand(home));
    if (layout == ListLayout::Columns) Say(name + "_sort" + end, Turns(home));
}

/// Words letter by letter, as they are typed: some that stand in texts that repeat, some in notes, and at the
/// end one that nothing has. The longest of the keys, each by its best round.
constexpr QStringView kTyped = u"mull garten agreed confirmedx";

void Type(QWidget& field, QChar letter) {
    QKeyEvent press(QEvent::KeyPress, Qt::Key_unknown, Qt::NoModifier, letter);
    QCoreApplication::sendEvent(&field, &press);
}

double SwitchTo(WindowHome& home, RecordMode mode) {
    return TookToPaint(*home.List().viewport(), [&] { home.frame->SwitchMode(mode); });
}

}  // namespace

void MeasureList(WindowHome& home) {
    MeasureRowMemory(home);
    MeasurePages(home, ListLayout::Columns, "page_columns");
    MeasurePages(home, ListLayout::Lines, "page_lines");
}

void MeasureSorting(WindowHome& home) {
    home.SetLayout(ListLayout::Columns);
    MeasureSort(home, Column::kDate, Column::kItem1, "click_date");
    MeasureSort(home, Column::kItem1, Column::kDate, "click_text");
}

void MeasureGroups(WindowHome& home) {
    home.frame->RunCommand(Command::kPeriodAll);
    for (const int groups : {0, 1}) {
        MeasureWithGroups(home, ListLayout::Columns, "groups_columns", groups);
        MeasureWithGroups(home, ListLayout::Lines, "groups_lines", groups);
    }
    std::vector<double> folds;
    for (int round = 0; round < kRounds; ++round)
        folds.push_back(TookToPaint(*home.List().viewport(), [&] { home.List().Fold(0, round % 2 == 0); }));
    Say("groups_fold_us", std::ranges::min(folds));
    home.app.Settings().listGroups = 0;
}

void MeasureTick(WindowHome& home) {
    MeasureTicks(home, ListLayout::Columns, "tick_columns");
    MeasureTicks(home, ListLayout::Lines, "tick_lines");
}

void MeasureChange(WindowHome& home) {
    home.SetLayout(ListLayout::Lines);
    home.List().scrollToTop();
    CVelmarchDoc& document = home.app.Document();
    const auto modify = [&document](const CTRecord& record, bool notify) {
        if (!document.ModifyRecord(record, record.GetId(),
                                   {notify ? Notify::Yes : Notify::Later, Commit::Now}))
            qFatal("the record can't be changed");
    };
    Say("change_us", Changes(home, [&](const CTRecord& record) {
            return TookToPaint(*home.List().viewport(), [&] { modify(record, true); });
        }));
    Say("change_floor_us",
        Changes(home, [&](const CTRecord& record) { return Took([&] { modify(record, false); }); }));
    document.FlushPending(Hint::Changed);
}

void MeasureFind(WindowHome& home) {
    home.frame->RunCommand(Command::kPeriodAll);
    home.SetLayout(ListLayout::Lines);
    auto& bar = *home.frame->findChild<CListFindBar*>();
    auto& field = *bar.findChild<QLineEdit*>();
    std::vector<double> keys(kTyped.size(), std::numeric_limits<double>::max());
    for (int round = 0; round < kRounds; ++round) {
        bar.Open();
        field.clear();
        for (qsizetype place = 0; place < kTyped.size(); ++place) {
            double& key = keys[static_cast<std::size_t>(place)];
            Settle();
            // Whether the list is painted or, where it is empty, the words in its place.
            key = std::min(key, Took([&] {
                               Type(field, kTyped[place]);
                               QCoreApplication::processEvents();
                           }));
        }
        if (!home.List().ShownIds().isEmpty()) qFatal("what was typed has not narrowed the list");
    }
    Say("find_us", std::ranges::max(keys));
    bar.Close();
}

void MeasureSwitch(WindowHome& home) {
    home.SetLayout(ListLayout::Lines);
    Say("to_expenses_us", SwitchTo(home, RecordMode::Expense));
    Say("to_times_us", SwitchTo(home, RecordMode::Time));
    home.app.Document().SetTimers(nullptr);
    home.frame.reset();
    CVelmarchDoc& document = home.app.Document();
    Say("to_expenses_floor_us", Took([&] { document.SwitchMode(RecordMode::Expense); }));
    Say("to_times_floor_us", Took([&] { document.SwitchMode(RecordMode::Time); }));
}
