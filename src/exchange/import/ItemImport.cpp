#include "exchange/import/ItemImport.h"

#include "app/ListNameMap.h"
#include "exchange/text/SplitFields.h"
#include "records/FieldDef.h"

namespace {

LineCode ReadItemLine(const QString& line, const Delimiters& delimiters, const ListNameMap& lists,
                      ListText& item) {
    QStringList fields;
    const LineCode code = SplitFields(line, 0, delimiters, fields);
    if (code != LineCode::Parsed) return code;
    if (fields.size() != 2) return fields.size() < 2 ? LineCode::TooFewFields : LineCode::TooManyFields;
    item.text = fields[1];
    return lists.ListIdByName(fields[0], item.list) ? LineCode::Parsed : LineCode::UnknownList;
}

ItemPlan::End EndOf(CLineReader::Next next) {
    switch (next) {
        case CLineReader::Next::Failed:
            return ItemPlan::End::Failed;
        case CLineReader::Next::Undecodable:
            return ItemPlan::End::Undecodable;
        default:
            return ItemPlan::End::Complete;
    }
}

}  // namespace

ItemPlan LookAtItems(CTextFile& file, const Delimiters& delimiters, const QByteArray& encoding,
                     const std::function<void(const RefusedLine& line)>& refused) {
    ItemPlan plan;
    file.Begin(encoding);
    const ListNameMap lists;
    CLineReader reader(file, delimiters);
    QString line;
    CLineReader::Next next = reader.ReadLine(line);
    for (; next == CLineReader::Next::Line && !line.isEmpty(); next = reader.ReadLine(line)) {
        ListText item{};
        const LineCode code =
            reader.IsTooLong() ? LineCode::TooLong : ReadItemLine(line, delimiters, lists, item);
        if (code == LineCode::UnknownList) {
            ++plan.skipped;
        } else if (code == LineCode::Parsed && item.text.size() <= kTextLength) {
            plan.texts.push_back(item);
        } else {
            plan.refused.push_back({reader.Number(), line.left(RefusedLine::kShown), code});
            if (refused) refused(plan.refused.back());
        }
    }
    plan.end = EndOf(next);
    plan.lastLine = reader.Number();
    return plan;
}
