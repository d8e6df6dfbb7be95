#pragma once

#include <sqlite3.h>

#include <string>
#include <vector>

/// Plain SQLite with the settings under which the program opens its store; every failure ends the process.
class FloorStore {
 public:
    explicit FloorStore(const std::string& path);
    ~FloorStore();
    FloorStore(const FloorStore&) = delete;
    FloorStore& operator=(const FloorStore&) = delete;

    void Run(const std::string& sql);
    [[nodiscard]] sqlite3_stmt* Prepare(const std::string& sql);
    /// One step of a statement: true for a row, false at its end.
    bool Step(sqlite3_stmt* statement);
    /// The only text of a query of one row.
    [[nodiscard]] std::string Text(const std::string& sql);

 private:
    void Demand(bool done, const std::string& what);
    sqlite3* m_db = nullptr;
};

/// A time record as plainly as it can be kept: its 25 columns as integers, floating point numbers and texts.
struct FloorRow {
    int start[6];
    std::string items[4];
    double rate;
    std::string item5;
    double amount;
    int flagsSpansDate[10];  ///< columns 13 to 22; the last three are month, day, year
    std::string notes;
    std::string identity;
};

[[nodiscard]] FloorRow ReadRow(sqlite3_stmt* statement);
void BindRow(sqlite3_stmt* statement, const FloorRow& row);
/// "INSERT INTO time_velmarch VALUES(?,?,...)" for the 25 columns.
[[nodiscard]] std::string InsertSql();
