#pragma once

#include "exchange/text/Delimiters.h"
#include "records/FieldDef.h"

#include <QString>
#include <QStringList>

class CVORec;
struct ColumnNames;

// The lines of a text file of records, each with its line end. A field is written as it is: a text qualifier
// or a line break in it isn't marked as such, and a delimiter that is empty is left out.

/// What the columns are called. No separator stands behind the last one.
[[nodiscard]] QString HeadLine(RecordKind kind, const Delimiters& delimiters, const ColumnNames& names);
/// What stands in the columns for a record.
[[nodiscard]] QStringList FieldsIn(const CVORec& record);
/// Of a time each field has a separator behind it, the last one too; an expense ends without. Readers of
/// these files know both, so it stays.
[[nodiscard]] QString LineOf(RecordKind kind, const QStringList& fields, const Delimiters& delimiters);
/// A list's name and a text.
[[nodiscard]] QString ItemLine(const QString& list, const QString& text, const Delimiters& delimiters);
