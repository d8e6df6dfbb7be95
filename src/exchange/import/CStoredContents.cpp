#include "exchange/import/CStoredContents.h"

#include "app/CRecordReader.h"
#include "exchange/text/TextColumns.h"
#include "fields/FieldValue.h"
#include "lang/LoadText.h"
#include "platform/sqlite/RowTable.h"
#include "records/CRecordStore.h"
#include "records/RecordFactory.h"

#include <QCryptographicHash>
#include <algorithm>
#include <memory>

namespace {

constexpr std::size_t kRows = 256;
/// No line has a day before or after these.
constexpr RowDay kFirstDay{0, 0, 0};
constexpr RowDay kLastDay{9999, 12, 31};

/// Lengths by the minute: the decimals that a file has may be rounded.
QString ContentOf(const TextColumn& column, const CVORec& record) {
    return column.field->form == FieldForm::Span ? SpanOf(record, *column.field).clockText
                                                 : TextIn(column, record);
}

}  // namespace

CStoredContents::ReadEnd CStoredContents::Read(CRecordStore& store, const std::function<bool()>& advance) {
    m_digests.clear();
    m_lastDay = {};
    std::optional<RowDay> day = kFirstDay;
    while (day) {
        if (advance && !advance()) return ReadEnd::Cancelled;
        if (!ReadDays(store, day)) return ReadEnd::Failed;
    }
    std::ranges::sort(m_digests);
    return ReadEnd::Complete;
}

bool CStoredContents::ReadDays(CRecordStore& store, std::optional<RowDay>& day) {
    RowConditions conditions;
    conditions.days = {*day, kLastDay};
    const std::size_t enough = m_digests.size() + kPiece;
    bool isRead = store.Query(store.Select(m_kind, conditions) + LoadText(Text::SqlInOrderOfDays));
    day.reset();
    RowTable rows;
    while (isRead && !day && !store.IsEOF()) {
        isRead = store.NextRows(rows, kRows);
        if (isRead) TakeRows(rows, enough, day);
    }
    store.Manager().CloseQuery();
    return isRead;
}

/// Up to the first day behind enough records, which is noted. A row that isn't one of these records is equal
/// to no line.
void CStoredContents::TakeRows(const RowTable& rows, std::size_t enough, std::optional<RowDay>& next) {
    for (std::size_t row = 0; row < rows.RowCount(); ++row) {
        const std::unique_ptr<CVORec> record = NewRecord(m_kind);
        if (!record->Load(rows, row)) continue;
        const RowDay day = CRecordReader::DayOf(*record);
        if (m_digests.size() >= enough && day != m_lastDay) {
            next = day;
            return;
        }
        m_lastDay = day;
        m_digests.push_back(DigestOf(*record));
    }
}

bool CStoredContents::Holds(const CVORec& record) const {
    return !m_digests.empty() && std::ranges::binary_search(m_digests, DigestOf(record));
}

CStoredContents::Digest CStoredContents::DigestOf(const CVORec& record) const {
    QCryptographicHash hash(QCryptographicHash::Md5);
    for (const TextColumn& column : TextColumnsOf(m_kind)) {
        if (m_form == RecordForm::Older && column.field->id == FieldId::Break) continue;
        const QByteArray text = ContentOf(column, record).toUtf8();
        hash.addData(text);
        hash.addData(QByteArrayView("\0", 1));
    }
    const QByteArray result = hash.result();
    Digest digest{};
    std::ranges::copy(result, digest.begin());
    return digest;
}
