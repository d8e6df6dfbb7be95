#include "fields/StoredColumns.h"

ColumnSet StoredColumnsOf(const FieldRow& field) {
    return std::visit([](auto member) { return ColumnsOf(member); }, field.member);
}
