#include "app/CRecordReader.h"

#include "app/CVelmarchDoc.h"
#include "lang/LoadText.h"
#include "records/CERecord.h"
#include "records/CTRecord.h"
#include "records/RecordFactory.h"

#include <QHash>
#include <unordered_map>
#include <utility>

namespace {

/// Rows that are read before they become records; more where a thread is made for them.
constexpr std::size_t PieceOf(Ahead ahead) {
    return ahead == Ahead::Yes ? 1024 : 256;
}

constexpr RowDay kLastDay{32767, 12, 31};

std::function<bool(const CVORec&)> TestOf(const CVelmarchDoc& document, RecordKind kind,
                                          const CTimerService* timers) {
    const PeriodContext context = document.GetPeriodContext();
    if (kind == RecordKind::Time)
        return [test = TimeFilter::Prepared(document.Filter(), context, timers)](const CVORec& record) {
            return test.Matches(static_cast<const CTRecord&>(record));
        };
    return [test = ExpenseFilter::Prepared(document.FilterOfExpenses(), context)](const CVORec& record) {
        return test.Matches(static_cast<const CERecord&>(record));
    };
}

/// Whether a filter asks for nothing but days.
template <class Filter>
bool AsksForDaysAlone(const Filter& filter) {
    Filter days;
    static_cast<PeriodFilter&>(days) = filter;
    return days == filter;
}

}  // namespace

CRecordReader::CRecordReader(CVelmarchDoc& document, RecordKind kind, const CTimerService* timers)
    : m_document(document), m_kind(kind), m_passes(TestOf(document, kind, timers)) {}

RowConditions CRecordReader::Conditions() const {
    const PeriodContext context = m_document.GetPeriodContext();
    return m_kind == RecordKind::Time ? m_document.Filter().Conditions(context)
                                      : m_document.FilterOfExpenses().Conditions(context);
}

bool CRecordReader::ReadAll(Order order, const Take& take) {
    QString statement = m_document.Store().Select(m_kind, Conditions());
    if (order == Order::OfDays) statement += LoadText(Text::SqlInOrderOfDays);
    return Walk(statement, Ahead::Yes, [&](std::unique_ptr<CVORec> record) {
        if (m_passes(*record)) take(std::move(record));
        return true;
    });
}

bool CRecordReader::IsPeriodAlone() const {
    return m_kind == RecordKind::Time ? AsksForDaysAlone(m_document.Filter())
                                      : AsksForDaysAlone(m_document.FilterOfExpenses());
}

bool CRecordReader::ReadColumns(ColumnSet columns, const See& see) {
    const auto readAll = [&] {
        return ReadAll(Order::Any, [&see](std::unique_ptr<CVORec> record) { see(*record); });
    };
    if (!IsPeriodAlone()) return readAll();
    const std::unique_ptr<CVORec> record = NewRecord(m_kind);
    const ColumnSet wanted =
        columns | (m_kind == RecordKind::Time ? ColumnsOf(&CTRecord::date) : ColumnsOf(&CERecord::date));
    CRecordStore& store = m_document.Store();
    if (!store.Query(SelectColumns(store, *record, wanted, Conditions()))) return false;
    RowTable rows;
    bool isRead = true;
    while (isRead && !store.IsEOF()) {
        isRead = store.NextRows(rows, PieceOf(Ahead::Yes), Ahead::Yes);
        // A table whose columns aren't those of the records shows at its first rows.
        if (isRead && !Fits(rows, *record, wanted)) return readAll();
        for (std::size_t row = 0; isRead && row < rows.RowCount(); ++row) {
            LoadColumns(*record, rows, row, wanted);
            if (m_passes(*record)) see(*record);
        }
    }
    store.Manager().CloseQuery();
    return isRead;
}

bool CRecordReader::ReadDays(const RowDay& from, std::size_t least, Days& days) {
    days = {};
    RowConditions conditions = Conditions();
    conditions.days = {from, conditions.days ? conditions.days->last : kLastDay};
    RowDay day = from;
    const QString statement =
        m_document.Store().Select(m_kind, conditions) + LoadText(Text::SqlInOrderOfDays);
    return Walk(statement, Ahead::No, [&](std::unique_ptr<CVORec> record) {
        const RowDay former = std::exchange(day, DayOf(*record));
        if (days.records.size() >= least && day != former) {
            days.next = day;
            return false;
        }
        if (m_passes(*record)) days.records.push_back(std::move(record));
        return true;
    });
}

RowDay CRecordReader::DayOf(const CVORec& record) {
    const auto day = [](const auto& date) { return RowDay{date.year, date.month, date.day}; };
    return record.Kind() == RecordKind::Time ? day(static_cast<const CTRecord&>(record).date)
                                             : day(static_cast<const CERecord&>(record).date);
}

bool CRecordReader::Read(const QStringList& ids, const Take& take) {
    std::unordered_map<QString, std::unique_ptr<CVORec>> found;
    const bool isRead =
        Walk(m_document.Store().SelectByIds(m_kind, ids), Ahead::No, [&](std::unique_ptr<CVORec> record) {
            if (m_passes(*record)) found.emplace(record->GetId(), std::move(record));
            return true;
        });
    if (!isRead) return false;
    for (const QString& id : ids) {
        const auto record = found.find(id);
        take(record == found.end() ? nullptr : std::move(record->second));
    }
    return true;
}

/// A table whose columns aren't those of the records shows at its first row.
bool CRecordReader::Walk(const QString& statement, Ahead ahead, const Step& step) {
    CRecordStore& store = m_document.Store();
    if (!store.Query(statement)) return false;
    RowTable rows;
    bool isRead = true, goesOn = true;
    while (isRead && goesOn && !store.IsEOF()) {
        isRead = store.NextRows(rows, PieceOf(ahead), ahead);
        for (std::size_t row = 0; isRead && goesOn && row < rows.RowCount(); ++row) {
            std::unique_ptr<CVORec> record = NewRecord(m_kind);
            if (!record->Load(rows, row)) return WalkRowByRow(statement, step);
            goesOn = step(std::move(record));
        }
    }
    store.Manager().CloseQuery();
    return isRead;
}

bool CRecordReader::WalkRowByRow(const QString& statement, const Step& step) {
    CRecordStore& store = m_document.Store();
    if (!store.Query(statement)) return false;
    QString id;
    bool goesOn = true;
    while (goesOn) {
        std::unique_ptr<CVORec> record = NewRecord(m_kind);
        goesOn = store.NextRecord(*record, id, true) && step(std::move(record));
    }
    store.Manager().CloseQuery();
    return store.m_lastError == 0;
}
