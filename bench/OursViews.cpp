#include "OursViews.h"

#include "ProcessorTime.h"
#include "SortFloor.h"
#include "app/CVelmarchApp.h"
#include "platform/host/CClock.h"
#include "timers/ActiveTimerSet.h"
#include "viewmodel/list/CRecordListModel.h"
#include "viewmodel/list/StatusSums.h"
#include "viewmodel/tree/CDataTree.h"

#include <algorithm>
#include <cstdio>

namespace {

constexpr int kRounds = 5;

/// Keeps the compiler from dropping a result.
volatile double theResult;

/// The best of some runs, as a line.
template <class Work>
void Measure(const char* name, Work&& work) {
    double best = 0;
    for (int round = 0; round < kRounds; ++round) {
        const double took = Took(work);
        best = round == 0 ? took : std::min(best, took);
    }
    std::printf("%s %.3f\n", name, best);
}

/// Everybody who looks at each record can't but walk through this memory.
void PlainLoop(const CVelmarchDoc& document) {
    double sum = 0;
    document.ForEachVisible([&sum](const CVORec& record) {
        const auto& time = static_cast<const CTRecord&>(record);
        sum +=
            static_cast<double>(time.amount.value) + static_cast<double>(time.spans.effective.decimal.value);
        for (const QString* item : {&time.item1, &time.item2, &time.item3, &time.item4, &time.item5})
            sum += static_cast<double>(item->size());
    });
    theResult = sum;
}

void Sum(const CVelmarchDoc& document) {
    StatusSums sums;
    document.ForEachVisible([&sums](const CVORec& record) { sums.Add(record); });
    theResult = static_cast<double>(sums.SumsText(2, 4).size());
}

void BuildTree(CVelmarchDoc& document, const CCfgStore& settings) {
    CDataTree tree(document, settings);
    tree.Rebuild();
    theResult = static_cast<double>(tree.Root().Children().size());
}

/// The list is sorted from the order of another column each time, the floor from that same order.
void Sort(CRecordListModel& model, const char* ours, const char* floor, int position, int otherPosition) {
    const int column = model.VisibleColumns()[static_cast<std::size_t>(position - 1)];
    std::vector<double> list, keys;
    for (int round = 0; round < kRounds; ++round) {
        model.SortByHeader(otherPosition);
        keys.push_back(SortFloor(model, column));
        list.push_back(Took([&] { model.SortByHeader(position); }));
    }
    std::printf("%s %.3f\n%s %.3f\n", ours, std::ranges::min(list), floor, std::ranges::min(keys));
}

}  // namespace

void MeasureViews(CVelmarchApp& app) {
    CVelmarchDoc& document = app.Document();
    Measure("loop_us", [&] { PlainLoop(document); });
    Measure("sums_us", [&] { Sum(document); });
    Measure("tree_us", [&] { BuildTree(document, app.Settings()); });

    const CSystemClock clock;
    const ActiveTimerSet timers(clock);
    CRecordListModel model(document, timers, app.Settings());
    Measure("list_us", [&] { model.Rebuild(); });
    const std::vector<int>& columns = model.VisibleColumns();
    const auto positionOf = [&columns](int column) {
        return static_cast<int>(std::ranges::find(columns, column) - columns.begin()) + 1;
    };
    const int date = positionOf(Column::kDate), client = positionOf(Column::kItem1);
    Sort(model, "sort_date_us", "sort_date_floor_us", date, client);
    Sort(model, "sort_text_us", "sort_text_floor_us", client, date);
}
