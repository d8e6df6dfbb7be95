#include "cli/commands/CListedRecords.h"

#include <algorithm>

namespace {

/// A list up to this long is shown as it was found.
constexpr std::size_t kMostHeld = 2000;
constexpr std::size_t kPage = 500;

bool IsEarlier(const std::unique_ptr<CVORec>& a, const std::unique_ptr<CVORec>& b) {
    return CompareDays(*a, *b) < 0;
}

}  // namespace

bool CListedRecords::Find(const std::function<void(const CVORec&)>& onShown) {
    m_onShown = onShown;
    return m_order.column ? FindByColumn() : FindByDay();
}

void CListedRecords::Account(const CVORec& record) {
    ++m_count;
    AddTo(m_sums, record);
    m_cut.Add(record);
}

/// The store gives the days in their order; the records of one day are put in order here.
bool CListedRecords::FindByDay() {
    const bool isRead = m_reader.ReadAll(CRecordReader::Order::OfDays, [this](Record record) {
        Account(*record);
        if (m_order.limit != 0 && m_ids.size() >= m_order.limit) return;
        if (!m_day.empty() && !AreOfOneDay(*m_day.front(), *record)) TakeDay();
        m_day.push_back(std::move(record));
    });
    TakeDay();
    return isRead;
}

void CListedRecords::TakeDay() {
    std::sort(m_day.begin(), m_day.end(), &IsEarlier);
    const bool isHeld = m_ids.size() < kMostHeld;
    if (!isHeld && !m_firstDay && !m_day.empty()) m_firstDay = CRecordReader::DayOf(*m_day.front());
    for (Record& record : m_day) Append(std::move(record), isHeld);
    m_day.clear();
}

void CListedRecords::Append(Record record, bool isHeld) {
    if (m_order.limit != 0 && m_ids.size() >= m_order.limit) return;
    m_onShown(*record);
    NoteShown(std::move(record), isHeld);
}

void CListedRecords::NoteShown(Record record, bool isHeld) {
    const bool isPacked = !isHeld && IsIdentity(record->GetId());
    m_ids.push_back(PackedOf(record->GetId()));
    if (!isPacked) m_held.emplace(m_ids.size() - 1, std::move(record));
}

bool CListedRecords::IsBefore(const CVORec& a, const CVORec& b) const {
    const int columns = m_order.column->Compare(a, b);
    if (columns != 0) return m_order.isDescending ? columns > 0 : columns < 0;
    return CompareDays(a, b) < 0;
}

/// No index has such an order, so the records are held; of a list with a limit those that come first.
bool CListedRecords::FindByColumn() {
    const auto before = [this](const Record& a, const Record& b) { return IsBefore(*a, *b); };
    std::vector<Record> first;  // a heap with the last of them on top, once it is as large as the limit
    const bool isRead = m_reader.ReadAll(CRecordReader::Order::Any, [&](Record record) {
        Account(*record);
        first.push_back(std::move(record));
        if (m_order.limit == 0 || first.size() < m_order.limit) return;
        if (first.size() == m_order.limit) return std::make_heap(first.begin(), first.end(), before);
        std::push_heap(first.begin(), first.end(), before);
        std::pop_heap(first.begin(), first.end(), before);
        first.pop_back();
    });
    std::sort(first.begin(), first.end(), before);
    for (Record& record : first) Append(std::move(record), true);
    return isRead;
}

bool CListedRecords::FindThese(const QStringList& ids, const std::function<void(const CVORec&)>& onShown) {
    return m_reader.Read(ids, [&](Record record) {
        if (!record) return;
        Account(*record);
        onShown(*record);
        NoteShown(std::move(record), m_ids.size() < kMostHeld);
    });
}

/// From here on each record that isn't held is looked up: they don't stand in the order of days any more.
void CListedRecords::Reorder(std::span<const std::uint32_t> places) {
    std::deque<PackedId> ids;
    std::map<std::size_t, Record> held;
    for (const std::uint32_t place : places) {
        if (const auto found = m_held.find(place); found != m_held.end())
            held.emplace(ids.size(), std::move(found->second));
        ids.push_back(m_ids[place]);
    }
    m_ids = std::move(ids);
    m_held = std::move(held);
    m_firstDay.reset();
}

void CListedRecords::ForEachId(const std::function<void(const QString&)>& visit) const {
    auto held = m_held.begin();
    for (std::size_t place = 0; place < m_ids.size(); ++place) {
        const bool isHeld = held != m_held.end() && held->first == place;
        visit(isHeld ? held->second->GetId() : UnpackedId(m_ids[place]));
        if (isHeld) ++held;
    }
}

bool CListedRecords::ForEachShown(const Show& show) {
    m_place = 0;
    m_missing = 0;
    m_isEnded = false;
    m_nextDay = m_firstDay;
    while (!IsDone()) {
        const auto held = m_held.find(m_place);
        if (held != m_held.end())
            ShowNext(held->second.get(), show);
        else if (!(m_nextDay ? ShowDays(show) : ShowByIds(show)))
            return false;
    }
    return true;
}

void CListedRecords::ShowNext(const CVORec* record, const Show& show) {
    ++m_place;
    if (!record)
        ++m_missing;
    else if (!m_isEnded)
        m_isEnded = !show(*record);
}

/// As long as the store is as it was the days hold the very records that are to be shown. From the first
/// difference on each record is looked up.
bool CListedRecords::ShowDays(const Show& show) {
    CRecordReader::Days days;
    if (!m_reader.ReadDays(*m_nextDay, kPage, days)) return false;
    std::sort(days.records.begin(), days.records.end(), &IsEarlier);
    if (!AreNext(days.records)) {
        m_nextDay.reset();
        return true;
    }
    for (const Record& record : days.records)
        if (!IsDone()) ShowNext(record.get(), show);
    m_nextDay = days.next;
    return true;
}

/// Whether these are the next ones of the list, and no held one among them.
bool CListedRecords::AreNext(const std::vector<Record>& records) const {
    if (records.empty()) return false;
    const std::size_t count = std::min(records.size(), m_ids.size() - m_place);
    for (std::size_t i = 0; i < count; ++i)
        if (m_ids[m_place + i] != PackedOf(records[i]->GetId())) return false;
    return m_held.lower_bound(m_place) == m_held.lower_bound(m_place + count);
}

/// A page of records by their identities; held ones among them stand in for themselves.
bool CListedRecords::ShowByIds(const Show& show) {
    QStringList ids;
    for (std::size_t place = m_place; place < std::min(m_place + kPage, m_ids.size()); ++place)
        ids.append(UnpackedId(m_ids[place]));
    return m_reader.Read(ids, [&](const Record& read) {
        const auto held = m_held.find(m_place);
        ShowNext(held == m_held.end() ? read.get() : held->second.get(), show);
    });
}
