// Measures every waiting moment beside its floor and prints the table.
//   bench-table PROGRAMS SCRATCH SIZE...

#include "Places.h"
#include "TableExchange.h"
#include "TableLines.h"
#include "TableReportView.h"
#include "TableWindow.h"

#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <filesystem>

using namespace TableLines;

namespace {

namespace fs = std::filesystem;

/// The store that small homes are compared with.
constexpr int kSmall = 1000;
constexpr int kItems = 50000;
constexpr int kSeed = 1;
constexpr int kCommandRounds = 21;

/// "Last month", the preset of the program and the month that it means today.
constexpr const char* kLastMonth = "19";
/// One of the clients of the made-up records.
constexpr const char* kClient = "Alder Clinic";
struct Month {
    int year, month;
};
Month LastMonth() {
    const std::time_t now = std::time(nullptr);
    std::tm local{};
    localtime_r(&now, &local);
    return local.tm_mon == 0 ? Month{local.tm_year + 1899, 12} : Month{local.tm_year + 1900, local.tm_mon};
}

/// What is remembered of a size for the growth at the end.
struct Times {
    double fill = 0, load = 0, filter = 0;
};

/// The goals hold from here on.
constexpr int kLifetime = 1000000;

void FillHome(const Places& places, int size, Times& times, int rounds) {
    std::vector<double> ours, floor;
    const std::string target = places.scratch / "floor.store";
    for (int round = 0; round < rounds; ++round) {
        fs::remove_all(places.Home(size));
        const Command fill{places.Program("bench-ours"), "fill", places.Home(size), std::to_string(size),
                           std::to_string(kSeed)};
        ours.push_back(Run(fill).Figure("fill_us"));
        fs::remove(target);
        floor.push_back(
            Run({places.Program("bench-floor"), "fill", places.Store(size), target}).Figure("fill_us"));
    }
    fs::remove(target);
    times.fill = Best(ours);
    Line("fill with made-up records, per record", times.fill / size, Best(floor) / size, 2, "us");
}

/// Work in memory only gets slower by what else the machine does, so the best run counts.
void InMemory(const Places& places, int size, Times& times) {
    std::vector<double> load[2], bytes[2], filter[2], find[2];
    for (int round = 0; round < 5; ++round) {
        const Finished runs[] = {Run({places.Program("bench-ours"), "load", places.Home(size)}),
                                 Run({places.Program("bench-floor"), "load", places.Store(size)})};
        for (int i = 0; i < 2; ++i) {
            load[i].push_back(runs[i].Figure("load_us"));
            bytes[i].push_back(runs[i].Figure("bytes"));
            filter[i].push_back(runs[i].Figure("filter_us"));
            find[i].push_back(runs[i].Figure("find_ns"));
        }
    }
    times.load = Best(load[0]);
    times.filter = Best(filter[0]);
    Line("load into the document, per record", times.load / size, Best(load[1]) / size, 3, "us");
    Limit("memory, per record", Best(bytes[0]) / size, Best(bytes[1]) / size, 1536, "B");
    Line("filter by month (floor: two compares per row)", times.filter, Best(filter[1]), 0, "us");
    Line("filter by month (floor: the load)", times.filter, times.load, 0.5, "us");
    Limit("find by identity", Best(find[0]), Best(find[1]), 1000, "ns");
}

/// What the window works out before it draws.
void Views(const Places& places, int size) {
    const Finished run = Run({places.Program("bench-ours"), "views", places.Home(size)});
    const auto line = [&run](const char* name, const char* ours, const char* floor, double goal) {
        Line(name, run.Figure(ours) / 1000, run.Figure(floor) / 1000, goal, "ms");
    };
    line("status sums (floor: a plain loop)", "sums_us", "loop_us", 5);
    line("data tree (floor: the same loop)", "tree_us", "loop_us", 5);
    line("list by date (floor: std::sort of ready keys)", "sort_date_us", "sort_date_floor_us", 3);
    line("list by text (floor: std::sort of ready keys)", "sort_text_us", "sort_text_floor_us", 3);
}

/// A new record's identity, out of the JSON of "time add".
std::string AddOne(const Places& places, int size) {
    const std::string json = Run(places.Cli(size, {"--json", "time", "add", "--duration", "1:00"})).output;
    const std::size_t key = json.find("\"id\"");
    const std::size_t first = key == std::string::npos ? key : json.find('"', key + 4);
    if (first == std::string::npos) {
        std::fprintf(stderr, "bench: time add printed no id\n");
        std::exit(1);
    }
    return json.substr(first + 1, 32);
}

void StartTimers(const Places& places, int size) {
    std::vector<double> large, small, bare;
    for (int round = 0; round < kCommandRounds; ++round) {
        const std::string largeId = AddOne(places, size), smallId = AddOne(places, kSmall);
        large.push_back(Run(places.Cli(size, {"timer", "start", largeId})).microseconds);
        small.push_back(Run(places.Cli(kSmall, {"timer", "start", smallId})).microseconds);
        bare.push_back(Run({places.Program("bench-floor"), "add", places.Store(size)}).microseconds);
        (void)Run(places.Cli(size, {"timer", "stop", largeId}));
        (void)Run(places.Cli(kSmall, {"timer", "stop", smallId}));
    }
    Line("timer start (floor: a bare insert)", Median(large) / 1000, Median(bare) / 1000, 3, "ms");
    Line("timer start (floor: itself at 1,000 records)", Median(large) / 1000, Median(small) / 1000, 1.5,
         "ms");
}

/// Those of so many records at most, out of the JSON of "time list".
std::vector<std::string> Identities(const Places& places, int size, int most) {
    const std::string json =
        Run(places.Cli(size, {"--json", "time", "list", "--limit", std::to_string(most)})).output;
    const std::string key = "\"id\": \"";
    std::vector<std::string> ids;
    for (std::size_t at = json.find(key); at != std::string::npos; at = json.find(key, at + 1))
        ids.push_back(json.substr(at + key.size(), 32));
    return ids;
}

/// Each round deletes the records that the one before has brought back.
void Undo(const Places& places, int size) {
    constexpr int kDeleted = 10000, kRounds = 5;
    const std::vector<std::string> ids = Identities(places, size, kDeleted);
    Command gone{"--yes", "time", "delete"};
    gone.insert(gone.end(), ids.begin(), ids.end());
    std::vector<double> deletes, undos;
    for (int round = 0; round < kRounds; ++round) {
        deletes.push_back(Run(places.Cli(size, gone)).microseconds);
        undos.push_back(Run(places.Cli(size, {"undo"})).microseconds);
    }
    Line("undo of 10,000 deletes (floor: the deletes)", Median(undos) / 1000, Median(deletes) / 1000, 2,
         "ms");
}

void Commands(const Places& places, int size) {
    const Command add{"time", "add", "--start", "09:00", "--end", "10:30", "--item1", kClient};
    const std::vector<double> adds =
        InTurns(kCommandRounds, {places.Cli(size, add),
                                 places.Cli(kSmall, add),
                                 {places.Program("bench-floor"), "add", places.Store(size)}});
    Line("time add (floor: a bare insert)", adds[0] / 1000, adds[2] / 1000, 3, "ms");
    Line("time add (floor: itself at 1,000 records)", adds[0] / 1000, adds[1] / 1000, 1.5, "ms");
    StartTimers(places, size);

    const Month month = LastMonth();
    const std::vector<double> lists =
        InTurns(kCommandRounds, {places.Cli(size, {"time", "list", "--period", kLastMonth}),
                                 {places.Program("bench-floor"), "month", places.Store(size),
                                  std::to_string(month.year), std::to_string(month.month)}});
    Line("time list of a month (floor: the bare query)", lists[0] / 1000, lists[1] / 1000, 4, "ms");

    const std::string year = std::to_string(month.year);
    const std::vector<double> clients = InTurns(
        kCommandRounds, {places.Cli(size, {"time", "list", "--from", year + "-01-01", "--to", year + "-12-31",
                                           "--item1", kClient}),
                         {places.Program("bench-floor"), "client", places.Store(size), year, kClient}});
    Line("time list of a client in a year (floor: the bare query)", clients[0] / 1000, clients[1] / 1000, 4,
         "ms");
}

/// Reports as processes of the console, and what they cost over loaded records.
void Reports(const Places& places, int size) {
    const Command report{"report", "run", "--kind", "grouped", "--group", "item2", "--sum", "effective"};
    const std::string year = std::to_string(LastMonth().year);
    Command ofYear = report;
    ofYear.insert(ofYear.end(), {"--from", year + "-01-01", "--to", year + "-12-31"});
    const std::string floor = places.Program("bench-floor");
    const std::vector<double> runs = InTurns(kCommandRounds, {places.Cli(size, report),
                                                              {floor, "projects", places.Store(size), "all"},
                                                              places.Cli(size, ofYear),
                                                              {floor, "projects", places.Store(size), year}});
    Line("report: hours per project (floor: the bare GROUP BY)", runs[0] / 1000, runs[1] / 1000, 2, "ms");
    Line("report: the same of a year", runs[2] / 1000, runs[3] / 1000, 2, "ms");
    const Finished run = Run({places.Program("bench-ours"), "reports", places.Home(size)});
    const auto line = [&run](const char* name, const char* ours, const char* bare) {
        Line(name, run.Figure(ours) / 1000, run.Figure(bare) / 1000, 3, "ms");
    };
    line("report: sort by text and date (floor: std::sort of ready keys)", "report_sort_us",
         "report_sort_floor_us");
    line("report: groups (floor: a loop that hashes both texts)", "report_groups_us",
         "report_groups_floor_us");
    line("report: page of 100,000 rows (floor: appending it)", "report_page_us", "report_page_floor_us");
}

/// The pick lists of a home with many items; no records.
void ListItems(const Places& places) {
    Head(std::to_string(kItems) + " list items");
    JudgeAs("MISSED");
    const fs::path home = places.scratch / "items";
    (void)Run({places.Program("bench-ours"), "make-items", home, std::to_string(kItems)});
    std::vector<double> ours, floor;
    for (int round = 0; round < 7; ++round) {
        ours.push_back(Run({places.Program("bench-ours"), "items", home}).Figure("items_us"));
        floor.push_back(
            Run({places.Program("bench-floor"), "items", home / "velmarch.store"}).Figure("items_us"));
    }
    Line("catalogue load (floor: the bare query)", Best(ours) / 1000, Best(floor) / 1000, 3, "ms");
    fs::remove_all(home);
}

void ProcessStart(const Places& places) {
    JudgeAs("MISSED");
    Head("Start of a process");
    const std::vector<double> starts =
        InTurns(61, {{places.Program("velmarch-cli"), "--version"},
                     {places.Program("velmarch-cli"), "--home", places.Home(kSmall), "day", "today"},
                     {places.Program("bench-empty")}});
    Line("velmarch-cli --version", starts[0] / 1000, starts[2] / 1000, 1.5, "ms");
    Line("velmarch-cli day today", starts[1] / 1000, starts[2] / 1000, 1.5, "ms");
}

void GrowthOf(const std::vector<int>& sizes, const std::vector<Times>& times) {
    for (std::size_t i = 1; i < sizes.size(); ++i) {
        Head("Growth from " + std::to_string(sizes[i - 1]) + " to " + std::to_string(sizes[i]) +
             " records (exponent; 1 is linear)");
        const int factor = sizes[i] / sizes[i - 1];
        Growth("fill", times[i - 1].fill, times[i].fill, factor);
        Growth("load", times[i - 1].load, times[i].load, factor);
        Growth("filter", times[i - 1].filter, times[i].filter, factor);
    }
}

}  // namespace

int main(int argc, char** argv) {
    if (argc < 4) {
        std::fputs("usage: bench-table PROGRAMS SCRATCH SIZE...\n", stderr);
        return 2;
    }
    const Places places{argv[1], argv[2]};
    std::vector<int> sizes;
    for (int i = 3; i < argc; ++i) sizes.push_back(std::atoi(argv[i]));

    Head(std::to_string(kSmall) + " records");
    JudgeAs("over");
    Times small;
    FillHome(places, kSmall, small, 5);
    ProcessStart(places);
    ListItems(places);
    JudgeAs("over");
    std::vector<Times> times(sizes.size());
    WindowTimes window;
    for (std::size_t i = 0; i < sizes.size(); ++i) {
        Head(std::to_string(sizes[i]) + " records");
        JudgeAs(sizes[i] >= kLifetime ? "MISSED" : "over");
        FillHome(places, sizes[i], times[i], sizes[i] >= kLifetime ? 2 : 4);
        InMemory(places, sizes[i], times[i]);
        Views(places, sizes[i]);
        Commands(places, sizes[i]);
        Undo(places, sizes[i]);
        Reports(places, sizes[i]);
        ExchangeLines(places, sizes[i]);
        window = WindowLines(places, sizes[i], window, sizes[i] >= kLifetime ? 3 : 7);
        fs::remove_all(places.Home(sizes[i]));
    }
    GrowthOf(sizes, times);
    ReportViewLines(places);
    return 0;
}
