#include "viewmodel/list/ColumnChoice.h"

#include "config/ColumnTable.h"
#include "lang/LoadText.h"

#include <utility>

ColumnChoice::Line ColumnChoice::Separator() {
    return {{Column::kNone, LoadText(Text::ColumnSeparator)}, true};
}

bool ColumnChoice::Has(const Lines& lines, int line) {
    return line >= 0 && line < std::ssize(lines);
}

QStringList ColumnChoice::Captions(const Lines& lines) {
    QStringList captions;
    for (const Line& line : lines) captions << line.column.caption;
    return captions;
}

/// Breaks 2 and 3 of four columns give the shown lines 1, 2, -, 3, -, 4: each break moves on by the
/// separators before it. One that is past the end has no place and goes.
void ColumnChoice::Open(const ChosenColumns& columns, bool hasSeparators) {
    m_available.clear();
    m_shown.clear();
    m_breaks = columns.breaks;
    m_hasSeparators = hasSeparators;
    if (hasSeparators) m_available.push_back(Separator());
    for (const ChosenColumn& column : columns.hidden) m_available.push_back({column});
    for (const ChosenColumn& column : columns.shown) m_shown.push_back({column});
    if (!hasSeparators) return;
    std::int64_t inserted = 0;
    for (const std::int32_t position : columns.breaks) {
        const std::int64_t place = position + inserted;
        if (place < 0 || place > std::ssize(m_shown)) continue;
        m_shown.insert(m_shown.begin() + place, Separator());
        ++inserted;
    }
}

int ColumnChoice::Take(int line) {
    if (!Has(m_available, line)) return kNone;
    const auto taken = m_available.begin() + line;
    m_shown.push_back(*taken);
    if (!taken->isSeparator) m_available.erase(taken);
    return static_cast<int>(m_shown.size()) - 1;
}

int ColumnChoice::GiveBack(int line) {
    if (!Has(m_shown, line)) return kNone;
    const Line given = m_shown[static_cast<std::size_t>(line)];
    m_shown.erase(m_shown.begin() + line);
    if (given.isSeparator) return kNone;
    m_available.push_back(given);
    return static_cast<int>(m_available.size()) - 1;
}

int ColumnChoice::Exchange(int line, int neighbour) {
    if (!Has(m_shown, line)) return kNone;
    if (!Has(m_shown, neighbour)) return line;
    std::swap(m_shown[static_cast<std::size_t>(line)], m_shown[static_cast<std::size_t>(neighbour)]);
    return neighbour;
}

/// A break counts the columns before it; the separators before it don't count.
ChosenColumns ColumnChoice::Close() const {
    ChosenColumns columns;
    if (!m_hasSeparators) columns.breaks = m_breaks;
    for (const Line& line : m_available)
        if (!line.isSeparator) columns.hidden.push_back(line.column);
    for (const Line& line : m_shown) {
        if (line.isSeparator)
            columns.breaks.push_back(static_cast<std::int32_t>(columns.shown.size()));
        else
            columns.shown.push_back(line.column);
    }
    return columns;
}
