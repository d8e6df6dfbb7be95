#include "platform/sqlite/RowTable.h"

namespace {

/// A text's place is the start of its group plus the lengths before it: 5 bytes a text instead of 8, at the
/// price of at most seven additions.
constexpr std::size_t kGroup = 8;

}  // namespace

RowTable::RowTable(std::vector<RowColumnType> columns) {
    m_columns.resize(columns.size());
    for (std::size_t i = 0; i < columns.size(); ++i) m_columns[i].type = columns[i];
}

QByteArrayView RowTable::Text(int column, std::size_t row) const {
    const Column& texts = m_columns[static_cast<std::size_t>(column)];
    std::size_t start = texts.starts[row / kGroup];
    for (std::size_t i = row - row % kGroup; i < row; ++i) start += texts.lengths[i];
    return {texts.block.data() + start, static_cast<qsizetype>(texts.lengths[row])};
}

void RowTable::PutText(int column, const char* text, std::size_t bytes) {
    Column& texts = m_columns[static_cast<std::size_t>(column)];
    if (texts.lengths.size() % kGroup == 0) texts.starts.push_back(texts.block.size());
    texts.lengths.push_back(static_cast<std::uint32_t>(bytes));
    if (bytes > 0) texts.block.append(text, bytes);
}

void RowTable::Reserve(std::size_t rows) {
    for (Column& column : m_columns) {
        switch (column.type) {
            case RowColumnType::Integer:
                column.integers.reserve(rows);
                break;
            case RowColumnType::Real:
                column.reals.reserve(rows);
                break;
            case RowColumnType::Text:
                column.lengths.reserve(rows);
                column.starts.reserve(rows / kGroup + 1);
                break;
        }
    }
}
