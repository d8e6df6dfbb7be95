#include "records/RecordFactory.h"

#include "records/CDRecord.h"
#include "records/CERecord.h"
#include "records/CPRecord.h"
#include "records/CTRecord.h"

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
