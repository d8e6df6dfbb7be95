#include "viewmodel/guide/CGuide.h"

#include "app/CPulldownCatalogue.h"
#include "app/CVelmarchDoc.h"
#include "changes/CRecordChanges.h"
#include "config/CCfgStore.h"
#include "entry/NamedDefaults.h"
#include "entry/QuickEntry.h"
#include "entry/TypedFields.h"
#include "entry/TypedNumber.h"
#include "fields/ListId.h"
#include "lang/FormatText.h"
#include "lists/CDependencyEditor.h"
#include "records/CTRecord.h"
#include "viewmodel/guide/GuideNames.h"

#include <algorithm>
#include <utility>
#include <vector>

namespace {

// Values of the setting firstSteps.
constexpr int kWanted = 1;
constexpr int kDone = 2;

constexpr int kAsClock = 1;
constexpr int kHours24 = 24;
constexpr int kHours12 = 12;
constexpr int kKilometres = 1;
constexpr int kMiles = 2;

/// A setting that a page holds.
struct SettingTie {
    const char* name;
    int GuideDraft::*member;
};
constexpr SettingTie kSettingTies[] = {
    {"spanDisplayFormat", &GuideDraft::spanFormat},  {"precisionDuration", &GuideDraft::durationPlaces},
    {"clockFormat", &GuideDraft::clockFormat},       {"distanceUnit", &GuideDraft::distanceUnit},
    {"firstDayOfWeek", &GuideDraft::firstDayOfWeek},
};

/// A page shows which of the two it is, never that the region decides.
GuideDraft FromSettings(const CCfgStore& settings) {
    GuideDraft draft;
    draft.spanFormat = settings.spanDisplayFormat;
    draft.durationPlaces = settings.precisionDuration;
    draft.clockFormat = settings.clock24 ? kHours24 : kHours12;
    draft.distanceUnit = settings.metricUnits ? kKilometres : kMiles;
    draft.firstDayOfWeek = settings.firstDayOfWeek;
    return draft;
}

/// Saves those that differ from what is stored, as one change.
bool SaveSettings(CCfgStore& settings, const std::vector<std::pair<QString, int>>& values) {
    const ::Settings before = settings;
    const bool isSaved = settings.Profile().Change([&] {
        return std::ranges::all_of(values, [&](const std::pair<QString, int>& value) {
            const SettingRow* row = FindSetting(value.first);
            if (!row || SettingValue(settings, *row) == value.second) return row != nullptr;
            PutSetting(settings, *row, value.second);
            return settings.SaveValue(row->index);
        });
    });
    if (!isSaved) static_cast<::Settings&>(settings) = before;
    return isSaved;
}

/// What the record of a timer or of a stored default holds.
void FillRecord(CTRecord& record, const GuideDraft& draft) {
    record.item1 = CutItem(draft.client.trimmed());
    record.item2 = CutItem(draft.project.trimmed());
    record.item5 = CutItem(draft.currency.trimmed());
    float rate = 0.0F;
    if (!ReadTypedFloat(draft.rate, rate)) return;
    record.SetBillable(true);
    // It says whether there is an amount, too: there is no duration yet.
    static_cast<void>(record.SetRate(rate));
}

}  // namespace

GuideDraft CGuide::Proposal() const {
    GuideDraft draft = FromSettings(m_context.settings);
    draft.words = HasOwnNames(m_context.catalogue.Labels()) ? GuideWords::AsNow : GuideWords::Plain;
    if (m_context.settings.firstSteps != kWanted) return draft;
    draft.currency = m_context.habits.currency;
    draft.firstDayOfWeek = m_context.habits.firstDayOfWeek.value_or(draft.firstDayOfWeek);
    draft.spanFormat = kAsClock;
    return draft;
}

bool CGuide::Store(const GuideDraft& draft) {
    m_isStored = StoreSettings(draft, m_context.settings.firstSteps) &&
                 StoreNames(draft, m_context.catalogue) && StoreItems(draft) && StoreDependencies(draft) &&
                 StoreDefault(draft) && StartTimer(draft) && StoreSettings(draft, kDone);
    return m_isStored;
}

bool CGuide::Skip() {
    std::vector<std::pair<QString, int>> values{{QStringLiteral("firstSteps"), kDone}};
    if (m_context.settings.firstSteps == kWanted) {
        values.emplace_back(QStringLiteral("spanDisplayFormat"), kAsClock);
        if (m_context.habits.firstDayOfWeek)
            values.emplace_back(QStringLiteral("firstDayOfWeek"), *m_context.habits.firstDayOfWeek);
    }
    return SaveSettings(m_context.settings, values);
}

bool CGuide::StoreSettings(const GuideDraft& draft, int firstSteps) {
    std::vector<std::pair<QString, int>> values{{QStringLiteral("firstSteps"), firstSteps}};
    for (const SettingTie& tie : kSettingTies)
        values.emplace_back(QString::fromLatin1(tie.name), draft.*tie.member);
    return SaveSettings(m_context.settings, values);
}

/// What a list holds already, it passes over.
bool CGuide::StoreItems(const GuideDraft& draft) {
    std::vector<ListText> texts;
    const auto add = [&texts](int list, const QString& typed) {
        const QString text = CutItem(typed.trimmed());
        if (!text.isEmpty()) texts.push_back({list, text});
    };
    add(ListId::kClient, draft.client);
    add(ListId::kProject, draft.project);
    add(ListId::kTimeRate, PlainNumber(draft.rate.trimmed()));
    // A currency that goes with nothing is only what the region has.
    if (!draft.rate.trimmed().isEmpty()) add(ListId::kItem5, draft.currency);
    if (draft.startsTimer) add(ListId::kTimeItem3, draft.activity);
    int added = 0;
    return texts.empty() || bool(m_context.changes.AddItems(texts, added));
}

/// Only where they are in use: nobody sees them otherwise.
bool CGuide::StoreDependencies(const GuideDraft& draft) {
    if (!m_context.settings.useDependencies || draft.client.trimmed().isEmpty()) return true;
    for (const RecordMode mode : {RecordMode::Time, RecordMode::Expense}) {
        CDependencyEditor editor(m_context.catalogue, mode);
        DependencyTree::Node* node = &editor.Tree().Root();
        for (const QString& typed : {draft.client, draft.project}) {
            const QString text = CutItem(typed.trimmed());
            // A text that the list has refused is nowhere.
            if (text.isEmpty() || (!node->FindChild(text) && !editor.Add(*node, text))) break;
            node = node->FindChild(text);
        }
        if (!editor.IsChanged()) continue;
        editor.Accept();
        if (!m_context.catalogue.SaveTree(DependencySetOf(KindOf(mode)))) return false;
    }
    return true;
}

QString CGuide::DefaultName(const GuideDraft& draft) const {
    const QString client = draft.client.trimmed();
    const QString project = draft.project.trimmed();
    float rate = 0.0F;
    if (client.isEmpty() || !ReadTypedFloat(draft.rate, rate)) return {};
    return project.isEmpty() ? client : FormatText<Text::GuideDefaultName>(client, project);
}

/// One that has the name already is the user's own, and stays.
bool CGuide::StoreDefault(const GuideDraft& draft) {
    const QString name = DefaultName(draft);
    NamedDefaults defaults(m_context.settings, m_context.clock, RecordMode::Time);
    if (name.isEmpty() || NamedDefaults::LooksReserved(name) || defaults.FindName(name)) return true;
    CTRecord record;
    record.Reset();
    FillRecord(record, draft);
    return defaults.Write(name, record);
}

bool CGuide::StartTimer(const GuideDraft& draft) {
    if (!draft.startsTimer || !m_startedId.isEmpty()) return true;
    const auto fill = [&draft](CVORec& record) {
        auto& time = static_cast<CTRecord&>(record);
        FillRecord(time, draft);
        time.item3 = CutItem(draft.activity.trimmed());
        return true;
    };
    const QuickOutcome outcome = NewTimeRecord(
        QuickFlag::kDefaults | QuickFlag::kTimestamp | QuickFlag::kTimer,
        {.document = m_context.document,
         .timers = m_context.timers,
         .settings = m_context.settings,
         .clock = m_context.clock,
         .add = [this](const CVORec& record) { return bool(m_context.changes.Add(record, Identity::Own)); },
         .selectedIds = {},
         .edit = {},
         .fillFromDefaults = fill});
    m_startedId = outcome.addedId;
    return outcome.succeeded && !outcome.lacksTimer;
}

bool IsGuideRate(const QString& typed) {
    const TypedNumber number = ReadTypedNumber(typed, TheRegion());
    return number.state == Typed::Nothing || (number.IsValue() && number.value >= 0.0);
}

bool WantGuide(CCfgStore& settings) {
    return SaveSettings(settings, {{QStringLiteral("firstSteps"), kWanted}});
}

bool IsGuideWanted(const CCfgStore& settings, const CVelmarchDoc& document,
                   const CPulldownCatalogue& catalogue) {
    return settings.firstSteps == kWanted && document.RecordCount() == 0 &&
           catalogue.Texts(ListId::kClient).isEmpty() && catalogue.Texts(ListId::kProject).isEmpty();
}
