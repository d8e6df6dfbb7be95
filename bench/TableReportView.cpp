#include "TableReportView.h"

#include "Measure.h"
#include "Places.h"
#include "TableLines.h"

#include <string>

using namespace TableLines;

namespace {

/// The goals of the page that a user waits for are those of 10,000 rows.
constexpr int kRowsOfGoals = 10000;

struct ReportTimes {
    double first = 0, find = 0, pdf = 0;
};

/// A figure in milliseconds beside its floor, with a limit at the size that has limits.
void Timed(const Finished& run, const char* name, const std::string& figure, double limit) {
    Limit(name, run.Figure(figure + "_us") / 1000, run.Figure(figure + "_floor_us") / 1000, limit, "ms");
}

ReportTimes Size(const Places& places, int rows) {
    Head("A report of " + std::to_string(rows) + " rows by 10 columns");
    JudgeAs(rows <= kRowsOfGoals ? "MISSED" : "over");
    const Finished run = Run({places.Program("bench-report-view"), std::to_string(rows)});
    Timed(run, "first screen (floor: the widths of all texts)", "first", 300);
    Alone("longest time that the window stands still", run.Figure("longest_us") / 1000, 100, "ms");
    Alone("jump to the end", run.Figure("end_us") / 1000, 300, "ms");
    Alone("a page down", run.Figure("page_us") / 1000, 300, "ms");
    Timed(run, "find (floor: the same in the page's text)", "find", 300);
    Alone("another width", run.Figure("resize_us") / 1000, 300, "ms");
    Alone("memory of the process, page included", run.Figure("memory_bytes") / 1e6, 300, "MB");
    Timed(run, "PDF (floor: the texts alone)", "pdf", 10000);
    return {run.Figure("first_us"), run.Figure("find_us"), run.Figure("pdf_us")};
}

}  // namespace

void ReportViewLines(const Places& places) {
    const ReportTimes small = Size(places, 1000), large = Size(places, kRowsOfGoals),
                      huge = Size(places, 100000);
    Head("Growth of a report from 1,000 to 100,000 rows (exponent; 1 is linear)");
    Growth("first screen", small.first, huge.first, 100);
    Growth("find", small.find, huge.find, 100);
    Growth("PDF from 1,000 to 10,000 rows", small.pdf, large.pdf, 10);
}
