#include "TableWindow.h"

#include "Places.h"
#include "TableLines.h"

#include <cstdlib>
#include <iterator>
#include <string>
#include <utility>
#include <vector>

using namespace TableLines;

namespace {

/// Each of them does everything many times already.
constexpr int kRuns = 2;

/// A start to the first rows beside what it can't do without: an empty window, and the records.
struct Starts {
    std::vector<double> ours, window, load;
};

void StartLine(const char* name, const Starts& starts, double (*typical)(const std::vector<double>&)) {
    Line(name, typical(starts.ours) / 1000, (typical(starts.window) + typical(starts.load)) / 1000, 1.5,
         "ms");
}

double MedianOf(const std::vector<double>& values) {
    return Median(values);
}

void Start(const Places& places, int size, int rounds) {
    Starts wall, processor;
    for (int round = 0; round < rounds; ++round) {
        const Finished ours = Run({places.Program("bench-window"), "start", places.Home(size)});
        const Finished window = Run({places.Program("bench-empty-window")});
        const Finished load = Run({places.Program("bench-ours"), "load", places.Home(size)});
        wall.ours.push_back(ours.toFirstOutput);
        wall.window.push_back(window.toFirstOutput);
        wall.load.push_back(load.Figure("load_us"));
        processor.ours.push_back(ours.Figure("first_rows_us"));
        processor.window.push_back(window.Figure("first_rows_us"));
        processor.load.push_back(load.Figure("load_processor_us"));
    }
    StartLine("start to first rows, by the clock", wall, MedianOf);
    StartLine("start to first rows, by the processor", processor, Best);
}

/// Beside the same of an earlier version, whose programs somebody has kept. By the processor: that doesn't
/// depend on what else is running.
void StartLikeBefore(const Places& places, int size, int rounds) {
    const char* before = std::getenv("VELMARCH_BENCH_BEFORE");
    if (before == nullptr || *before == '\0') return;
    const std::string programs[] = {places.Program("bench-window"), std::string(before) + "/bench-window"};
    std::vector<double> starts[2];
    for (int round = 0; round < rounds; ++round)
        for (std::size_t i = 0; i < std::size(programs); ++i)
            starts[i].push_back(Run({programs[i], "start", places.Home(size)}).Figure("first_rows_us"));
    Line("start to first rows (floor: the version before)", Best(starts[0]) / 1000, Best(starts[1]) / 1000,
         1.1, "ms");
}

/// The figures of several runs of the window, each the best of them.
class Runs {
 public:
    Runs(const Places& places, int size, int rounds) {
        for (int round = 0; round < rounds; ++round)
            m_runs.push_back(Run({places.Program("bench-window"), "views", places.Home(size)}));
    }
    [[nodiscard]] double Figure(const std::string& name) const {
        std::vector<double> values;
        for (const Finished& run : m_runs) values.push_back(run.Figure(name));
        return Best(values);
    }
    void ShowLine(const char* name, const std::string& figure, double goal) const {
        Line(name, Figure(figure + "_us") / 1000, Figure(figure + "_floor_us") / 1000, goal, "ms");
    }

 private:
    std::vector<Finished> m_runs;
};

}  // namespace

WindowTimes WindowLines(const Places& places, int size, const WindowTimes& former, int starts) {
    Start(places, size, starts);
    StartLikeBefore(places, size, starts);
    (void)Run({places.Program("bench-ours"), "make-expenses", places.Home(size), std::to_string(size / 10)});
    const Runs runs(places, size, kRuns);
    runs.ShowLine("page in columns (floor: a plain table)", "page_columns", 2);
    runs.ShowLine("page in lines (floor: a plain table)", "page_lines", 2);
    const auto click = [&runs](const char* name, const std::string& figure) {
        Line(name, runs.Figure(figure + "_us") / 1000,
             (runs.Figure(figure + "_floor_us") + runs.Figure("page_columns_floor_us")) / 1000, 3, "ms");
    };
    click("click on date header (floor: sort + a page)", "click_date");
    click("click on text header (floor: sort + a page)", "click_text");
    runs.ShowLine("switch to expenses (floor: the document's)", "to_expenses", 1.5);
    runs.ShowLine("switch back to times (floor: the document's)", "to_times", 1.5);
    runs.ShowLine("tick in columns (floor: without timers)", "tick_columns", 2);
    runs.ShowLine("tick in lines (floor: without timers)", "tick_lines", 2);
    const std::pair<const char*, const char*> groups[] = {
        {"day groups in columns: list filled (floor: without)", "groups_columns_fill"},
        {"day groups in columns: a page (floor: without)", "groups_columns_page"},
        {"day groups in columns: a record added (floor: without)", "groups_columns_add"},
        {"day groups in columns: a tick (floor: without)", "groups_columns_tick"},
        {"day groups in columns: date turned (floor: without)", "groups_columns_sort"},
        {"day groups in lines: list filled (floor: without)", "groups_lines_fill"},
        {"day groups in lines: a page (floor: without)", "groups_lines_page"},
        {"day groups in lines: a record added (floor: without)", "groups_lines_add"},
        {"day groups in lines: a tick (floor: without)", "groups_lines_tick"}};
    for (const auto& [name, figure] : groups) runs.ShowLine(name, figure, 1.2);
    runs.ShowLine("a record changed (floor: the document's)", "change", 0);
    const WindowTimes times{runs.Figure("tick_lines_us"), runs.Figure("tick_columns_us")};
    if (former.tickLines > 0) {
        Line("tick in columns (floor: at the former size)", times.tickColumns / 1000,
             former.tickColumns / 1000, 1.5, "ms");
        Line("tick in lines (floor: at the former size)", times.tickLines / 1000, former.tickLines / 1000,
             1.5, "ms");
    }
    Alone("find in the list, the longest key", runs.Figure("find_us") / 1000, 100, "ms");
    Alone("memory of the list, per row", runs.Figure("row_bytes"), 64, "B");
    return times;
}
