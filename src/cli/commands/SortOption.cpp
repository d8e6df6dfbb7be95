#include "cli/commands/SortOption.h"

#include "cli/arguments/CArguments.h"
#include "lang/FormatText.h"

#include <QStringList>

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr OptionRow kSortOption[] = {
    {"sort", "COLUMN[:asc|:desc]", OptionShape::Value, Text::CliOptSort},
};

QString ColumnNames(RecordKind kind) {
    QStringList names;
    for (const RecordColumn& column : RecordColumns(kind))
        if (column.CanSort()) names.append(QString::fromLatin1(column.Name()));
    return names.join(u", "_s);
}

}  // namespace

std::span<const OptionRow> SortOption() {
    return kSortOption;
}

QString ReadSort(RecordKind kind, const CArguments& arguments, ListOrder& order) {
    const auto sort = arguments.Value("sort");
    if (!sort) return {};
    const QString name = sort->section(u':', 0, 0), direction = sort->section(u':', 1);
    order.column = FindRecordColumn(kind, name);
    order.isDescending = direction == u"desc";
    const bool isDirection = order.isDescending || direction == u"asc" || !sort->contains(u':');
    const bool isGood = order.column && order.column->CanSort() && isDirection;
    return isGood ? QString() : FormatText<Text::CliNoSuchOrder>(*sort, ColumnNames(kind));
}
