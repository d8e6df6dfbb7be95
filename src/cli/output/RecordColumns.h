#pragma once

#include "cli/output/TimerShown.h"
#include "lang/Text.h"
#include "records/CVORec.h"

#include <QString>
#include <optional>
#include <span>

class CJsonText;
struct FieldRow;

/// One record as it is shown.
struct RecordRow {
    const CVORec& record;
    std::optional<TimerShown> timer = {};
    bool isStored = true;  ///< one that isn't has null for its identity
};

/// What a column of the console shows: a field of a record, or what stands beside the fields.
enum class ColumnContent { Identity, Field, Timer };

/// One column of a kind of records. The functions take records of that kind only.
class RecordColumn {
 public:
    explicit RecordColumn(ColumnContent content, const FieldRow* field = nullptr)
        : m_content(content), m_field(field) {}

    /// In JSON and for sorting.
    [[nodiscard]] const char* Name() const;
    [[nodiscard]] QString Caption() const;
    /// Whether it stands in lists for people; single records show every column.
    [[nodiscard]] bool IsListed() const;
    /// Aligned to the right.
    [[nodiscard]] bool IsNumber() const;
    /// A timer is none of the record's own values.
    [[nodiscard]] bool CanSort() const { return m_content != ColumnContent::Timer; }

    void WriteJson(CJsonText& json, const RecordRow& row) const;
    /// What people read; empty for what isn't set.
    [[nodiscard]] QString TextOf(const RecordRow& row) const;
    /// Below 0, 0, above 0. What isn't set comes first.
    [[nodiscard]] int Compare(const CVORec& a, const CVORec& b) const;

 private:
    ColumnContent m_content;
    const FieldRow* m_field;  ///< null for what is no field
};

/// All columns of a kind (time or expense) in the order of the JSON form.
[[nodiscard]] std::span<const RecordColumn> RecordColumns(RecordKind kind);
[[nodiscard]] const RecordColumn* FindRecordColumn(RecordKind kind, const QString& name);
[[nodiscard]] bool AreOfOneDay(const CVORec& a, const CVORec& b);
/// By date, then by start where there is one, then by identity, so that every order is the same each time.
[[nodiscard]] int CompareDays(const CVORec& a, const CVORec& b);
