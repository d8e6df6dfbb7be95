#include "changes/DemoData.h"

#include "app/CVelmarchDoc.h"
#include "calendar/CalendarMath.h"
#include "changes/DemoWords.h"
#include "fields/ListId.h"
#include "platform/host/CClock.h"
#include "records/CERecord.h"
#include "records/CPRecord.h"
#include "records/CRecordStore.h"
#include "records/CTRecord.h"
#include "records/NamedChange.h"
#include "records/RecordFactory.h"
#include "records/StoreTransaction.h"

#include <algorithm>
#include <optional>
#include <random>
#include <span>
#include <vector>

namespace {

constexpr int kReported = 10000;
constexpr int kRecordsPerDay = 5;
constexpr int kMostYears = 30;

/// A working day from 7:30 to 18:30, in minutes.
constexpr int kDayStart = 7 * 60 + 30;
constexpr int kDayLength = 11 * 60;

/// Records older than these many working days are billed, older than those also exported.
constexpr int kBilledAfter = 40;
constexpr int kExportedAfter = 60;

QString TextOf(std::u16string_view text) {
    return QString::fromUtf16(text.data(), static_cast<qsizetype>(text.size()));
}

/// Numbers that are the same everywhere: the distributions of the standard library differ between libraries.
class Dice {
 public:
    explicit Dice(std::uint32_t seed) : m_engine(seed) {}
    /// 0 to sides - 1.
    int Below(int sides) {
        return static_cast<int>((std::uint64_t{m_engine()} * static_cast<std::uint64_t>(sides)) >> 32U);
    }
    bool OneIn(int sides) { return Below(sides) == 0; }

 private:
    std::mt19937 m_engine;
};

/// Texts made once: a million records share them.
std::vector<QString> TextsOf(std::span<const std::u16string_view> words) {
    std::vector<QString> texts;
    for (const std::u16string_view word : words) texts.push_back(TextOf(word));
    return texts;
}

struct ClientTexts {
    explicit ClientTexts(const DemoWords::Client& client)
        : name(TextOf(client.name)),
          projects(TextsOf(client.projects)),
          currency(TextOf(client.currency)),
          rate(static_cast<float>(client.rate)) {}
    QString name;
    std::vector<QString> projects;
    QString currency;
    float rate;
};

struct Words {
    std::vector<ClientTexts> clients{std::begin(DemoWords::kClients), std::end(DemoWords::kClients)};
    std::vector<QString> activities = TextsOf(DemoWords::kActivities);
    std::vector<QString> costCentres = TextsOf(DemoWords::kCostCentres);
    std::vector<QString> notes = TextsOf(DemoWords::kNotes);
    std::vector<QString> expenseTypes = TextsOf(DemoWords::kExpenseTypes);
    std::vector<QString> payments = TextsOf(DemoWords::kPayments);
    std::vector<QString> currencies = TextsOf(DemoWords::kCurrencies);
};

template <class T>
const T& AnyOf(const std::vector<T>& things, Dice& dice) {
    return things[static_cast<std::size_t>(dice.Below(static_cast<int>(things.size())))];
}

/// Where a record stands among its kind: its day, and which of how many records of that day it is.
struct Place {
    RecordDate date;
    int age = 0;  ///< in working days, 0 for the last one
    int number = 0;
    int ofDay = 1;
};

/// The working days up to today over which so many records are spread.
std::vector<CalendarDay> WorkingDays(const CClock& clock, int records) {
    const SYSTEMTIME today = clock.GetLocalTime();
    const int wanted = std::clamp(records / kRecordsPerDay, 1, kMostYears * 260);
    std::vector<CalendarDay> days;
    for (int number = DayNumber(today.wMonth, today.wDay, today.wYear);
         static_cast<int>(days.size()) < wanted; --number) {
        const CalendarDay day = FromDayNumber(number);
        const int weekday = DayOfWeek(day.month, day.day, day.year);
        if (weekday != 0 && weekday != 6) days.push_back(day);
    }
    std::reverse(days.begin(), days.end());
    return days;
}

/// Adds records in one transaction: a home that is filled in part couldn't be filled again. Nobody shows
/// them, so they aren't held.
class BatchWriter {
 public:
    BatchWriter(CVelmarchDoc& document, const std::function<void(int)>& progress)
        : m_document(document),
          m_progress(progress),
          m_named(document.Store(), ChangeKind::Demo),
          m_batch(document.Store()) {}

    [[nodiscard]] bool Write(const CVORec& record) {
        Report();
        return m_batch.IsOpen() &&
               m_document.AddRecord(record, {Notify::No, Commit::Later, Identity::New, Hold::No});
    }
    [[nodiscard]] bool WriteItem(CPRecord& item) {
        item.GenUnique();
        return m_batch.IsOpen() && m_document.Store().InsertRecord(item, Commit::Later);
    }
    [[nodiscard]] bool Finish() {
        const CommitEnd end = m_batch.Commit();
        if (end == CommitEnd::Durable && m_progress) m_progress(m_written);
        return end == CommitEnd::Durable;
    }

 private:
    void Report() {
        if (m_progress && m_written > 0 && m_written % kReported == 0) m_progress(m_written);
        ++m_written;
    }

    CVelmarchDoc& m_document;
    const std::function<void(int)>& m_progress;
    NamedChange m_named;
    StoreTransaction m_batch;
    int m_written = 0;
};

// --- List items

[[nodiscard]] bool WriteItem(BatchWriter& writer, int list, CPRecord item) {
    item.listId = list;
    return writer.WriteItem(item);
}

[[nodiscard]] bool WriteItems(BatchWriter& writer, int list, const std::vector<QString>& texts) {
    return std::all_of(texts.begin(), texts.end(), [&writer, list](const QString& text) {
        return WriteItem(writer, list, CPRecord(text));
    });
}

[[nodiscard]] bool WriteLists(BatchWriter& writer, const Words& words) {
    for (const ClientTexts& client : words.clients) {
        if (!WriteItem(writer, ListId::kClient, CPRecord(client.name)) ||
            !WriteItems(writer, ListId::kProject, client.projects) ||
            !WriteItem(writer, ListId::kTimeRate, CPRecord(client.rate)))
            return false;
    }
    return WriteItems(writer, ListId::kTimeItem3, words.activities) &&
           WriteItems(writer, ListId::kTimeItem4, words.costCentres) &&
           WriteItems(writer, ListId::kExpenseItem3, words.expenseTypes) &&
           WriteItems(writer, ListId::kExpenseItem4, words.payments) &&
           WriteItems(writer, ListId::kItem5, words.currencies) &&
           WriteItem(writer, ListId::kDistanceRate, CPRecord(DemoWords::kDistanceRate));
}

// --- Records

void SetClock(CTRecord& record, int minutes, bool isEnd) {
    int hour = 0;
    bool isPm = false;
    Hour12Of(minutes / 60, hour, isPm);
    if (isEnd)
        record.SetEnd(hour, minutes % 60, isPm);
    else
        record.SetStart(hour, minutes % 60, isPm);
}

/// The day is shared out among its records; one in ten has only a duration.
void SetTimes(CTRecord& record, const Place& place, Dice& dice) {
    const int share = std::max(kDayLength / place.ofDay, 1);
    const int from = kDayStart + kDayLength * place.number / place.ofDay;
    const int length = std::max(share - dice.Below(share / 4 + 1), 1);
    if (dice.OneIn(10)) {
        record.SetDuration(length / 60, length % 60, false);
        return;
    }
    SetClock(record, from, false);
    SetClock(record, from + length, true);
    if (length > 4 * 60) record.SetBreak(0, 30);
}

void MakeTime(CTRecord& record, const Place& place, const Words& words, Dice& dice) {
    const ClientTexts& client = AnyOf(words.clients, dice);
    record.Reset();
    record.date.Copy(place.date);
    record.item1 = client.name;
    record.item2 = AnyOf(client.projects, dice);
    record.item3 = AnyOf(words.activities, dice);
    record.item4 = AnyOf(words.costCentres, dice);
    record.item5 = client.currency;
    if (dice.OneIn(5)) record.notes = AnyOf(words.notes, dice);
    SetTimes(record, place, dice);
    if (dice.Below(10) < 7) {
        record.SetBillable(true);
        record.SetRate(client.rate);
        record.isBilled = place.age > kBilledAfter;
    }
    record.isExported = place.age > kExportedAfter;
}

/// A drive: the odometer goes on from drive to drive.
void SetDrive(CERecord& record, int& odometer, Dice& dice) {
    const int distance = 5 + dice.Below(200);
    record.isDistance = true;
    record.distance.Set(static_cast<float>(distance));
    record.rate.Set(DemoWords::kDistanceRate);
    record.amount.Set(static_cast<float>(distance) * DemoWords::kDistanceRate);
    record.odometerStart = QString::number(odometer);
    odometer += distance;
    record.odometerEnd = QString::number(odometer);
}

void MakeExpense(CERecord& record, const Place& place, const Words& words, int& odometer, Dice& dice) {
    const ClientTexts& client = AnyOf(words.clients, dice);
    record.Reset();
    record.date.Copy(place.date);
    record.item1 = client.name;
    record.item2 = AnyOf(client.projects, dice);
    record.item3 = AnyOf(words.expenseTypes, dice);
    record.item4 = AnyOf(words.payments, dice);
    record.item5 = client.currency;
    if (dice.OneIn(5)) record.notes = AnyOf(words.notes, dice);
    if (dice.OneIn(3))
        SetDrive(record, odometer, dice);
    else
        record.amount.Set(static_cast<float>(100 + dice.Below(20000)) / 100.0F);
    record.flag1 = dice.OneIn(2);
    record.flag2 = record.flag1 && place.age > kBilledAfter;
    record.isExported = place.age > kExportedAfter;
}

/// Spreads so many records evenly over the days and calls make for each.
template <class Make>
[[nodiscard]] bool SpreadOver(const std::vector<CalendarDay>& days, int records, Make&& make) {
    const auto total = static_cast<std::int64_t>(records), count = static_cast<std::int64_t>(days.size());
    Place place;
    for (std::int64_t day = 0; day < count; ++day) {
        const CalendarDay& date = days[static_cast<std::size_t>(day)];
        place.date = {date.month, date.day, date.year, {}, {}, {}};  // its texts aren't stored
        place.age = static_cast<int>(count - 1 - day);
        place.ofDay = static_cast<int>(total * (day + 1) / count - total * day / count);
        for (place.number = 0; place.number < place.ofDay; ++place.number)
            if (!make(place)) return false;
    }
    return true;
}

enum class Emptiness { Empty, Taken, Unknown };

Emptiness LookInto(CRecordStore& store) {
    for (const RecordKind kind :
         {RecordKind::Time, RecordKind::Expense, RecordKind::PulldownItem, RecordKind::Dependency}) {
        const std::unique_ptr<CVORec> record = NewRecord(kind);
        QString id;
        const bool asked = store.Query(store.SelectAll(kind));
        const bool found = asked && store.NextRecord(*record, id, false);
        store.Manager().CloseQuery();
        if (found) return Emptiness::Taken;
        if (!asked || store.m_lastError != 0) return Emptiness::Unknown;
    }
    return Emptiness::Empty;
}

}  // namespace

DemoCounts ShareOut(int records) {
    const int expenses = records / 10;
    return {records - expenses, expenses};
}

DemoOutcome FillWithDemoData(CVelmarchDoc& document, const CClock& clock, const DemoCounts& counts,
                             std::uint32_t seed, const std::function<void(int written)>& progress) {
    const Emptiness before = LookInto(document.Store());
    if (before != Emptiness::Empty)
        return before == Emptiness::Taken ? DemoOutcome::NotEmpty : DemoOutcome::Failed;

    const Words words;
    const std::vector<CalendarDay> days = WorkingDays(clock, counts.times + counts.expenses);
    Dice dice(seed);
    BatchWriter records(document, progress);
    CTRecord time;
    CERecord expense;
    int odometer = 12000;
    const bool written = WriteLists(records, words) &&
                         SpreadOver(days, counts.times,
                                    [&](const Place& place) {
                                        MakeTime(time, place, words, dice);
                                        return records.Write(time);
                                    }) &&
                         SpreadOver(days, counts.expenses,
                                    [&](const Place& place) {
                                        MakeExpense(expense, place, words, odometer, dice);
                                        return records.Write(expense);
                                    }) &&
                         records.Finish();
    return written ? DemoOutcome::Filled : DemoOutcome::Failed;
}
