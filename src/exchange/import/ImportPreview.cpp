#include "exchange/import/ImportPreview.h"

#include "app/ListNameMap.h"
#include "exchange/import/ItemImport.h"
#include "exchange/text/TextColumns.h"
#include "lang/FormatText.h"

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

}  // namespace

ImportPreview PreviewRecords(CTextFile& file, const ImportRequest& request, CRecordStore& store,
                             const FieldLabels& labels, const Settings& settings) {
    CRecordImport import(file, request);
    const ImportPlan plan = import.Look({.store = store,
                                         .goesOn = [](const RefusedLine&) { return true; },
                                         .advance = {},
                                         .mostLines = kPreviewedLines});
    ImportPreview preview;
    for (const TextColumn& column : TextColumnsOf(request.kind))
        preview.heads.append(HeadOf(column, labels, settings));
    for (const auto& record : plan.samples) preview.rows.append(ColumnsOf(*record));
    preview.refused = WordsOf(plan.refused);
    const auto refused = static_cast<int>(plan.refused.size());
    preview.counts = plan.lastLine < kPreviewedLines
                         ? FormatText<Text::ImportCounts>(plan.records, refused, plan.duplicates)
                         : FormatText<Text::ImportCountsOfBeginning>(kPreviewedLines, plan.records, refused,
                                                                     plan.duplicates);
    if (plan.end == ImportPlan::End::Undecodable)
        preview.counts =
            FormatText<Text::LineUndecodable>(plan.lastLine, QString::fromLatin1(file.Encoding()));
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
