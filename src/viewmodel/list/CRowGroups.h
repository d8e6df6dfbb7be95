#pragma once

#include "viewmodel/list/ListGroups.h"

#include <QSet>
#include <functional>
#include <optional>
#include <vector>

/// Parts the rows of a list into groups of days, each below a head, and says which of both are shown: of a
/// folded group only the head. Rows are counted as the list has them; places count heads and shown rows, from
/// 0. A group is a stretch of rows whose days belong together, so a list that isn't in order can have several
/// of one day. Which groups are folded is remembered by their first days, however often the rows are parted.
class CRowGroups {
 public:
    struct Parting {
        ListGroups groups = ListGroups::None;  ///< None: no heads, each row is shown
        int firstDayOfWeek = 0;
        bool isAscending = true;
        std::uint32_t today = 0;  ///< its group is there even without a row; 0 for none
    };
    struct Group {
        unsigned number = 0;  ///< its own, no later group has it
        std::uint32_t firstDay = 0;
        int firstRow = 0;
        int rows = 0;
        int head = 0;  ///< its place
        bool isFolded = false;
    };
    /// Places that come or go.
    struct Stretch {
        int first = 0;
        int count = 0;
    };
    using DayAt = std::function<std::uint32_t(int row)>;

    void Part(const Parting& parting, int rows, const DayAt& dayAt);
    /// All that are there, until the next parting shows it.
    void SetAllFolded(bool isFolded);

    [[nodiscard]] bool HasHeads() const { return m_parting.groups != ListGroups::None; }
    /// Places in all.
    [[nodiscard]] int Count() const;
    [[nodiscard]] const std::vector<Group>& Groups() const { return m_groups; }
    /// The group of a place, -1 without heads.
    [[nodiscard]] int GroupAt(int place) const;
    /// The group of a row, -1 without one.
    [[nodiscard]] int GroupOfRow(int row) const;
    [[nodiscard]] bool IsHead(int place) const;
    /// -1 for a head.
    [[nodiscard]] int RowAt(int place) const;
    /// -1 for a row that isn't shown.
    [[nodiscard]] int PlaceOf(int row) const;
    /// How many of these places are no heads.
    [[nodiscard]] int RowsIn(int first, int last) const;
    [[nodiscard]] std::uint32_t FirstDayOf(std::uint32_t day) const;
    /// The first day of today's group, 0 where it isn't wanted.
    [[nodiscard]] std::uint32_t Today() const { return m_parting.today; }

    /// What folding or unfolding a group hides or shows.
    [[nodiscard]] Stretch InsideOf(int group) const;
    void SetFolded(int group, bool isFolded);

    // Rows come and go as the list announces it: those that it has and that stand in no group (yet, or any
    // more) are a gap. What a change shows or hides is asked for first; nothing where only a new parting
    // does, as the rows belong to several groups or stand between the days of another one.

    /// The list has got rows.
    void OpenGap(int row, int count) { m_gap = {row, count}; }
    [[nodiscard]] std::optional<Stretch> PlacesToTake(int count, std::uint32_t day) const;
    /// The first rows of the gap, all of the same group.
    void Take(int count, std::uint32_t day);
    [[nodiscard]] std::optional<Stretch> PlacesToDrop(int row, int count) const;
    /// The list is about to lose rows.
    void Drop(int row, int count);
    /// The list has lost them.
    void CloseGap() { m_gap = {}; }
    [[nodiscard]] Stretch Gap() const { return m_gap; }

 private:
    [[nodiscard]] static std::size_t Index(int group) { return static_cast<std::size_t>(group); }
    [[nodiscard]] Group NewGroup(std::uint32_t firstDay, int firstRow);
    [[nodiscard]] int GroupToJoin(std::uint32_t firstDay) const;
    [[nodiscard]] std::optional<int> PlaceForGroup(std::uint32_t firstDay) const;
    [[nodiscard]] bool IsTodays(const Group& group) const;
    [[nodiscard]] bool StandsBetweenEqual(int group) const;
    [[nodiscard]] bool GoesBefore(std::uint32_t a, std::uint32_t b) const;
    [[nodiscard]] int OwnRow(int row) const;
    [[nodiscard]] int ListRow(int row) const;
    [[nodiscard]] int GroupOfOwn(int row) const;
    [[nodiscard]] static int ShownOf(const Group& group) { return group.isFolded ? 0 : group.rows; }
    void AddToday();
    void Renumber();

    Parting m_parting;
    std::vector<Group> m_groups;  ///< their rows are counted without those of the gap
    QSet<std::uint32_t> m_folded;
    int m_rows = 0;
    Stretch m_gap;
    unsigned m_lastNumber = 0;
};
