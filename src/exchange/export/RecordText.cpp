#include "exchange/export/RecordText.h"

#include "exchange/text/TextColumns.h"
#include "lang/FormatText.h"
#include "records/CVORec.h"

#include <QStringList>

QString HeadLine(RecordKind kind, const Delimiters& delimiters, const FieldLabels& labels,
                 const Settings& settings) {
    const auto& [qualifier, separator, lineEnd] = delimiters;
    const QString between = FormatText<Text::ExportBetweenFields>(qualifier, separator, qualifier);
    QStringList heads;
    for (const TextColumn& column : TextColumnsOf(kind)) heads.append(HeadOf(column, labels, settings));
    return FormatText<Text::ExportLineStart>(qualifier) + heads.join(between) +
           FormatText<Text::ExportLineEnd>(qualifier, lineEnd);
}

QString LineOf(const CVORec& record, const Delimiters& delimiters) {
    const auto& [qualifier, separator, lineEnd] = delimiters;
    QString line;
    for (const TextColumn& column : TextColumnsOf(record.Kind()))
        line += qualifier + TextIn(column, record) + qualifier + separator;
    if (record.Kind() == RecordKind::Expense) line.chop(separator.size());
    return line + lineEnd;
}

QString ItemLine(const QString& list, const QString& text, const Delimiters& delimiters) {
    const auto& [qualifier, separator, lineEnd] = delimiters;
    return qualifier + list + qualifier + separator + qualifier + text + qualifier + lineEnd;
}
