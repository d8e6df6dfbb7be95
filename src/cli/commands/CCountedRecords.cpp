#include "cli/commands/CCountedRecords.h"

#include "cli/output/FieldOutput.h"
#include "fields/FieldTable.h"
#include "fields/FieldValue.h"
#include "records/CERecord.h"
#include "records/CTRecord.h"

#include <algorithm>
#include <numeric>

namespace {

/// The columns by which a list of records stands in its order.
ColumnSet ColumnsOfPlace(RecordKind kind) {
    if (kind == RecordKind::Expense) return ColumnsOf(&CERecord::date) | IdentityColumn(CERecord());
    return ColumnsOf(&CTRecord::date) | ColumnsOf(&CTRecord::GetStart) | IdentityColumn(CTRecord());
}

std::uint64_t DayNumberOf(const RecordDate& date) {
    const auto part = [](int number) { return static_cast<std::uint64_t>(number) + 1; };
    return part(date.year) << 40U | part(date.month) << 20U | part(date.day);
}

}  // namespace

/// Without the identity, which is looked at last.
CCountedRecords::ListPlace CCountedRecords::MomentOf(const CVORec& record) {
    static const FieldRow& kStart = *FindField(NumberOf(FieldId::Start));
    if (record.Kind() == RecordKind::Expense)
        return {.day = DayNumberOf(static_cast<const CERecord&>(record).date)};
    return {.day = DayNumberOf(static_cast<const CTRecord&>(record).date), .start = MinuteOf(record, kStart)};
}

CCountedRecords::ListPlace CCountedRecords::PlaceOf(const CVORec& record) {
    ListPlace place = MomentOf(record);
    place.id = PackedOf(record.GetId());
    return place;
}

void CCountedRecords::NoteGroup(std::size_t group, const CVORec& record) {
    const bool isNew = group == m_firsts.size();
    if (!isNew && m_firsts[group].place < MomentOf(record)) return;
    const First first{PlaceOf(record), static_cast<std::uint32_t>(m_aggregation.Count() - 1)};
    if (isNew)
        m_firsts.push_back(first);
    else if (first.place < m_firsts[group].place)
        m_firsts[group] = first;
}

bool CCountedRecords::Count(ColumnSet columns, const std::function<void()>& onCounted) {
    const RecordKind kind = m_reader.Kind();
    return m_reader.ReadColumns(columns | ColumnsOfPlace(kind), [&](const CVORec& record) {
        const std::optional<std::size_t> group = m_aggregation.Add(record);
        if (m_known == Known::All)
            m_places.push_back(PlaceOf(record));
        else if (group)
            NoteGroup(*group, record);
        onCounted();
    });
}

std::vector<std::uint32_t> CCountedRecords::Order() {
    if (m_known == Known::Groups) {
        std::ranges::sort(m_firsts, {}, &First::place);
        std::vector<std::uint32_t> firsts(m_firsts.size());
        std::ranges::transform(m_firsts, firsts.begin(), &First::record);
        return firsts;
    }
    std::vector<std::uint32_t> listed(m_places.size());
    std::iota(listed.begin(), listed.end(), 0U);
    std::ranges::sort(listed, {},
                      [this](std::uint32_t place) -> const ListPlace& { return m_places[place]; });
    return m_aggregation.Order(listed);
}

void CCountedRecords::ForEachId(std::span<const std::uint32_t> order,
                                const std::function<void(const QString&)>& visit) const {
    for (const std::uint32_t place : order) visit(UnpackedId(m_places[place].id));
}
