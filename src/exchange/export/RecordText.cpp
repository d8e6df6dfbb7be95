#include "exchange/export/RecordText.h"

#include "exchange/text/TextColumns.h"
#include "lang/FormatText.h"
#include "records/CVORec.h"

#include <algorithm>
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
    const bool endsWithSeparator = kind != RecordKind::Expense;
    qsizetype size = lineEnd.size();
    for (const QString& field : fields) size += field.size() + 2 * qualifier.size() + separator.size();
    // Many short pieces: into one buffer they take a fraction of what appending them one by one takes.
    QString line(size, Qt::Uninitialized);
    QChar* end = line.data();
    const auto put = [&end](const QString& piece) { end = std::ranges::copy(piece, end).out; };
    for (const QString& field : fields) {
        put(qualifier);
        put(field);
        put(qualifier);
        put(separator);
    }
    if (!endsWithSeparator && !fields.isEmpty()) end -= separator.size();
    put(lineEnd);
    line.truncate(end - line.constData());
    return line;
}

QString ItemLine(const QString& list, const QString& text, const Delimiters& delimiters) {
    const auto& [qualifier, separator, lineEnd] = delimiters;
    return qualifier + list + qualifier + separator + qualifier + text + qualifier + lineEnd;
}
