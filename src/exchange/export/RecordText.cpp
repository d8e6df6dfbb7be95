#include "exchange/export/RecordText.h"

#include "exchange/text/TextColumns.h"
#include "lang/FormatText.h"
#include "records/CVORec.h"

#include <span>

QString HeadLine(RecordKind kind, const Delimiters& delimiters, const ColumnNames& names) {
    const auto& [qualifier, separator, lineEnd] = delimiters;
    const QString between = FormatText<Text::ExportBetweenFields>(qualifier, separator, qualifier);
    QStringList heads;
    for (const TextColumn& column : TextColumnsOf(kind)) heads.append(HeadOf(column, names));
    return FormatText<Text::ExportLineStart>(qualifier) + heads.join(between) +
           FormatText<Text::ExportLineEnd>(qualifier, lineEnd);
}

QStringList FieldsIn(const CVORec& record) {
    const std::span<const TextColumn> columns = TextColumnsOf(record.Kind());
    QStringList fields;
    fields.reserve(static_cast<qsizetype>(columns.size()));
    for (const TextColumn& column : columns) fields.append(TextIn(column, record));
    return fields;
}

QString LineOf(RecordKind kind, const QStringList& fields, const Delimiters& delimiters) {
    const auto& [qualifier, separator, lineEnd] = delimiters;
    qsizetype size = lineEnd.size();
    for (const QString& field : fields) size += field.size() + 2 * qualifier.size() + separator.size();
    QString line;
    line.reserve(size);
    for (const QString& field : fields)
        line.append(qualifier).append(field).append(qualifier).append(separator);
    if (kind == RecordKind::Expense) line.chop(separator.size());
    return line + lineEnd;
}

QString ItemLine(const QString& list, const QString& text, const Delimiters& delimiters) {
    const auto& [qualifier, separator, lineEnd] = delimiters;
    return qualifier + list + qualifier + separator + qualifier + text + qualifier + lineEnd;
}
