#pragma once

#include <QByteArrayView>
#include <cstdint>
#include <string>
#include <vector>

/// What a column of a row table holds.
enum class RowColumnType { Integer, Real, Text };

/// All rows of a bulk read, column by column: 16-bit integers, doubles, and texts (UTF-8) of a column end to
/// end in one block, so that a million rows fit into memory. First index: column from 0; second: row from 0.
class RowTable {
 public:
    explicit RowTable(std::vector<RowColumnType> columns = {});

    [[nodiscard]] int ColumnCount() const { return static_cast<int>(m_columns.size()); }
    [[nodiscard]] std::size_t RowCount() const { return m_rows; }
    [[nodiscard]] RowColumnType TypeOf(int column) const {
        return m_columns[static_cast<std::size_t>(column)].type;
    }

    /// An integer column of a row as signed 16-bit value: larger numbers are cut to their low 16 bits.
    [[nodiscard]] std::int16_t Integer(int column, std::size_t row) const {
        return m_columns[static_cast<std::size_t>(column)].integers[row];
    }
    [[nodiscard]] double Real(int column, std::size_t row) const {
        return m_columns[static_cast<std::size_t>(column)].reals[row];
    }
    /// A text column of a row, valid as long as the table lives and doesn't grow.
    [[nodiscard]] QByteArrayView Text(int column, std::size_t row) const;

    /// Filling: the values of a row column by column, every column once, then EndRow. A value goes to the
    /// column of its own type. A text has at most 4 GiB (the store's limit is far lower).
    void PutInteger(int column, std::int64_t value) {
        m_columns[static_cast<std::size_t>(column)].integers.push_back(static_cast<std::int16_t>(value));
    }
    void PutReal(int column, double value) {
        m_columns[static_cast<std::size_t>(column)].reals.push_back(value);
    }
    void PutText(int column, const char* text, std::size_t bytes);
    void EndRow() { ++m_rows; }
    /// Makes room for this many rows in all.
    void Reserve(std::size_t rows);

 private:
    struct Column {
        RowColumnType type = RowColumnType::Integer;
        std::vector<std::int16_t> integers;
        std::vector<double> reals;
        std::string block;                   ///< the texts end to end
        std::vector<std::uint32_t> lengths;  ///< bytes of each text
        std::vector<std::size_t> starts;     ///< where every eighth text starts in the block
    };
    std::vector<Column> m_columns;
    std::size_t m_rows = 0;
};
