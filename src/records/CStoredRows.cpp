#include "records/CStoredRows.h"

#include "platform/host/Utf8Text.h"
#include "platform/sqlite/CCheckSum.h"

#include <sqlite3.h>

#include <algorithm>
#include <bit>
#include <utility>

void CStoredRows::Clear() {
    m_values.clear();
    m_sums.clear();
    m_used = 0;
}

void CStoredRows::Add(std::span<const VARIANT> values) {
    m_columns = values.size();
    for (const VARIANT& value : values)
        m_values.push_back(std::visit([this](const auto& held) { return this->Take(held); }, value));
    SumUp(std::span(m_values).last(m_columns));
}

CStoredRows::Value CStoredRows::Take(double number) {
    return {.type = Value::Type::Real, .held = std::bit_cast<std::int64_t>(number)};
}

CStoredRows::Value CStoredRows::Take(const QString& text) {
    const qsizetype most = m_used + text.size() * kMostUtf8PerUnit;
    if (m_texts.size() < most) m_texts.resize(std::max(most, m_texts.size() * 2));
    const qsizetype size = WriteUtf8(text, m_texts.data() + m_used);
    const qsizetype at = std::exchange(m_used, m_used + size);
    return {.type = Value::Type::Text, .size = static_cast<std::int32_t>(size), .held = at};
}

void CStoredRows::SumUp(std::span<const Value> row) {
    CCheckSum sum;
    for (const auto& [type, size, held] : row) {
        switch (type) {
            case Value::Type::Null:
                sum.AddNull();
                break;
            case Value::Type::Integer:
                sum.AddInteger(held);
                break;
            case Value::Type::Real:
                sum.AddReal(std::bit_cast<double>(held));
                break;
            case Value::Type::Text:
                sum.AddText({m_texts.constData() + held, size});
        }
    }
    m_sums.push_back(sum.Value());
}

void CStoredRows::BindValue(const Value& value, sqlite3_stmt* statement, int place) const {
    switch (value.type) {
        case Value::Type::Null:
            sqlite3_bind_null(statement, place);
            break;
        case Value::Type::Integer:
            sqlite3_bind_int64(statement, place, value.held);
            break;
        case Value::Type::Real:
            sqlite3_bind_double(statement, place, std::bit_cast<double>(value.held));
            break;
        case Value::Type::Text:
            sqlite3_bind_text(statement, place, m_texts.constData() + value.held, value.size, SQLITE_STATIC);
    }
}

void CStoredRows::Bind(std::size_t row, sqlite3_stmt* statement) const {
    int place = 0;
    for (const Value& value : std::span(m_values).subspan(row * m_columns, m_columns))
        BindValue(value, statement, ++place);
}

void CStoredRows::BindKey(std::size_t row, sqlite3_stmt* statement, int place) const {
    BindValue(m_values[(row + 1) * m_columns - 1], statement, place);
}
