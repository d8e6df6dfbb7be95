#include "records/SalvageTable.h"

#include "lang/LoadText.h"
#include "platform/sqlite/CCheckSum.h"
#include "platform/sqlite/CSqliteFile.h"
#include "platform/sqlite/RowChecks.h"
#include "records/CVOId.h"

#include <sqlite3.h>

namespace {

/// A column for numbers with a fraction keeps whole ones as integers; no number is NULL there.
bool FitsType(const RawValue& value, FieldType type) {
    const bool isInteger = std::holds_alternative<std::int64_t>(value);
    switch (type) {
        case FieldType::Integer:
            return isInteger;
        case FieldType::Float:
            return isInteger || std::holds_alternative<double>(value) ||
                   std::holds_alternative<std::monostate>(value);
        case FieldType::Text:
        case FieldType::LongText:
            break;
    }
    return std::holds_alternative<RawText>(value);
}

void Add(CCheckSum& sum, const RawValue& value, FieldType type) {
    if (const auto* text = std::get_if<RawText>(&value)) return sum.AddText(text->utf8);
    if (const auto* real = std::get_if<double>(&value)) return sum.AddReal(*real);
    const auto* integer = std::get_if<std::int64_t>(&value);
    if (integer == nullptr) return sum.AddNull();
    if (type == FieldType::Float) return sum.AddReal(static_cast<double>(*integer));
    sum.AddInteger(*integer);
}

void Bind(sqlite3_stmt* statement, int place, const RawValue& value) {
    if (const auto* text = std::get_if<RawText>(&value))
        sqlite3_bind_text(statement, place, text->utf8.constData(), static_cast<int>(text->utf8.size()),
                          SQLITE_STATIC);
    else if (const auto* real = std::get_if<double>(&value))
        sqlite3_bind_double(statement, place, *real);
    else if (const auto* integer = std::get_if<std::int64_t>(&value))
        sqlite3_bind_int64(statement, place, *integer);
    else
        sqlite3_bind_null(statement, place);
}

}  // namespace

SalvageTable::SalvageTable(RecordKind kind, const QString& name, std::span<const FieldDef> fields)
    : m_kind(kind), m_name(name.toUtf8()) {
    QByteArrayList inPages, places;
    m_types.push_back(fields.back().type);
    for (const FieldDef& field : fields) {
        m_columns += LoadText(field.nameId).toUtf8();
        places += "?";
    }
    inPages += m_columns.back();
    for (const FieldDef& field : fields.first(fields.size() - 1)) {
        m_types.push_back(field.type);
        inPages += LoadText(field.nameId).toUtf8();
    }
    m_insert = "INSERT OR REPLACE INTO \"" + m_name + "\" (\"" + inPages.join("\", \"") + "\") VALUES (" +
               places.join(", ") + ')';
}

bool SalvageTable::Fits(const RawRow& row) const {
    if (row.size() != m_types.size()) return false;
    for (std::size_t i = 0; i < row.size(); ++i)
        if (!FitsType(row[i], m_types[i])) return false;
    return IsIdentity(QString::fromUtf8(IdOf(row)));
}

const QByteArray& SalvageTable::IdOf(const RawRow& row) {
    return std::get<RawText>(row.front()).utf8;
}

std::int64_t SalvageTable::SumOf(const RawRow& row) const {
    CCheckSum sum;
    for (std::size_t i = 1; i < row.size(); ++i) Add(sum, row[i], m_types[i]);
    Add(sum, row.front(), m_types.front());
    return sum.Value();
}

bool SalvageTable::Write(CSqliteFile& file, const RawRow& row) const {
    sqlite3_stmt* statement = file.Prepare(m_insert);
    if (statement == nullptr) return false;
    int place = 0;
    for (const RawValue& value : row) Bind(statement, ++place, value);
    const bool isDone = sqlite3_step(statement) == SQLITE_DONE;
    if (!isDone) file.NoteError();
    sqlite3_reset(statement);
    sqlite3_clear_bindings(statement);
    return isDone;
}

bool SalvageTable::Finish(CSqliteFile& file) const {
    return RowChecks(m_name, {{m_columns.back(), "TEXT"}}, m_columns).Fill(file);
}
