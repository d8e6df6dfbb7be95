#include "exchange/export/CRecordExport.h"

#include "exchange/export/RecordText.h"

CRecordExport::CRecordExport(const QString& path, const ExportForm& form, RecordKind kind,
                             const ColumnNames& names)
    : m_kind(kind), m_delimiters(form.delimiters), m_file(path, form), m_readBack(form.delimiters) {
    const QString head = HeadLine(kind, m_delimiters, names);
    m_readBack.TakeHead(head);
    static_cast<void>(m_file.Put(head));
}

void CRecordExport::Put(const CVORec& record) {
    const QStringList fields = FieldsIn(record);
    const QString line = LineOf(m_kind, fields, m_delimiters);
    m_readBack.TakeRecord(m_kind, fields, line);
    static_cast<void>(m_file.Put(line));
}

ExportEnd CRecordExport::Finish() {
    ExportEnd end = m_file.Finish();
    end.lost = m_readBack.LostCount();
    end.lostWords = m_readBack.Words();
    return end;
}
