#include "entry/RecordMarks.h"

#include "records/CTRecord.h"

bool SetMark(CTRecord& record, RecordMark mark) {
    switch (mark) {
        case RecordMark::First:
            if (record.isBillable) return false;
            record.SetBillable(true);
            return true;
        case RecordMark::FirstAndSecond:
            if (record.isBilled) return false;
            record.SetBillable(true);
            record.isBilled = true;
            return true;
        case RecordMark::Exported:
        case RecordMark::NotExported: {
            const bool isWanted = mark == RecordMark::Exported;
            if (record.isExported == isWanted) return false;
            record.isExported = isWanted;
            return true;
        }
    }
    return false;
}
