#include "cli/output/ExpenseColumns.h"

#include "cli/output/ColumnParts.h"
#include "records/CERecord.h"

namespace {

using namespace ColumnParts;

const CERecord& ExpenseOf(const CVORec& record) {
    return static_cast<const CERecord&>(record);
}

// --- Distance: may be there without the expense being a distance entry (any more)

void DistanceJson(CJsonText& json, const RecordRow& row) {
    const DecimalField& distance = ExpenseOf(row.record).distance;
    distance.isSet ? json.Number(double{distance.value}, distance.precision) : json.Null();
}

QString DistanceText(const RecordRow& row) {
    const DecimalField& distance = ExpenseOf(row.record).distance;
    return distance.isSet ? distance.text : QString();
}

int CompareDistances(const CVORec& a, const CVORec& b) {
    const DecimalField &first = ExpenseOf(a).distance, &second = ExpenseOf(b).distance;
    return first.isSet != second.isSet ? Order(first.isSet, second.isSet) : Order(first.value, second.value);
}

constexpr RecordColumn kColumns[] = {
    {"id", Text::CliIdentity, true, false, IdJson, IdText, CompareIds},
    {"date", Text::ColumnCaptionDate, true, false, DateJson<&CERecord::date>, DateText<&CERecord::date>,
     CompareDates<&CERecord::date>},
    {"item1", Text::FieldClient, true, false, TextJson<&CERecord::item1>, PlainText<&CERecord::item1>,
     CompareTexts<&CERecord::item1>},
    {"item2", Text::FieldProject, true, false, TextJson<&CERecord::item2>, PlainText<&CERecord::item2>,
     CompareTexts<&CERecord::item2>},
    {"item3", Text::FieldExpenseItem3, true, false, TextJson<&CERecord::item3>, PlainText<&CERecord::item3>,
     CompareTexts<&CERecord::item3>},
    {"item4", Text::FieldExpenseItem4, false, false, TextJson<&CERecord::item4>, PlainText<&CERecord::item4>,
     CompareTexts<&CERecord::item4>},
    {"item5", Text::FieldExpenseCurrency, true, false, TextJson<&CERecord::item5>,
     PlainText<&CERecord::item5>, CompareTexts<&CERecord::item5>},
    {"isDistance", Text::CliDistanceEntry, false, false, FlagJson<&CERecord::isDistance>,
     FlagText<&CERecord::isDistance>, CompareFlags<&CERecord::isDistance>},
    {"distance", Text::CliDistance, true, true, DistanceJson, DistanceText, CompareDistances},
    {"rate", Text::FieldRate, false, true, MoneyJson<&CERecord::GetRate, &CERecord::rate>,
     MoneyText<&CERecord::GetRateText>, CompareMoney<&CERecord::GetRate>},
    {"amount", Text::FieldAmount, true, true, MoneyJson<&CERecord::GetAmount, &CERecord::amount>,
     MoneyText<&CERecord::GetAmountText>, CompareMoney<&CERecord::GetAmount>},
    {"odometerStart", Text::CliOdometerStart, false, true, TextJson<&CERecord::odometerStart>,
     PlainText<&CERecord::odometerStart>, CompareTexts<&CERecord::odometerStart>},
    {"odometerEnd", Text::CliOdometerEnd, false, true, TextJson<&CERecord::odometerEnd>,
     PlainText<&CERecord::odometerEnd>, CompareTexts<&CERecord::odometerEnd>},
    {"flag1", Text::ColumnCaptionBillable, false, false, FlagJson<&CERecord::flag1>,
     FlagText<&CERecord::flag1>, CompareFlags<&CERecord::flag1>},
    {"flag2", Text::ColumnCaptionBilled, true, false, FlagJson<&CERecord::flag2>, FlagText<&CERecord::flag2>,
     CompareFlags<&CERecord::flag2>},
    {"flag3", Text::ColumnCaptionFlag3, false, false, FlagJson<&CERecord::flag3>, FlagText<&CERecord::flag3>,
     CompareFlags<&CERecord::flag3>},
    {"flag4", Text::ColumnCaptionFlag4, true, false, FlagJson<&CERecord::flag4>, FlagText<&CERecord::flag4>,
     CompareFlags<&CERecord::flag4>},
    {"flag5", Text::ColumnCaptionFlag5, false, false, FlagJson<&CERecord::flag5>, FlagText<&CERecord::flag5>,
     CompareFlags<&CERecord::flag5>},
    {"isExported", Text::ColumnCaptionExported, false, false, FlagJson<&CERecord::isExported>,
     FlagText<&CERecord::isExported>, CompareFlags<&CERecord::isExported>},
    {"notes", Text::ColumnCaptionNotes, false, false, TextJson<&CERecord::notes>, PlainText<&CERecord::notes>,
     CompareTexts<&CERecord::notes>},
};

}  // namespace

std::span<const RecordColumn> ExpenseColumns() {
    return kColumns;
}

int CompareExpenseDays(const CVORec& a, const CVORec& b) {
    const int dates = CompareDates<&CERecord::date>(a, b);
    return dates != 0 ? dates : CompareIds(a, b);
}
