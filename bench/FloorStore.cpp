#include "FloorStore.h"

#include <cstdio>
#include <cstdlib>

namespace {

std::string TextAt(sqlite3_stmt* statement, int column) {
    const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(statement, column));
    return {text, static_cast<std::size_t>(sqlite3_column_bytes(statement, column))};
}

void BindText(sqlite3_stmt* statement, int place, const std::string& text) {
    sqlite3_bind_text(statement, place, text.data(), static_cast<int>(text.size()), SQLITE_STATIC);
}

}  // namespace

FloorStore::FloorStore(const std::string& path) {
    Demand(
        sqlite3_open_v2(path.c_str(), &m_db, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE | SQLITE_OPEN_NOMUTEX,
                        nullptr) == SQLITE_OK,
        path);
    Run("PRAGMA synchronous=EXTRA");
    Run("PRAGMA journal_mode=TRUNCATE");
    Run("PRAGMA cell_size_check=ON");
    Run("PRAGMA mmap_size=0");
}

FloorStore::~FloorStore() {
    sqlite3_close_v2(m_db);
}

void FloorStore::Run(const std::string& sql) {
    Demand(sqlite3_exec(m_db, sql.c_str(), nullptr, nullptr, nullptr) == SQLITE_OK, sql);
}

sqlite3_stmt* FloorStore::Prepare(const std::string& sql) {
    sqlite3_stmt* statement = nullptr;
    Demand(sqlite3_prepare_v2(m_db, sql.c_str(), -1, &statement, nullptr) == SQLITE_OK, sql);
    return statement;
}

bool FloorStore::Step(sqlite3_stmt* statement) {
    const int result = sqlite3_step(statement);
    Demand(result == SQLITE_ROW || result == SQLITE_DONE, "step");
    return result == SQLITE_ROW;
}

std::string FloorStore::Text(const std::string& sql) {
    sqlite3_stmt* statement = Prepare(sql);
    const std::string text = Step(statement) ? TextAt(statement, 0) : std::string();
    sqlite3_finalize(statement);
    return text;
}

void FloorStore::Demand(bool done, const std::string& what) {
    if (done) return;
    std::fprintf(stderr, "bench-floor: %s: %s\n", what.c_str(), sqlite3_errmsg(m_db));
    std::exit(1);
}

FloorRow ReadRow(sqlite3_stmt* statement) {
    FloorRow row;
    int column = 0;
    for (int& number : row.start) number = sqlite3_column_int(statement, column++);
    for (std::string& item : row.items) item = TextAt(statement, column++);
    row.rate = sqlite3_column_double(statement, column++);
    row.item5 = TextAt(statement, column++);
    row.amount = sqlite3_column_double(statement, column++);
    for (int& number : row.flagsSpansDate) number = sqlite3_column_int(statement, column++);
    row.notes = TextAt(statement, column++);
    row.identity = TextAt(statement, column);
    return row;
}

void BindRow(sqlite3_stmt* statement, const FloorRow& row) {
    int place = 1;
    for (const int number : row.start) sqlite3_bind_int(statement, place++, number);
    for (const std::string& item : row.items) BindText(statement, place++, item);
    sqlite3_bind_double(statement, place++, row.rate);
    BindText(statement, place++, row.item5);
    sqlite3_bind_double(statement, place++, row.amount);
    for (const int number : row.flagsSpansDate) sqlite3_bind_int(statement, place++, number);
    BindText(statement, place++, row.notes);
    BindText(statement, place, row.identity);
}

std::string InsertSql() {
    std::string sql = "INSERT INTO time_velmarch VALUES(?";
    for (int column = 1; column < 25; ++column) sql += ",?";
    return sql + ")";
}
