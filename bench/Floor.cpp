// What can't be undercut: small programs on the plain C interface of SQLite, over the same store file.
// Each prints its figures as "name value", a line each.

#include "FloorStore.h"

#include <unistd.h>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <memory>
#include <random>
#include <unordered_map>

namespace {

using Clock = std::chrono::steady_clock;

double MicrosecondsSince(Clock::time_point start) {
    return std::chrono::duration<double, std::micro>(Clock::now() - start).count();
}

void Say(const char* name, double value) {
    std::printf("%s %.3f\n", name, value);
}

double ResidentBytes() {
    std::ifstream statm("/proc/self/statm");
    double size = 0, resident = 0;
    statm >> size >> resident;
    return resident * static_cast<double>(sysconf(_SC_PAGESIZE));
}

std::vector<FloorRow> ReadAll(FloorStore& store) {
    sqlite3_stmt* statement = store.Prepare("SELECT * FROM time_velmarch");
    std::vector<FloorRow> rows;
    while (store.Step(statement)) rows.push_back(ReadRow(statement));
    sqlite3_finalize(statement);
    return rows;
}

/// Keeps the compiler from dropping a result.
volatile std::size_t theResult;

void Filter(const std::vector<FloorRow>& rows) {
    const auto start = Clock::now();
    std::vector<const FloorRow*> passed;
    for (const FloorRow& row : rows)
        if (row.flagsSpansDate[7] == rows.back().flagsSpansDate[7] &&
            row.flagsSpansDate[9] == rows.back().flagsSpansDate[9])
            passed.push_back(&row);
    Say("filter_us", MicrosecondsSince(start));
    theResult = passed.size();
}

void Find(const std::vector<FloorRow>& rows) {
    std::unordered_map<std::string, const FloorRow*> byIdentity;
    byIdentity.reserve(rows.size());
    for (const FloorRow& row : rows) byIdentity.emplace(row.identity, &row);
    std::mt19937 random(1);
    std::vector<std::string> wanted(200000);
    for (std::string& identity : wanted) identity = rows[random() % rows.size()].identity;
    const auto start = Clock::now();
    std::size_t sum = 0;
    for (const std::string& identity : wanted)
        sum += static_cast<std::size_t>(byIdentity.find(identity)->second->start[0]);
    Say("find_ns", MicrosecondsSince(start) * 1000 / static_cast<double>(wanted.size()));
    theResult = sum;
}

/// The same 25 columns into plain texts and numbers, rows kept.
int Load(const std::string& path) {
    const double before = ResidentBytes();
    const auto start = Clock::now();
    FloorStore store(path);
    const std::vector<FloorRow> rows = ReadAll(store);
    Say("load_us", MicrosecondsSince(start));
    Say("bytes", ResidentBytes() - before);
    if (rows.empty()) return 1;
    Filter(rows);
    Find(rows);
    return 0;
}

struct FloorItem {
    int list, type;
    std::string text;
    double number;
    std::string identity;
};

/// The five columns of the list items into plain texts and numbers.
int Items(const std::string& path) {
    const auto start = Clock::now();
    FloorStore store(path);
    sqlite3_stmt* statement = store.Prepare("SELECT * FROM item_velmarch");
    const auto text = [statement](int column) {
        return std::string(reinterpret_cast<const char*>(sqlite3_column_text(statement, column)));
    };
    std::vector<FloorItem> items;
    while (store.Step(statement))
        items.push_back({sqlite3_column_int(statement, 0), sqlite3_column_int(statement, 1), text(2),
                         sqlite3_column_double(statement, 3), text(4)});
    sqlite3_finalize(statement);
    Say("items_us", MicrosecondsSince(start));
    theResult = items.size();
    return 0;
}

/// The same rows into the same schema, with one commit per 10,000.
int Fill(const std::string& source, const std::string& target) {
    std::vector<FloorRow> rows;
    std::string table, index;
    {
        FloorStore store(source);
        table = store.Text("SELECT sql FROM sqlite_schema WHERE type='table' AND name='time_velmarch'");
        index = store.Text(
            "SELECT sql FROM sqlite_schema WHERE type='index' AND sql IS NOT NULL AND "
            "tbl_name='time_velmarch'");
        rows = ReadAll(store);
    }
    FloorStore store(target);
    store.Run(table);
    if (!index.empty()) store.Run(index);
    const auto start = Clock::now();
    sqlite3_stmt* insert = store.Prepare(InsertSql());
    store.Run("BEGIN IMMEDIATE");
    for (std::size_t i = 0; i < rows.size(); ++i) {
        BindRow(insert, rows[i]);
        store.Step(insert);
        sqlite3_reset(insert);
        if ((i + 1) % 10000 == 0) store.Run("COMMIT; BEGIN IMMEDIATE");
    }
    store.Run("COMMIT");
    Say("fill_us", MicrosecondsSince(start));
    sqlite3_finalize(insert);
    return 0;
}

/// What a command that adds one record can't avoid: open, insert, commit.
int Add(const std::string& path) {
    FloorStore store(path);
    sqlite3_stmt* insert = store.Prepare(InsertSql());
    // 09:00 to 10:30 of a day, as a record of the program is: others read it, and write it out.
    FloorRow row{.start = {9, 0, 0, 10, 30, 0},
                 .items = {},
                 .rate = -1,
                 .item5 = {},
                 .amount = -1,
                 .flagsSpansDate = {0, 0, 0, 1, 30, -1, -1, 11, 19, 2026},
                 .notes = "a bare record",
                 .identity = {}};
    char identity[33];
    std::random_device random;
    std::snprintf(
        identity, sizeof identity, "%016llX%08X%08X",
        static_cast<unsigned long long>(std::chrono::system_clock::now().time_since_epoch().count() / 1000000)
            << 16,
        random(), random());
    row.identity = identity;
    BindRow(insert, row);
    store.Run("BEGIN IMMEDIATE");
    store.Step(insert);
    store.Run("COMMIT");
    sqlite3_finalize(insert);
    return 0;
}

/// The rows that a condition finds, into plain texts and numbers.
int Rows(const std::string& path, const std::string& condition) {
    FloorStore store(path);
    sqlite3_stmt* statement = store.Prepare("SELECT * FROM time_velmarch WHERE " + condition);
    std::vector<FloorRow> rows;
    while (store.Step(statement)) rows.push_back(ReadRow(statement));
    sqlite3_finalize(statement);
    Say("rows", static_cast<double>(rows.size()));
    return 0;
}

/// A month, through the index of days.
int Month(const std::string& path, const std::string& year, const std::string& month) {
    return Rows(path, "(year, month, day) BETWEEN (" + year + ", " + month + ", 1) AND (" + year + ", " +
                          month + ", 31)");
}

/// One client in a year, through the same index.
int Client(const std::string& path, const std::string& year, const std::string& name) {
    return Rows(path, "(year, month, day) BETWEEN (" + year + ", 1, 1) AND (" + year +
                          ", 12, 31) AND item1='" + name + "'");
}

/// Minutes per project, of all days or of a year, through the index of days then.
int Projects(const std::string& path, const std::string& year) {
    const std::string days =
        year == "all" ? std::string()
                      : " WHERE (year, month, day) BETWEEN (" + year + ", 1, 1) AND (" + year + ", 12, 31)";
    FloorStore store(path);
    sqlite3_stmt* statement = store.Prepare(
        "SELECT item2, sum(duration_hours * 60 + duration_minutes - max(break_hours, 0) * 60 - "
        "max(break_minutes, 0)) FROM time_velmarch" +
        days + " GROUP BY item2");
    double groups = 0;
    while (store.Step(statement)) groups += 1;
    sqlite3_finalize(statement);
    Say("groups", groups);
    return 0;
}

}  // namespace

int main(int argc, char** argv) {
    const std::vector<std::string> arguments(argv + 1, argv + argc);
    const std::string what = arguments.empty() ? std::string() : arguments[0];
    if (what == "load" && arguments.size() == 2) return Load(arguments[1]);
    if (what == "items" && arguments.size() == 2) return Items(arguments[1]);
    if (what == "fill" && arguments.size() == 3) return Fill(arguments[1], arguments[2]);
    if (what == "add" && arguments.size() == 2) return Add(arguments[1]);
    if (what == "month" && arguments.size() == 4) return Month(arguments[1], arguments[2], arguments[3]);
    if (what == "client" && arguments.size() == 4) return Client(arguments[1], arguments[2], arguments[3]);
    if (what == "projects" && arguments.size() == 3) return Projects(arguments[1], arguments[2]);
    std::fputs(
        "usage: bench-floor load STORE | items STORE | fill SOURCE TARGET | add STORE | month STORE YEAR "
        "MONTH | client STORE YEAR NAME | projects STORE YEAR|all\n",
        stderr);
    return 2;
}
