#pragma once

#include "platform/sqlite/VARIANT.h"

#include <QByteArray>
#include <cstddef>
#include <cstdint>
#include <span>
#include <variant>
#include <vector>

struct sqlite3_stmt;

/// Rows of one table as the store takes them, one after another: numbers, and texts as UTF-8 end to end, with
/// the checksum of each row. They share nothing with the records that they were made of, so that another
/// thread can have them.
class CStoredRows {
 public:
    /// The room stays, for the next rows.
    void Clear();
    /// Of each row as many values; the last is its key.
    void Add(std::span<const VARIANT> values);
    [[nodiscard]] std::size_t Count() const { return m_sums.size(); }
    /// That the texts have.
    [[nodiscard]] qsizetype Bytes() const { return m_used; }
    [[nodiscard]] std::int64_t Sum(std::size_t row) const { return m_sums[row]; }
    /// Binds the values of a row to a statement, from its first place on. They stay bound until others are,
    /// and may be read until the rows change.
    void Bind(std::size_t row, sqlite3_stmt* statement) const;
    void BindKey(std::size_t row, sqlite3_stmt* statement, int place) const;

 private:
    struct Value {
        enum class Type : std::int32_t { Null, Integer, Real, Text };
        Type type = Type::Null;
        std::int32_t size = 0;  ///< of a text, in bytes
        std::int64_t held = 0;  ///< the number, the bits of a fraction, or where the text begins
    };
    [[nodiscard]] static Value Take(std::monostate) { return {}; }
    [[nodiscard]] static Value Take(std::int32_t number) {
        return {.type = Value::Type::Integer, .held = number};
    }
    [[nodiscard]] static Value Take(double number);
    [[nodiscard]] Value Take(const QString& text);
    void SumUp(std::span<const Value> row);
    void BindValue(const Value& value, sqlite3_stmt* statement, int place) const;

    std::size_t m_columns = 0;
    std::vector<Value> m_values;  ///< row by row
    std::vector<std::int64_t> m_sums;
    QByteArray m_texts;  ///< and room for more
    qsizetype m_used = 0;
};
