#include "shell/record/CRecordDraft.h"

void CRecordDraft::Begin(const CTRecord& record) {
    Settle();
    m_record.Copy(record);
}

void CRecordDraft::StartFrom(int field) {
    if (m_field == field)
        m_record.Copy(m_start);
    else
        m_start.Copy(m_record);
    m_field = field;
}

void CRecordDraft::Try(int field, const Rule& rule) {
    StartFrom(field);
    rule(m_record);
}

void CRecordDraft::Undo(int field) {
    StartFrom(field);
}

void CRecordDraft::Change(const Rule& rule) {
    rule(m_record);
    if (m_field != kNoField) rule(m_start);
}
