#include "viewmodel/work/CRecentWork.h"

#include "app/CVelmarchDoc.h"
#include "records/CTRecord.h"

#include <QHash>
#include <algorithm>
#include <limits>
#include <utility>

namespace {

using Moment = std::int64_t;

constexpr Moment kMinutesOfDay = 24 * 60;
constexpr Moment kFirstMoment = 1;  ///< a record without a date lies before it
constexpr std::size_t kMostEntries = 50;
constexpr std::size_t kMostNotes = 50;
constexpr qsizetype kLongestNote = 120;
/// How many days back is looked, one after the other; the last is as far as there are records.
constexpr int kDaysBack[] = {60, 400, 0};

/// Days as they follow one another, with gaps at the ends of short months.
int DayOf(int year, int month, int day) {
    return (year * 12 + month) * 31 + day;
}

int DayOf(const CTRecord& record) {
    return record.date.IsSet() ? DayOf(record.date.year, record.date.month, record.date.day) : 0;
}

/// A record without a start lies at the beginning of its day.
Moment MomentOf(const CTRecord& record) {
    int minutes = 0;
    if (record.HasStart())
        minutes = (record.startHour % 12 + (record.startIsPm ? 12 : 0)) * 60 + record.startMinute;
    return DayOf(record) * kMinutesOfDay + minutes;
}

const CTRecord& TimeOf(const CVORec& record) {
    return static_cast<const CTRecord&>(record);
}

/// The newest record of each of some keys.
template <class Key>
class NewestOf {
 public:
    void Note(const Key& key, Moment moment, const CTRecord& record) {
        Newest& newest = m_found[key];
        const Newest noted{moment, &record};
        if (!newest.record || noted.IsAfter(newest)) newest = noted;
    }
    /// The newest first.
    [[nodiscard]] std::vector<std::pair<Key, const CTRecord*>> Sorted(std::size_t most) const {
        std::vector<std::pair<Newest, Key>> order;
        for (auto it = m_found.begin(); it != m_found.end(); ++it) order.push_back({it.value(), it.key()});
        const auto middle = order.begin() + static_cast<std::ptrdiff_t>(std::min(most, order.size()));
        std::partial_sort(order.begin(), middle, order.end(),
                          [](const auto& a, const auto& b) { return a.first.IsAfter(b.first); });
        std::vector<std::pair<Key, const CTRecord*>> sorted;
        for (auto it = order.begin(); it != middle; ++it) sorted.push_back({it->second, it->first.record});
        return sorted;
    }

 private:
    /// Of those of one minute the one that was made later: identities begin with the time of their making.
    struct Newest {
        Moment moment = 0;
        const CTRecord* record = nullptr;

        [[nodiscard]] bool IsAfter(const Newest& other) const {
            return moment != other.moment ? moment > other.moment : record->GetId() > other.record->GetId();
        }
    };
    QHash<Key, Newest> m_found;
};

bool IsNoteOfOneLine(const QString& notes) {
    return !notes.isEmpty() && notes.size() <= kLongestNote && !notes.contains(u'\n');
}

}  // namespace

void CRecentWork::OnHint(Hint hint) {
    switch (hint) {
        case Hint::Added:
        case Hint::Changed:
        case Hint::Deleted:
        case Hint::Rebuild:
            m_isStale = true;
            return;
        default:
            return;
    }
}

const std::vector<CRecentWork::Entry>& CRecentWork::Entries() {
    Look();
    return m_entries;
}

const QStringList& CRecentWork::Notes() {
    Look();
    return m_notes;
}

void CRecentWork::Look() {
    DateTimeVal today;
    static_cast<void>(today.SetToday(m_document.Clock()));
    const int day = DayOf(today.year, today.month, today.day);
    const bool areTimesLoaded = theRecordMode == RecordMode::Time;
    if (!areTimesLoaded || (!m_isStale && day == m_day)) return;
    m_isStale = false;
    m_day = day;
    const std::vector<const CVORec*> records = m_document.CollectPassing(TimeFilter());
    const Moment end = (day + 1) * kMinutesOfDay;
    for (const int back : kDaysBack) {
        DateTimeVal first = today;
        first.SubtractDays(back);
        Collect(records, back > 0 ? DayOf(first.year, first.month, first.day) * kMinutesOfDay : kFirstMoment,
                end);
        if (m_entries.size() >= kEnough) return;
    }
}

/// Each note is another one in most records, so they are gathered of a while only.
void CRecentWork::Collect(const std::vector<const CVORec*>& records, Moment from, Moment to) {
    const bool withNotes = from > kFirstMoment;
    NewestOf<Work> works;
    NewestOf<QString> notes;
    for (const CVORec* each : records) {
        const CTRecord& record = TimeOf(*each);
        const Moment moment = MomentOf(record);
        if (moment < from || moment >= to) continue;
        if (Work work = KindOfWork(record); !work.IsEmpty()) works.Note(work, moment, record);
        if (withNotes && IsNoteOfOneLine(record.notes)) notes.Note(record.notes, moment, record);
    }
    m_entries.clear();
    for (const auto& [work, record] : works.Sorted(kMostEntries))
        m_entries.push_back({work, TermsOf(*record)});
    if (!withNotes) return;
    m_notes.clear();
    for (const auto& [note, record] : notes.Sorted(kMostNotes)) m_notes << note;
}

WorkTerms CRecentWork::TermsFor(const Work& work) {
    Work kind = work;
    if (kind.HasItems()) kind.notes.clear();
    const std::vector<Entry>& entries = Entries();
    const auto same = std::ranges::find(entries, kind, &Entry::work);
    if (same != entries.end()) return same->terms;
    const QString& client = work.Client();
    if (client.isEmpty()) return {};
    if (theRecordMode == RecordMode::Time) return TermsOfClient(client);
    const auto ofClient =
        std::ranges::find_if(entries, [&](const Entry& entry) { return entry.work.Client() == client; });
    return ofClient == entries.end() ? WorkTerms() : ofClient->terms;
}

WorkTerms CRecentWork::TermsOfClient(const QString& client) {
    const Moment end = (m_day + 1) * kMinutesOfDay;
    const CTRecord* newest = nullptr;
    for (const CVORec* each : m_document.CollectPassing(TimeFilter())) {
        const CTRecord& record = TimeOf(*each);
        if (record.item1 != client || MomentOf(record) >= end) continue;
        if (!newest || MomentOf(record) > MomentOf(*newest)) newest = &record;
    }
    return newest ? TermsOf(*newest) : WorkTerms();
}
