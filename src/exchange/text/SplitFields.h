#pragma once

#include "exchange/text/Delimiters.h"
#include "exchange/text/LineCode.h"

#include <QString>
#include <QStringList>

/// Takes a line apart. mostFields: the last of so many takes the rest of the line; 0: no limit. A doubled
/// qualifier within a field means nothing special, and behind a separator at the end of the line there is no
/// further field. On failure the fields up to there stand.
[[nodiscard]] LineCode SplitFields(const QString& line, int mostFields, const Delimiters& delimiters,
                                   QStringList& fields);
/// The line behind its first field with the qualifiers and the separator.
[[nodiscard]] QString WithoutFirstField(const QString& line, const Delimiters& delimiters);
