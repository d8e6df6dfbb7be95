#pragma once

#include "app/CRecordReader.h"
#include "cli/commands/PackedId.h"
#include "cli/output/RecordColumns.h"
#include "cli/output/RecordSums.h"
#include "records/CutDistances.h"

#include <cstddef>
#include <cstdint>
#include <deque>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <span>
#include <vector>

struct ListOrder {
    const RecordColumn* column = nullptr;  ///< null: by day
    bool isDescending = false;
    std::size_t limit = 0;  ///< 0: all
};

/// The records of a list in their order. What the list holds, its count and its sums are those of one moment,
/// at which the store is read from end to end. Of a long list only the identities are kept; its records are
/// read again when they are shown, a few days at a time, and nothing of the store is held while they are:
/// each is shown as it is stored then, in the place that it had. One that was deleted meanwhile, or changed
/// so that it doesn't belong to the list any more, isn't shown.
class CListedRecords {
 public:
    /// False ends the showing.
    using Show = std::function<bool(const CVORec& record)>;

    CListedRecords(CRecordReader& reader, const ListOrder& order) : m_reader(reader), m_order(order) {}

    /// Reads the store; onShown is called for each record that will be shown, in no promised order. False
    /// when it can't be read; the user was told.
    [[nodiscard]] bool Find(const std::function<void(const CVORec& record)>& onShown);
    /// The same of the records with these identities, in the order of these.
    [[nodiscard]] bool FindThese(const QStringList& ids,
                                 const std::function<void(const CVORec& record)>& onShown);
    /// Once they were found: they are shown in this order of the places that they had.
    void Reorder(std::span<const std::uint32_t> places);
    [[nodiscard]] std::size_t Count() const { return m_count; }
    [[nodiscard]] const RecordSums& Sums() const { return m_sums; }
    [[nodiscard]] const CutDistances& CutOfThem() const { return m_cut; }
    /// As often as wanted. False when the store can't be read any more; the user was told.
    [[nodiscard]] bool ForEachShown(const Show& show);
    /// The identities of those to be shown, in their order.
    void ForEachId(const std::function<void(const QString& id)>& visit) const;
    /// How many of those to be shown weren't, the last time.
    [[nodiscard]] std::size_t MissingCount() const { return m_missing; }

 private:
    using Record = std::unique_ptr<CVORec>;

    [[nodiscard]] bool FindByDay();
    [[nodiscard]] bool FindByColumn();
    void Account(const CVORec& record);
    void TakeDay();
    void Append(Record record, bool isHeld);
    void NoteShown(Record record, bool isHeld);
    [[nodiscard]] bool IsBefore(const CVORec& a, const CVORec& b) const;
    [[nodiscard]] bool ShowDays(const Show& show);
    [[nodiscard]] bool ShowByIds(const Show& show);
    [[nodiscard]] bool AreNext(const std::vector<Record>& records) const;
    void ShowNext(const CVORec* record, const Show& show);
    [[nodiscard]] bool IsDone() const { return m_isEnded || m_place >= m_ids.size(); }

    CRecordReader& m_reader;
    ListOrder m_order;
    std::function<void(const CVORec&)> m_onShown;
    std::size_t m_count = 0;
    RecordSums m_sums;
    CutDistances m_cut;
    std::vector<Record> m_day;         ///< of the day that is being read
    std::deque<PackedId> m_ids;        ///< of the records to be shown, in their order
    std::optional<RowDay> m_firstDay;  ///< the first that isn't held
    std::optional<RowDay> m_nextDay;   ///< the first that isn't held and isn't shown yet
    std::size_t m_place = 0;           ///< of the record that is shown next
    bool m_isEnded = false;
    std::map<std::size_t, Record> m_held;  ///< by place: those that aren't read again
    std::size_t m_missing = 0;
};
