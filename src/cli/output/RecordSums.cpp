#include "cli/output/RecordSums.h"

#include "calendar/NumberText.h"
#include "cli/output/CJsonText.h"
#include "cli/output/COutput.h"
#include "config/CCfgStore.h"
#include "lang/FormatText.h"
#include "records/CERecord.h"
#include "records/CTRecord.h"

namespace {

void Add(const CTRecord& record, RecordSums& sums) {
    float amount = 0.0F, hours = 0.0F;
    (void)record.GetAmount(amount);  // 0 where there is none
    (void)record.spans.effective.GetDecimal(hours);
    RecordSum& sum = sums[record.item5];
    sum.amount += double{amount};
    sum.hours += double{hours};
}

void Add(const CERecord& record, RecordSums& sums) {
    float amount = 0.0F;
    (void)record.GetAmount(amount);
    sums[record.item5].amount += double{amount};
}

QString SumLine(RecordKind kind, const QString& key, const RecordSum& sum, const CCfgStore& settings) {
    const QString amount = FormatNumber(settings.Region(), sum.amount, settings.precisionAmount);
    if (kind != RecordKind::Time) return FormatText<Text::CliExpSumLine>(amount, key);
    const QString hours = FormatNumber(settings.Region(), sum.hours, settings.precisionDuration);
    return FormatText<Text::CliSumLine>(hours, amount, key);
}

}  // namespace

void AddTo(RecordSums& sums, const CVORec& record) {
    if (record.Kind() == RecordKind::Time)
        Add(static_cast<const CTRecord&>(record), sums);
    else
        Add(static_cast<const CERecord&>(record), sums);
}

void WriteSums(CJsonText& json, RecordKind kind, const RecordSums& sums, const CCfgStore& settings) {
    json.BeginArray();
    for (auto sum = sums.begin(); sum != sums.end(); ++sum) {
        json.BeginObject();
        json.Key("key");
        json.Text(sum.key());
        json.Key("amount");
        json.Number(sum->amount, settings.precisionAmount);
        if (kind == RecordKind::Time) {
            json.Key("hours");
            json.Number(sum->hours, settings.precisionDuration);
        }
        json.EndObject();
    }
    json.EndArray();
}

void WriteSumLines(COutput& out, RecordKind kind, const RecordSums& sums, const CCfgStore& settings) {
    for (auto sum = sums.begin(); sum != sums.end(); ++sum)
        if (sum->amount > 0.0 || sum->hours > 0.0) out.PutLine(SumLine(kind, sum.key(), *sum, settings));
}
