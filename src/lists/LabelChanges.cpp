#include "lists/LabelChanges.h"

#include "app/FieldLabels.h"
#include "lang/LoadText.h"
#include "lists/DependencyChain.h"
#include "lists/LabelSets.h"

namespace {

constexpr RecordMode kModes[] = {RecordMode::Time, RecordMode::Expense};

/// Headings that head no list take the title of their field.
QString TitleOfHeading(int field) {
    for (const RecordMode mode : kModes)
        for (const LabelRow& row : LabelRows(mode))
            if (row.first == field) return LoadText(row.title);
    return {};
}

}  // namespace

QString DefaultLabel(int field) {
    if (QString name = FieldLabels::Default(field); !name.isEmpty()) return name;
    QString heading = DefaultHeading(field);
    return heading.isEmpty() ? TitleOfHeading(field) : heading;
}

QString ShownLabel(const FieldLabels& labels, int field) {
    const QString own = labels.Own(field);
    return own.isEmpty() ? DefaultLabel(field) : own;
}

std::vector<LabelChange> LabelChanges(const FieldLabels& labels, const std::map<int, QString>& names) {
    std::vector<LabelChange> changes;
    const auto look = [&](RecordMode mode, const LabelRow& row, int field) {
        const auto name = names.find(field);
        if (name == names.end()) return;
        const QString now = ShownLabel(labels, field);
        const QString then = name->second.isEmpty() ? DefaultLabel(field) : name->second;
        if (now != then) changes.push_back({mode, row.title, field == row.first, now, then});
    };
    for (const RecordMode mode : kModes)
        for (const LabelRow& row : LabelRows(mode)) {
            look(mode, row, row.first);
            look(mode, row, row.second);
        }
    return changes;
}
