#include "records/QueryCursor.h"

#include "platform/host/CBeside.h"
#include "platform/host/Utf8Text.h"
#include "platform/sqlite/CSqliteFile.h"

#include <sqlite3.h>

#include <algorithm>
#include <utility>

namespace {

/// A column counts as what its table declares; one that is computed counts as text.
RowColumnType DeclaredType(const char* declared) {
    if (qstrcmp(declared, "INTEGER") == 0) return RowColumnType::Integer;
    if (qstrcmp(declared, "REAL") == 0) return RowColumnType::Real;
    return RowColumnType::Text;
}

const char* TextOf(sqlite3_stmt* statement, int column) {
    return reinterpret_cast<const char*>(sqlite3_column_text(statement, column));
}

}  // namespace

QueryCursor::QueryCursor() = default;

QueryCursor::~QueryCursor() {
    Close();
}

bool QueryCursor::Open(CSqliteFile& file, sqlite3_stmt* statement, bool buffered) {
    Close();
    m_file = &file;
    m_statement = statement;
    m_table = sqlite3_column_table_name(statement, 0);
    if (!buffered) Describe();
    if (!Step()) return false;
    if (!buffered || !m_statement) return true;
    Describe();
    while (m_statement) {
        std::vector<VARIANT>& row = m_buffer.emplace_back();
        for (int column = 0; column < static_cast<int>(m_types.size()); ++column)
            row.push_back(StatementValue(column));
        if (!Step()) return false;
    }
    return true;
}

/// Columns are described only where somebody may ask: the query that prepares an insert has no rows, and it
/// is run for each record.
void QueryCursor::Describe() {
    for (int column = 0; column < sqlite3_column_count(m_statement); ++column) {
        m_names.push_back(QString::fromUtf8(sqlite3_column_name(m_statement, column)));
        m_types.push_back(DeclaredType(sqlite3_column_decltype(m_statement, column)));
    }
}

void QueryCursor::Close() {
    m_fetching.reset();
    m_fetched.reset();
    if (m_statement) sqlite3_reset(m_statement);
    m_statement = nullptr;
    m_table.clear();
    m_names.clear();
    m_types.clear();
    m_buffer.clear();
    m_at = 0;
}

/// One row on.
bool QueryCursor::Step() {
    return Follow(sqlite3_step(m_statement));
}

/// At the end, and after a failure, the statement lets go of its lock.
bool QueryCursor::Follow(int result) {
    if (result == SQLITE_ROW) return true;
    if (result != SQLITE_DONE) m_file->NoteError();
    sqlite3_reset(m_statement);
    m_statement = nullptr;
    return result == SQLITE_DONE;
}

bool QueryCursor::Next() {
    if (m_statement) return Step();
    if (m_at < m_buffer.size()) ++m_at;
    return true;
}

VARIANT QueryCursor::StatementValue(int column) const {
    switch (m_types[static_cast<std::size_t>(column)]) {
        case RowColumnType::Integer:
            return static_cast<std::int32_t>(sqlite3_column_int64(m_statement, column));
        case RowColumnType::Real:
            return sqlite3_column_double(m_statement, column);
        case RowColumnType::Text:
            break;
    }
    const char* text = TextOf(m_statement, column);
    return TextOfUtf8({text, sqlite3_column_bytes(m_statement, column)});
}

VARIANT QueryCursor::Value(int column) const {
    if (IsEof() || column < 0 || column >= static_cast<int>(m_types.size())) return {};
    return m_statement ? StatementValue(column) : m_buffer[m_at][static_cast<std::size_t>(column)];
}

int QueryCursor::ColumnOf(const QString& name) const {
    const auto found = std::find(m_names.begin(), m_names.end(), name);
    return found == m_names.end() ? -1 : static_cast<int>(found - m_names.begin());
}

void QueryCursor::TakeRow(RowTable& out) const {
    for (int column = 0; column < out.ColumnCount(); ++column) {
        switch (m_types[static_cast<std::size_t>(column)]) {
            case RowColumnType::Integer:
                out.PutInteger(column, sqlite3_column_int64(m_statement, column));
                break;
            case RowColumnType::Real:
                out.PutReal(column, sqlite3_column_double(m_statement, column));
                break;
            case RowColumnType::Text: {
                const char* text = TextOf(m_statement, column);
                out.PutText(column, text,
                            static_cast<std::size_t>(sqlite3_column_bytes(m_statement, column)));
                break;
            }
        }
    }
    out.EndRow();
}

/// The same of a row that lies in memory.
void QueryCursor::TakeBuffered(RowTable& out) const {
    for (int column = 0; column < out.ColumnCount(); ++column) {
        const VARIANT& value = m_buffer[m_at][static_cast<std::size_t>(column)];
        const QByteArray text = ToText(value).toUtf8();
        if (const auto* integer = std::get_if<std::int32_t>(&value))
            out.PutInteger(column, *integer);
        else if (const auto* real = std::get_if<double>(&value))
            out.PutReal(column, *real);
        else
            out.PutText(column, text.constData(), static_cast<std::size_t>(text.size()));
    }
    out.EndRow();
}

/// The rows from the current one on; what the step behind the last of them has given. It may run beside the
/// thread of the program: who is told of a failure is left to that.
int QueryCursor::Fetch(RowTable& out, std::size_t most) const {
    out = RowTable(m_types);
    int result = SQLITE_ROW;
    while (result == SQLITE_ROW && out.RowCount() < most) {
        TakeRow(out);
        result = sqlite3_step(m_statement);
    }
    return result;
}

bool QueryCursor::Take(RowTable& out, std::size_t most, Ahead ahead) {
    if (!m_statement) {
        out = RowTable(m_types);
        for (; m_at < m_buffer.size() && out.RowCount() < most; ++m_at) TakeBuffered(out);
        return true;
    }
    const int result = m_fetching ? TakeFetched(out) : Fetch(out, most);
    if (!Follow(result)) return false;
    if (m_statement && ahead == Ahead::Yes) {
        if (!m_fetching) m_fetching = std::make_unique<CBeside>();
        m_fetching->Start([this, most] { m_fetched = Fetch(m_next, most); });
    }
    return true;
}

int QueryCursor::TakeFetched(RowTable& out) {
    m_fetching->Wait();
    out = std::move(m_next);
    return *std::exchange(m_fetched, std::nullopt);
}
