#pragma once

#include "reports/definition/CReportDef.h"

#include <QByteArray>

// Lists of fields as they are stored: a count, then as many fields, or pairs of a field and its direction.
// All are 32-bit numbers, the lowest byte first.

[[nodiscard]] QByteArray ToBytes(const QList<FieldId>& fields);
[[nodiscard]] QByteArray ToBytes(const QList<SortKey>& keys);
/// Empty when the count doesn't fit the size exactly, or there are no bytes. Fields that reports don't know
/// are left out.
[[nodiscard]] QList<FieldId> FieldsOfBytes(const QByteArray* bytes);
[[nodiscard]] QList<SortKey> SortKeysOfBytes(const QByteArray* bytes);
