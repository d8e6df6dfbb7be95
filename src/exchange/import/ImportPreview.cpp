#include "exchange/import/ImportPreview.h"

#include "app/ListNameMap.h"
#include "exchange/import/ItemImport.h"
#include "exchange/text/TextColumns.h"
#include "lang/FormatText.h"

#include <algorithm>

namespace {

QStringList WordsOf(const std::vector<RefusedLine>& refused) {
    QStringList words;
    for (const RefusedLine& line : refused)
        words.append(FormatText<Text::ImportRefusalLine>(line.number, TextOf(line.code), line.line));
    return words;
}

QStringList ColumnsOf(const CVORec& record) {
    QStringList texts;
    for (const TextColumn& column : TextColumnsOf(record.Kind())) texts.append(TextIn(column, record));
    return texts;
}

QString CountsOf(const ImportPlan& plan, const CTextFile& file) {
    if (plan.end == ImportPlan::End::Undecodable)
        return FormatText<Text::LineUndecodable>(plan.lastLine, QString::fromLatin1(file.Encoding()));
    const auto refused = static_cast<int>(plan.refused.size());
    QString counts = plan.lastLine < kPreviewedLines
                         ? FormatText<Text::ImportCounts>(plan.records, refused, plan.duplicates)
                         : FormatText<Text::ImportCountsOfBeginning>(kPreviewedLines, plan.records, refused,
                                                                     plan.duplicates);
    return plan.misreadCount == 0 ? counts : FormatText<Text::ImportCountsNotes>(counts, plan.misreadCount);
}

}  // namespace

QString MisreadWords(const MisreadLine& line, const QString& field) {
    const auto& [row, text, read] = line.value;
    return read.isEmpty() ? FormatText<Text::ImportNoteNotRead>(line.number, field, text)
                          : FormatText<Text::ImportNoteReadAs>(line.number, field, text, read);
}

QStringList MisreadWords(std::span<const MisreadLine> misread, const ColumnNames& names) {
    QStringList words;
    for (const MisreadLine& line : misread) {
        const FieldRow* const field = line.value.field;
        const auto columns = TextColumnsOf(KindOf(*field));
        const auto column = std::ranges::find(columns, field, &TextColumn::field);
        words.append(MisreadWords(line, HeadOf(*column, names)));
    }
    return words;
}

ImportPreview PreviewRecords(CTextFile& file, const ImportRequest& request, const CStoredContents& stored,
                             const ColumnNames& names) {
    CRecordImport import(file, request, stored);
    const ImportPlan plan = import.Look(
        {.goesOn = [](const RefusedLine&) { return true; }, .advance = {}, .mostLines = kPreviewedLines});
    ImportPreview preview;
    for (const TextColumn& column : TextColumnsOf(request.kind)) preview.heads.append(HeadOf(column, names));
    for (const auto& record : plan.samples) preview.rows.append(ColumnsOf(*record));
    preview.refused = WordsOf(plan.refused);
    preview.misread = MisreadWords(plan.misread, names);
    preview.counts = CountsOf(plan, file);
    preview.encoding = file.Encoding();
    return preview;
}

ImportPreview PreviewItems(CTextFile& file, const Delimiters& delimiters, const QByteArray& encoding,
                           const CPulldownCatalogue& catalogue) {
    const ItemPlan plan = LookAtItems(file, delimiters, encoding);
    const std::vector<ListText> fresh = catalogue.NewAmong(plan.texts);
    const ListNameMap lists;
    ImportPreview preview;
    for (const ListText& item : fresh) {
        if (preview.rows.size() >= static_cast<qsizetype>(CRecordImport::kSamples)) break;
        const QString* name = lists.ListName(item.list);
        preview.rows.append(QStringList{name ? *name : QString(), item.text});
    }
    preview.refused = WordsOf(plan.refused);
    preview.counts = FormatText<Text::ImportItemCounts>(static_cast<int>(fresh.size()),
                                                        static_cast<int>(plan.refused.size()));
    preview.encoding = file.Encoding();
    return preview;
}
