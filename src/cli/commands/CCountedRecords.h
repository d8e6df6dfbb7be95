#pragma once

#include "app/CRecordReader.h"
#include "cli/commands/PackedId.h"
#include "reports/aggregate/CAggregation.h"

#include <compare>
#include <cstdint>
#include <deque>
#include <functional>
#include <span>
#include <vector>

/// The records of a report that shows none of them by itself: read once, in whatever order the store gives
/// them, and of each only the columns that are counted and where it stands in the list.
class CCountedRecords {
 public:
    /// What is known of the records afterwards.
    enum class Known {
        Groups,  ///< which group comes first
        All      ///< the order and the identity of each
    };
    CCountedRecords(CRecordReader& reader, CAggregation& aggregation, Known known)
        : m_reader(reader), m_aggregation(aggregation), m_known(known) {}

    /// onCounted is called after each record. False when they can't be read; the user was told.
    [[nodiscard]] bool Count(ColumnSet columns, const std::function<void()>& onCounted);
    /// By the sort keys, before them as in the list; of groups alone the first record of each. Once.
    [[nodiscard]] std::vector<std::uint32_t> Order();
    /// In an order of places; known of all.
    void ForEachId(std::span<const std::uint32_t> order,
                   const std::function<void(const QString& id)>& visit) const;

 private:
    /// Where a record stands in the list: by day, start and identity.
    struct ListPlace {
        std::uint64_t day = 0;
        std::int32_t start = 0;
        PackedId id{};
        auto operator<=>(const ListPlace&) const = default;  // NOLINT(modernize-use-nullptr)
    };
    struct First {
        ListPlace place;
        std::uint32_t record = 0;
    };

    [[nodiscard]] static ListPlace MomentOf(const CVORec& record);
    [[nodiscard]] static ListPlace PlaceOf(const CVORec& record);
    void NoteGroup(std::size_t group, const CVORec& record);

    CRecordReader& m_reader;
    CAggregation& m_aggregation;
    Known m_known;
    std::deque<ListPlace> m_places;  ///< of all
    std::vector<First> m_firsts;     ///< of each group
};
