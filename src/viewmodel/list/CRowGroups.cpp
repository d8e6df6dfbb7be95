#include "viewmodel/list/CRowGroups.h"

#include <algorithm>

void CRowGroups::Part(const Parting& parting, int rows, const DayAt& dayAt) {
    m_parting = parting;
    m_groups.clear();
    m_rows = rows;
    m_gap = {};
    if (!HasHeads()) return;
    m_parting.today = FirstDayOf(parting.today);
    std::uint32_t formerDay = 0;
    for (int row = 0; row < rows; ++row) {
        const std::uint32_t day = dayAt(row);
        if (m_groups.empty() || day != formerDay) {
            const std::uint32_t firstDay = FirstDayOf(day);
            if (m_groups.empty() || m_groups.back().firstDay != firstDay)
                m_groups.push_back(NewGroup(firstDay, row));
            formerDay = day;
        }
        ++m_groups.back().rows;
    }
    AddToday();
    Renumber();
}

CRowGroups::Group CRowGroups::NewGroup(std::uint32_t firstDay, int firstRow) {
    return {.number = ++m_lastNumber,
            .firstDay = firstDay,
            .firstRow = firstRow,
            .isFolded = m_folded.contains(firstDay)};
}

std::uint32_t CRowGroups::FirstDayOf(std::uint32_t day) const {
    return FirstDayOfGroup(day, m_parting.groups, m_parting.firstDayOfWeek);
}

bool CRowGroups::GoesBefore(std::uint32_t a, std::uint32_t b) const {
    return m_parting.isAscending ? a < b : a > b;
}

/// Today's head in its order, so that there is always a place for the next record.
void CRowGroups::AddToday() {
    const std::uint32_t today = m_parting.today;
    if (today == 0 || m_groups.empty() ||
        std::ranges::find(m_groups, today, &Group::firstDay) != m_groups.end())
        return;
    const auto next =
        std::ranges::find_if(m_groups, [&](const Group& group) { return GoesBefore(today, group.firstDay); });
    const int firstRow = next == m_groups.end() ? m_rows : next->firstRow;
    m_groups.insert(next, NewGroup(today, firstRow));
}

int CRowGroups::Count() const {
    if (!HasHeads()) return m_rows;
    return m_groups.empty() ? 0 : m_groups.back().head + 1 + ShownOf(m_groups.back());
}

int CRowGroups::GroupAt(int place) const {
    const auto next = std::ranges::upper_bound(m_groups, place, {}, &Group::head);
    return static_cast<int>(next - m_groups.begin()) - 1;
}

/// A row of the list counted without the gap, -1 for one of the gap.
int CRowGroups::OwnRow(int row) const {
    if (row < m_gap.first) return row;
    return row < m_gap.first + m_gap.count ? -1 : row - m_gap.count;
}

int CRowGroups::ListRow(int row) const {
    return row < m_gap.first ? row : row + m_gap.count;
}

int CRowGroups::GroupOfRow(int row) const {
    const int own = OwnRow(row);
    return own < 0 ? -1 : GroupOfOwn(own);
}

/// Of two groups that begin with the same row the first is empty.
int CRowGroups::GroupOfOwn(int row) const {
    const auto next = std::ranges::upper_bound(m_groups, row, {}, &Group::firstRow);
    return static_cast<int>(next - m_groups.begin()) - 1;
}

bool CRowGroups::IsHead(int place) const {
    const int group = GroupAt(place);
    return group >= 0 && m_groups[Index(group)].head == place;
}

int CRowGroups::RowAt(int place) const {
    const int group = GroupAt(place);
    if (group < 0) return ListRow(place);
    const Group& found = m_groups[Index(group)];
    return found.head == place ? -1 : ListRow(found.firstRow + place - found.head - 1);
}

int CRowGroups::PlaceOf(int row) const {
    const int own = OwnRow(row);
    if (own < 0 || !HasHeads()) return own;
    const int group = GroupOfOwn(own);
    if (group < 0) return -1;
    const Group& found = m_groups[Index(group)];
    return found.isFolded ? -1 : found.head + 1 + own - found.firstRow;
}

int CRowGroups::RowsIn(int first, int last) const {
    if (last < first) return 0;
    const int heads = GroupAt(last) - GroupAt(first) + (IsHead(first) ? 1 : 0);
    return last - first + 1 - heads;
}

CRowGroups::Stretch CRowGroups::InsideOf(int group) const {
    const Group& found = m_groups[Index(group)];
    return {.first = found.head + 1, .count = found.rows};
}

void CRowGroups::SetFolded(int group, bool isFolded) {
    Group& found = m_groups[Index(group)];
    found.isFolded = isFolded;
    if (isFolded)
        m_folded.insert(found.firstDay);
    else
        m_folded.remove(found.firstDay);
    Renumber();
}

void CRowGroups::SetAllFolded(bool isFolded) {
    m_folded.clear();
    if (!isFolded) return;
    for (const Group& group : m_groups) m_folded.insert(group.firstDay);
}

// --- Rows that come and go

/// The group of these days that the gap touches: before its first row, inside it or behind its last.
int CRowGroups::GroupToJoin(std::uint32_t firstDay) const {
    const int row = m_gap.first;
    const auto last = std::ranges::upper_bound(m_groups, row, {}, &Group::firstRow);
    for (auto group = last; group != m_groups.begin();) {
        --group;
        if (group->firstRow + group->rows < row) break;
        if (group->firstDay == firstDay) return static_cast<int>(group - m_groups.begin());
    }
    return -1;
}

/// Where a new group goes among the groups; nothing when the gap lies inside one.
std::optional<int> CRowGroups::PlaceForGroup(std::uint32_t firstDay) const {
    const int row = m_gap.first;
    auto next = std::ranges::lower_bound(m_groups, row, {}, &Group::firstRow);
    if (next != m_groups.begin() && (next - 1)->firstRow + (next - 1)->rows > row) return std::nullopt;
    while (next != m_groups.end() && next->rows == 0 && next->firstRow == row &&
           GoesBefore(next->firstDay, firstDay))
        ++next;
    return static_cast<int>(next - m_groups.begin());
}

std::optional<CRowGroups::Stretch> CRowGroups::PlacesToTake(int count, std::uint32_t day) const {
    if (!HasHeads()) return Stretch{m_gap.first, count};
    if (m_rows == 0) return std::nullopt;  // with the first row comes today's head, too
    const std::uint32_t firstDay = FirstDayOf(day);
    if (const int joined = GroupToJoin(firstDay); joined >= 0) {
        const Group& group = m_groups[Index(joined)];
        return Stretch{group.head + 1 + m_gap.first - group.firstRow, group.isFolded ? 0 : count};
    }
    const std::optional<int> place = PlaceForGroup(firstDay);
    if (!place) return std::nullopt;
    const int head = *place < static_cast<int>(m_groups.size()) ? m_groups[Index(*place)].head : Count();
    return Stretch{head, 1 + (m_folded.contains(firstDay) ? 0 : count)};
}

void CRowGroups::Take(int count, std::uint32_t day) {
    m_rows += count;
    if (HasHeads()) {
        const std::uint32_t firstDay = FirstDayOf(day);
        int group = GroupToJoin(firstDay);
        if (group < 0) {
            group = PlaceForGroup(firstDay).value_or(0);
            m_groups.insert(m_groups.begin() + group, NewGroup(firstDay, m_gap.first));
        }
        m_groups[Index(group)].rows += count;
        Renumber();
    }
    m_gap = {m_gap.first + count, m_gap.count - count};
}

/// A group without a date is nobody's today.
bool CRowGroups::IsTodays(const Group& group) const {
    return m_parting.today != 0 && group.firstDay == m_parting.today;
}

/// Whether both neighbours are of the same days, as they can be where the list isn't in order.
bool CRowGroups::StandsBetweenEqual(int group) const {
    const bool hasBoth = group > 0 && group + 1 < static_cast<int>(m_groups.size());
    return hasBoth && m_groups[Index(group - 1)].firstDay == m_groups[Index(group + 1)].firstDay;
}

std::optional<CRowGroups::Stretch> CRowGroups::PlacesToDrop(int row, int count) const {
    if (!HasHeads()) return Stretch{row, count};
    const int found = GroupOfOwn(row);
    // Without any row there is no head either, not even today's.
    if (found < 0 || count == m_rows) return std::nullopt;
    const Group& group = m_groups[Index(found)];
    if (row + count > group.firstRow + group.rows) return std::nullopt;
    const bool goesWithHead = count == group.rows && !IsTodays(group);
    if (goesWithHead && StandsBetweenEqual(found)) return std::nullopt;
    const int shown = group.isFolded ? 0 : count;
    if (goesWithHead) return Stretch{group.head, 1 + shown};
    return Stretch{group.head + 1 + row - group.firstRow, shown};
}

void CRowGroups::Drop(int row, int count) {
    m_rows -= count;
    if (HasHeads()) {
        const int found = GroupOfOwn(row);
        Group& group = m_groups[Index(found)];
        group.rows -= count;
        if (group.rows == 0 && !IsTodays(group)) m_groups.erase(m_groups.begin() + found);
        Renumber();
    }
    m_gap = {row, count};
}

/// Rows and places anew: each group begins where the one before it ends.
void CRowGroups::Renumber() {
    int row = 0, place = 0;
    for (Group& group : m_groups) {
        group.firstRow = row;
        group.head = place;
        row += group.rows;
        place += 1 + ShownOf(group);
    }
}
