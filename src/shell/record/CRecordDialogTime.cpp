#include "shell/record/CRecordDialogTime.h"

#include "app/CVelmarchApp.h"
#include "calendar/PassedTime.h"
#include "config/CCfgStore.h"
#include "fields/FieldId.h"
#include "lang/FormatText.h"
#include "records/CTRecord.h"
#include "shell/controls/CDateEdit.h"
#include "shell/controls/CSpanEdit.h"
#include "shell/controls/CTimeEdit.h"
#include "shell/look/CMnemonics.h"
#include "shell/look/FormRows.h"
#include "shell/options/SettingSwitch.h"
#include "shell/record/CRecordDialogWork.h"
#include "timers/CRecordTimers.h"
#include "viewmodel/fields/SpanPad.h"
#include "viewmodel/list/TimeNote.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QLabel>
#include <algorithm>

/// A time of day: where the record has it, what rounds it, how it goes into the draft.
struct CRecordDialogTime::TimeRow {
    TimeDraft::Field place;
    TimeField field;
    const char* name;
    Text label;
    std::int32_t Settings::*roundType;
    std::int32_t Settings::*roundMinutes;
    bool (CTRecord::*get)(int& hour, int& minute, bool& isPm) const;
    void (TimeDraft::*enter)(const std::optional<DateTimeVal>& time);
};

/// A length of time: where the record has it and how it goes into the draft.
struct CRecordDialogTime::SpanRow {
    TimeDraft::Field place;
    const char* name;
    Text label;
    SpanField SpanSet::*field;
    void (TimeDraft::*enter)(const std::optional<EnteredSpan>& span, SpanSource source);
};

namespace {

constexpr int kAmountName = NumberOf(FieldId::TimeAmount);
constexpr int kSecondColumn = 3;  ///< behind the gap

using namespace RecordDialogParts;

/// The steps of a field are those of its rounding, if it is rounded at all.
int StepOf(int roundType, int roundMinutes) {
    return std::min(PickStep(roundType, roundMinutes), 60);
}

std::optional<EnteredSpan> SpanOf(const SpanField& span) {
    if (!span.IsSet()) return {};
    return EnteredSpan{span.hours, span.minutes};
}

QString NetText(const SpanField& net) {
    return net.IsSet() ? FormatText<Text::NetWithHours>(net.clockText, net.decimal.text) : net.clockText;
}

QLabel* AddSum(QGridLayout& form, int row, int column, const QString& caption, const char* name) {
    form.addWidget(new QLabel(caption), row, column);
    auto* value = new QLabel;
    QFont font = value->font();
    font.setBold(true);
    value->setFont(font);
    value->setTextInteractionFlags(Qt::TextSelectableByMouse);
    NameWidget(*value, QString::fromLatin1(name), caption);
    form.addWidget(value, row, column + 1);
    return value;
}

}  // namespace

CRecordDialogTime::CRecordDialogTime(TimeDraft& draft, const RecordDialogContext& context,
                                     CMnemonics mnemonics)
    : m_draft(draft), m_context(context), m_settings(context.settings) {
    setObjectName(QStringLiteral("timePage"));
    auto* form = new QGridLayout(this);
    form->setSpacing(kFormSpace);
    mnemonics.Plan(QStringList{LoadText(Text::LabelDate), LoadText(Text::LabelStart),
                               LoadText(Text::LabelEnd), LoadText(Text::LabelDuration),
                               LoadText(Text::LabelBreak), LoadText(Text::OptLockDuration),
                               LoadText(Text::OptAccumulate)} +
                   CRecordDialogWork::Labels(context));
    AddFields(*form, mnemonics);
    AddWork(*form, mnemonics);
    AddSums(*form);
    AddNote(*form);
    form->setRowMinimumHeight(form->rowCount(), kFormSpace);
    AddSwitch(*form, "lockDurationOnTimeEdit", LoadText(Text::OptLockDuration), mnemonics);
    AddSwitch(*form, "accumulateOnReentry", LoadText(Text::OptAccumulate), mnemonics);
    setFocusProxy(m_day.edit);
    form->setColumnMinimumWidth(2, kFormSpace);
    form->setColumnStretch(1, 2);
    form->setColumnStretch(kSecondColumn + 1, 3);
}

void CRecordDialogTime::AddFields(QGridLayout& form, CMnemonics& mnemonics) {
    AddDate(form, mnemonics);
    const TimeRow times[] = {
        {.place = TimeDraft::Field::Start,
         .field = TimeField::Start,
         .name = "startField",
         .label = Text::LabelStart,
         .roundType = &Settings::roundStartType,
         .roundMinutes = &Settings::roundStartMinutes,
         .get = &CTRecord::GetStart,
         .enter = &TimeDraft::EnterStart},
        {.place = TimeDraft::Field::End,
         .field = TimeField::End,
         .name = "endField",
         .label = Text::LabelEnd,
         .roundType = &Settings::roundEndType,
         .roundMinutes = &Settings::roundEndMinutes,
         .get = &CTRecord::GetEnd,
         .enter = &TimeDraft::EnterEnd},
    };
    for (const TimeRow& row : times) AddTime(form, row, mnemonics);
    const SpanRow spans[] = {
        {.place = TimeDraft::Field::Duration,
         .name = "durationField",
         .label = Text::LabelDuration,
         .field = &SpanSet::duration,
         .enter = &TimeDraft::EnterDuration},
        {.place = TimeDraft::Field::Break,
         .name = "breakField",
         .label = Text::LabelBreak,
         .field = &SpanSet::breakTime,
         .enter = &TimeDraft::EnterBreak},
    };
    for (const SpanRow& row : spans) AddSpan(form, row, mnemonics);
}

void CRecordDialogTime::AddDate(QGridLayout& form, CMnemonics& mnemonics) {
    m_day = AddDateRow(form, m_context, mnemonics);
    AddField({.place = TimeDraft::Field::Date,
              .edit = m_day.edit,
              .show = [this](const CTRecord& record) { m_day.edit->SetDate(DayOf(record.date)); },
              .enter = [this] { m_draft.EnterDate(m_day.edit->GetDate()); },
              .adds = false});
}

void CRecordDialogTime::AddTime(QGridLayout& form, const TimeRow& row, CMnemonics& mnemonics) {
    const int step = StepOf(m_settings.*row.roundType, m_settings.*row.roundMinutes);
    auto* edit = new CTimeEdit(FieldRegion(m_settings),
                               {row.field, *theClockEntry, m_context.clock, m_context.prompt}, step);
    const int place = form.rowCount();
    AddLabel(form, place, LoadText(row.label), *edit, QString::fromLatin1(row.name), mnemonics);
    form.addWidget(edit, place, 1);
    const auto show = [edit, get = row.get](const CTRecord& record) {
        int hour = 0;
        int minute = 0;
        bool isPm = false;
        DateTimeVal time;
        const bool hasTime = (record.*get)(hour, minute, isPm) && time.SetTime(hour, minute, isPm);
        edit->SetTime(hasTime ? std::optional(time) : std::nullopt);
    };
    AddField({.place = row.place,
              .edit = edit,
              .show = show,
              .enter =
                  [this, edit, enter = row.enter] {
                      TimeDraft& draft =
                          m_draft;  // by name: the sanitizer of g++ 12 takes a member for misaligned
                      (draft.*enter)(edit->GetTime());
                  },
              .adds = false});
}

void CRecordDialogTime::AddSpan(QGridLayout& form, const SpanRow& row, CMnemonics& mnemonics) {
    const int step = StepOf(m_settings.roundDurationType, m_settings.roundDurationMinutes);
    auto* edit = new CSpanEdit(FieldRegion(m_settings), *theSpanEntry, step);
    const int place = form.rowCount();
    AddLabel(form, place, LoadText(row.label), *edit, QString::fromLatin1(row.name), mnemonics);
    form.addWidget(edit, place, 1);
    const auto show = [edit, field = row.field](const CTRecord& record) {
        edit->SetSpan(SpanOf(record.spans.*field));
    };
    const auto enter = [this, edit, take = row.enter] {
        TimeDraft& draft = m_draft;  // by name, as for times
        (draft.*take)(edit->GetSpan(), edit->IsStepped() ? SpanSource::Stepped : SpanSource::Entered);
    };
    AddField({.place = row.place, .edit = edit, .show = show, .enter = enter, .adds = true});
}

/// Beside the times, below the day's name. A row of its own takes what a higher dialog has to give, so that
/// the times stay together.
void CRecordDialogTime::AddWork(QGridLayout& form, CMnemonics& mnemonics) {
    m_work = new CRecordDialogWork(m_draft, m_context, mnemonics);
    const int rows = form.rowCount();
    form.addWidget(m_work, 1, kSecondColumn, rows, 2);
    form.setRowStretch(rows, 1);
}

void CRecordDialogTime::AddSums(QGridLayout& form) {
    const int row = form.rowCount();
    m_net = AddSum(form, row, 0, LoadText(Text::LabelNet), "netTime");
    m_money = AddSum(form, row, kSecondColumn, LabelOf(m_context.catalogue, kAmountName), "moneySum");
}

void CRecordDialogTime::AddNote(QGridLayout& form) {
    m_note = new QLabel;
    m_note->setWordWrap(true);
    NameWidget(*m_note, QStringLiteral("timeNote"), LoadText(Text::LabelDuration));
    form.addWidget(m_note, form.rowCount(), 0, 1, form.columnCount());
}

void CRecordDialogTime::AddSwitch(QGridLayout& form, const char* settingName, const QString& text,
                                  CMnemonics& mnemonics) {
    QCheckBox* box =
        MakeSettingSwitch(QString::fromLatin1(settingName), text, m_settings, m_context.prompt, mnemonics);
    form.addWidget(box, form.rowCount(), 0, 1, form.columnCount());
    // What is being typed was tried under the old state; it holds as it stands.
    connect(box, &QCheckBox::clicked, this, &CRecordDialogTime::Settle);
}

void CRecordDialogTime::AddField(Field field) {
    const std::size_t at = m_fields.size();
    connect(field.edit, &CPickEdit::Entered, this, [this, at] { Enter(m_fields[at]); });
    connect(field.edit, &CPickEdit::Settled, this, &CRecordDialogTime::Settle);
    connect(field.edit, &CPickEdit::EntryTried, this, &CRecordDialogTime::EntryTried);
    m_fields.push_back(std::move(field));
}

/// The same text as before is no entry, so that a time which was never rounded stays when the user only looks
/// at it; but while entries add up, the same duration typed again means twice as long.
void CRecordDialogTime::Enter(const Field& field) {
    const bool addsUp = field.adds && m_settings.accumulateOnReentry && !field.edit->IsStepped();
    const bool isSame = field.edit->HasShownText() && !addsUp;
    if (isSame || !field.edit->IsReadable())
        m_draft.Undo(field.place);
    else
        field.enter();
    m_typed = field.edit;
    ShowRecord();
    Q_EMIT Changed();
}

void CRecordDialogTime::Settle() {
    m_draft.Settle();
    m_typed = nullptr;
    ShowRecord();
    Q_EMIT Changed();
}

void CRecordDialogTime::ShowRecord() {
    const CTRecord& record = m_draft.Record();
    for (const Field& field : m_fields)
        if (field.edit != m_typed && field.edit->IsReadable()) field.show(record);
    ShowWeekday(m_day, record.date);
    ShowValue(*m_net, LoadText(Text::LabelNet), NetText(record.spans.effective));
    ShowValue(*m_money, LabelOf(m_context.catalogue, kAmountName), record.GetAmountText());
    const ActiveTimer* timer = m_context.timers.Set().Find(record.GetId());
    const QString note = TimeNote(record, timer, LocalZone());
    ShowValue(*m_note, LoadText(Text::LabelDuration), note);
    m_note->setVisible(!note.isEmpty());
}

void CRecordDialogTime::LockTimes(bool isLocked) {
    for (const Field& field : m_fields) {
        if (field.edit == m_day.edit || field.edit->IsLocked() == isLocked) continue;
        field.edit->Lock(isLocked ? LoadText(Text::TimesDrivenByTimer) : QString());
        field.show(m_draft.Record());
    }
}

CPickEdit* CRecordDialogTime::FirstUnreadable() const {
    const auto found = std::find_if(m_fields.begin(), m_fields.end(),
                                    [](const Field& field) { return !field.edit->IsReadable(); });
    return found == m_fields.end() ? nullptr : found->edit;
}

bool CRecordDialogTime::HasUnreadableEntry() const {
    return std::ranges::any_of(m_fields, [](const Field& field) {
        return !field.edit->IsReadable() && !field.edit->HasShownText();
    });
}
