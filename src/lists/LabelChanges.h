#pragma once

#include "app/RecordMode.h"
#include "lang/Text.h"

#include <QString>
#include <map>
#include <vector>

class FieldLabels;

/// What a field, or the heading of its list, is called without a name of the user. Empty for a number that
/// names neither.
[[nodiscard]] QString DefaultLabel(int field);
/// What it is called at present.
[[nodiscard]] QString ShownLabel(const FieldLabels& labels, int field);

/// One name that would be another one.
struct LabelChange {
    RecordMode mode;
    Text title;  ///< of the field
    bool isHeading;
    QString now, then;
};
/// What would be called otherwise with these own names, in the order in which fields are shown: those of time
/// records first, of a field its heading first. An empty name means the default, and what isn't among the
/// names stays as it is.
[[nodiscard]] std::vector<LabelChange> LabelChanges(const FieldLabels& labels,
                                                    const std::map<int, QString>& names);
