#include "lists/CItemUse.h"

#include "app/ListTable.h"
#include "calendar/NumberText.h"
#include "fields/FieldTable.h"
#include "lang/FormatText.h"
#include "records/CRecordStore.h"
#include "records/MemberColumns.h"
#include "records/RecordFactory.h"

#include <bit>

namespace {

bool IsNumber(const FieldRow& field) {
    return field.form == FieldForm::Money || field.form == FieldForm::Distance;
}

/// The name of the column in which a field lies that lists serve: these have one each.
QString ColumnNameOf(const FieldRow& field) {
    const ColumnSet columns = std::visit([](const auto& member) { return ColumnsOf(member); }, field.member);
    const auto place = static_cast<std::size_t>(std::countr_zero(columns));
    return LoadText(FieldDefsOf(KindOf(field))[place].nameId);
}

}  // namespace

std::optional<CItemUse> CItemUse::Count(CRecordStore& store, int list) {
    CItemUse use;
    for (const RecordKind kind : {RecordKind::Time, RecordKind::Expense})
        for (const FieldRow& field : FieldsOf(kind))
            if (field.list == list && !use.AddField(store, field)) return std::nullopt;
    return use;
}

/// Each row is one text, the count in front of the value: a bulk read would cut counts to 16 bits.
bool CItemUse::AddField(CRecordStore& store, const FieldRow& field) {
    m_holdsNumbers = IsNumber(field);
    const QString column = ColumnNameOf(field);
    QStringList rows;
    if (!store.QueryTexts(FormatText<Text::SqlCountByValue>(column, store.TableName(KindOf(field)), column),
                          rows))
        return false;
    for (const QString& row : rows) {
        const qsizetype blank = row.indexOf(u' ');
        m_counts[KeyOf(row.mid(blank + 1))] += row.left(blank).toInt();
    }
    return true;
}

int CItemUse::Of(const QString& item) const {
    return m_counts.value(KeyOf(item));
}

/// Numbers count as items show them: 1.50 is 1.5.
QString CItemUse::KeyOf(const QString& text) const {
    float number = 0.0F;
    QString display;
    return m_holdsNumbers && NormaliseNumber(text, number, display) ? display : text;
}
