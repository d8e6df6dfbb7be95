#include "records/RowCapture.h"

#include "platform/sqlite/RowChecks.h"

#include <sqlite3.h>

#include <cstring>

namespace {

QByteArray TextOf(sqlite3_value* value) {
    const auto* text = reinterpret_cast<const char*>(sqlite3_value_text(value));
    return {text, sqlite3_value_bytes(value)};
}

constexpr int kEvents = 4;

int PlaceOf(int table, RowEvent event) {
    return table * kEvents + static_cast<int>(event);
}

}  // namespace

RowCapture::RowCapture(const std::vector<CapturedTable>& tables) : m_tables(tables) {
    for (const CapturedTable& table : tables) m_checks.append(RowChecks::NameOf(table.name));
}

void RowCapture::Clear() {
    m_open.reset();
    m_log.Clear();
    m_counts.clear();
    m_names.clear();
    m_changed = 0;
    m_isTooLarge = m_isUnsure = false;
}

int RowCapture::TableOf(const char* name) const {
    for (std::size_t table = 0; table < m_tables.size(); ++table)
        if (std::strcmp(m_tables[table].name.constData(), name) == 0) return static_cast<int>(table);
    return -1;
}

void RowCapture::Note(const CChangedRow& row) {
    const int table = TableOf(row.Table());
    if (table >= 0) return Begin(table, row);
    if (m_open && m_checks[m_open->op.table] == row.Table()) NoteSum(row);
}

/// The key is the first column of a checksum and the last one of a record. A record that changes loses its
/// checksum, and gets another one.
void RowCapture::NoteSum(const CChangedRow& row) {
    const bool isNew = row.Event() != RowEvent::Deleted;
    if (TextOf(isNew ? row.After(0) : row.Before(0)) != m_open->op.key) return;
    const std::int64_t sum = sqlite3_value_int64(isNew ? row.After(1) : row.Before(1));
    if (isNew) m_open->hasSum = true;
    (isNew ? m_open->op.sum : m_open->sumBefore) = sum;
}

void RowCapture::Begin(int table, const CChangedRow& row) {
    Flush();
    const int columns = row.ColumnCount();
    const bool isGone = row.Event() == RowEvent::Deleted;
    m_open.emplace(Open{.op = {.event = row.Event(),
                               .table = table,
                               .key = TextOf(isGone ? row.Before(columns - 1) : row.After(columns - 1)),
                               .before = {}},
                        .hasSum = isGone});
    if (row.Event() != RowEvent::Added && !m_isTooLarge)
        for (int column = 0; column < columns; ++column)
            RowOpImage::Append(m_open->op.before, row.Before(column));
    NoteNames(table, row);
}

/// Last of all, since a value that is read as a text may be one from then on. As soon as two rows differ
/// nothing more is read.
void RowCapture::NoteNames(int table, const CChangedRow& row) {
    const bool isFirst = !m_names.contains(table);
    RowNames& known = m_names[table];
    if (!known.isSame) return;
    RowNames names;
    for (const int column : m_tables[static_cast<std::size_t>(table)].named) {
        if (row.Event() != RowEvent::Added)
            names.before.append(QString::fromUtf8(TextOf(row.Before(column))));
        if (row.Event() != RowEvent::Deleted)
            names.after.append(QString::fromUtf8(TextOf(row.After(column))));
    }
    names.isSame = isFirst || (names.before == known.before && names.after == known.after);
    known = names;
}

void RowCapture::Flush() {
    if (!m_open) return;
    const Open open = std::move(*m_open);
    m_open.reset();
    const RowOp& op = open.op;
    if (op.event == RowEvent::Modified && open.hasSum && open.sumBefore == op.sum) return;
    m_isUnsure = m_isUnsure || !open.hasSum;
    ++m_changed;
    ++m_counts[PlaceOf(op.table, op.event)];
    m_last = {.event = op.event, .table = op.table, .key = op.key, .sum = op.sum, .before = {}};
    if (m_isTooLarge) return;
    m_log.Append(op);
    m_isTooLarge = m_log.Bytes() > kMostBytes;
    if (m_isTooLarge) m_log.Clear();
}

void RowCapture::Finish() {
    Flush();
}

int RowCapture::Count(int table, RowEvent event) const {
    return m_counts.value(PlaceOf(table, event));
}
