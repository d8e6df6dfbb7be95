#include "cli/output/SalvageOutput.h"

#include "app/HomeSalvage.h"
#include "cli/output/CJsonText.h"
#include "cli/output/COutput.h"
#include "records/FieldDef.h"

namespace {

struct CountRow {
    const char* name;
    RecordKind kind;
};
constexpr CountRow kCounts[] = {{"times", RecordKind::Time},
                                {"expenses", RecordKind::Expense},
                                {"items", RecordKind::PulldownItem},
                                {"dependencies", RecordKind::Dependency}};

const char* NameOf(SalvagedHome::Settings settings) {
    switch (settings) {
        case SalvagedHome::Settings::None:
            return "none";
        case SalvagedHome::Settings::Copied:
            return "copied";
        case SalvagedHome::Settings::Partly:
            break;
    }
    return "partly";
}

void WriteSaved(CJsonText& json, const SalvagedRecords& records) {
    json.Key("saved");
    json.BeginObject();
    for (const CountRow& row : kCounts) {
        const auto saved = records.saved.find(row.kind);
        json.Key(row.name);
        json.Integer(saved == records.saved.end() ? 0 : saved->second);
    }
    json.EndObject();
}

void WriteLost(CJsonText& json, const SalvagedRecords& records) {
    json.Key("lost");
    json.Integer(records.lost.count);
    json.Key("lossKnown");
    json.Flag(records.isLossKnown);
    json.Key("lostDays");
    json.BeginArray();
    for (const auto& [day, count] : records.lost.days) {
        json.BeginObject();
        json.Key("date");
        json.TextOrNull(DayText(day));
        json.Key("count");
        json.Integer(count);
        json.EndObject();
    }
    json.EndArray();
}

}  // namespace

void WriteSalvageJson(COutput& out, const SalvagedHome& saved) {
    CJsonText json(out);
    json.BeginObject();
    json.Key("folder");
    json.Text(saved.folder);
    WriteSaved(json, saved.records);
    WriteLost(json, saved.records);
    json.Key("doubtful");
    json.BeginArray();
    for (const QString& id : saved.records.doubtful) json.Text(id);
    json.EndArray();
    json.Key("settings");
    json.Text(QString::fromLatin1(NameOf(saved.settings)));
    json.Key("settingsSaved");
    json.Integer(saved.values.saved);
    json.Key("settingsLost");
    json.Integer(saved.values.lost);
    json.Key("historyLeft");
    json.Flag(saved.hasHistory);
    json.Key("notSaved");
    json.BeginArray();
    for (const QString& name : saved.notSaved) json.Text(name);
    json.EndArray();
    json.EndObject();
    out.Put("\n");
}
