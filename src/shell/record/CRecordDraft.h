#pragma once

#include "records/CTRecord.h"

#include <functional>

/// The record while it is edited. What is typed into a field is tried from the same starting point at every
/// key, so that all that depends on it follows while typing: "1", "1:", "1:3", "1:30" is one entry, not four.
class CRecordDraft {
 public:
    using Rule = std::function<void(CTRecord& record)>;

    void Begin(const CTRecord& record);
    [[nodiscard]] const CTRecord& Record() const { return m_record; }

    /// An entry into a field, in place of what was tried for that field since the last settlement.
    void Try(int field, const Rule& rule);
    /// Takes the entry into the field back.
    void Undo(int field);
    /// What was tried holds.
    void Settle() { m_field = kNoField; }
    /// A change from elsewhere, a timer's count for example, also while an entry is tried.
    void Change(const Rule& rule);

 private:
    static constexpr int kNoField = -1;
    void StartFrom(int field);

    CTRecord m_record;
    CTRecord m_start;  ///< before the entry into m_field
    int m_field = kNoField;
};
