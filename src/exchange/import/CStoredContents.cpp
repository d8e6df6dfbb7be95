#include "exchange/import/CStoredContents.h"

#include "exchange/text/TextColumns.h"
#include "fields/FieldValue.h"
#include "records/CRecordStore.h"
#include "records/RecordFactory.h"

#include <QCryptographicHash>
#include <algorithm>
#include <memory>

namespace {

constexpr std::size_t kPiece = 500;

/// Lengths by the minute: the decimals that a file has may be rounded.
QString ContentOf(const TextColumn& column, const CVORec& record) {
    return column.field->form == FieldForm::Span ? SpanOf(record, *column.field).clockText
                                                 : TextIn(column, record);
}

}  // namespace

bool CStoredContents::Read(CRecordStore& store) {
    m_digests.clear();
    RowTable rows;
    bool isRead = store.Query(store.SelectAll(m_kind));
    while (isRead && !store.IsEOF()) {
        isRead = store.NextRows(rows, kPiece);
        for (std::size_t row = 0; isRead && row < rows.RowCount(); ++row) {
            const std::unique_ptr<CVORec> record = NewRecord(m_kind);
            // A row that isn't one of these records is equal to no line.
            if (record->Load(rows, row)) m_digests.push_back(DigestOf(*record));
        }
    }
    store.Manager().CloseQuery();
    std::ranges::sort(m_digests);
    return isRead;
}

bool CStoredContents::Holds(const CVORec& record) const {
    return std::ranges::binary_search(m_digests, DigestOf(record));
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
