#include "records/CVORec.h"

#include "records/CDRecord.h"
#include "records/CERecord.h"
#include "records/CPRecord.h"
#include "records/CTRecord.h"

bool CVORec::Load(const RowTable&, std::size_t) {
    return false;
}

RowColumnType ColumnTypeOf(FieldType type) {
    switch (type) {
        case FieldType::Integer:
            return RowColumnType::Integer;
        case FieldType::Float:
            return RowColumnType::Real;
        case FieldType::Text:
        case FieldType::LongText:
            break;
    }
    return RowColumnType::Text;
}

std::unique_ptr<CVORec> NewRecord(RecordKind kind) {
    switch (kind) {
        case RecordKind::Time:
            return std::make_unique<CTRecord>();
        case RecordKind::Expense:
            return std::make_unique<CERecord>();
        case RecordKind::PulldownItem:
            return std::make_unique<CPRecord>();
        case RecordKind::Dependency:
            return std::make_unique<CDRecord>();
    }
    return nullptr;
}

std::span<const FieldDef> FieldDefsOf(RecordKind kind) {
    // The tables are static: they outlive the record that is asked for one.
    const std::unique_ptr<CVORec> record = NewRecord(kind);
    return record ? record->GetFieldDefs() : std::span<const FieldDef>{};
}
