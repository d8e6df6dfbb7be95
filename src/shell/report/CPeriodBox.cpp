#include "shell/report/CPeriodBox.h"

#include "calendar/NumberText.h"
#include "config/CCfgStore.h"
#include "lang/LoadText.h"
#include "shell/controls/CDateEdit.h"
#include "shell/look/CMnemonics.h"
#include "shell/look/FormRows.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QLabel>

namespace {
constexpr int kCustomRow = 0;
constexpr int kRowColumn = 0, kFromColumn = 1, kToColumn = 3;
}  // namespace

CPeriodBox::CPeriodBox(const FilterDialogContext& context, CMnemonics& mnemonics) : m_context(context) {
    setObjectName(QStringLiteral("periodBox"));
    Build(mnemonics);
    connect(m_isOn, &QCheckBox::toggled, this, &CPeriodBox::Follow);
    connect(m_row, &QComboBox::currentIndexChanged, this, &CPeriodBox::Follow);
    Follow();
}

void CPeriodBox::Build(CMnemonics& mnemonics) {
    auto* form = new QGridLayout(this);
    form->setSpacing(kFormSpace);
    form->setContentsMargins(0, 0, 0, 0);
    m_isOn = MakeCheckBox(LoadText(Text::FilterPeriod), QStringLiteral("periodOn"), mnemonics);
    form->addWidget(m_isOn, 0, kRowColumn);
    m_row = new QComboBox;
    NameWidget(*m_row, QStringLiteral("periodRow"), LoadText(Text::FilterPeriodRow));
    m_row->addItem(LoadText(Text::CustomRange));
    for (const PeriodPresetRow& row : PeriodPresets()) m_row->addItem(LoadText(row.name));
    form->addWidget(m_row, 1, kRowColumn);
    m_from = AddDate(*form, kFromColumn, Text::FilterFrom, "periodFrom", mnemonics);
    m_to = AddDate(*form, kToColumn, Text::FilterTo, "periodTo", mnemonics);
    m_note = MakeNote({}, QStringLiteral("periodNote"));
    form->addWidget(m_note, 2, kRowColumn, 1, kToColumn + 2);
    form->setColumnStretch(kRowColumn, 1);
}

CDateEdit* CPeriodBox::AddDate(QGridLayout& form, int column, Text label, const char* name,
                               CMnemonics& mnemonics) {
    auto* field = new CDateEdit(m_context.period.region, m_context.clock, m_context.settings.firstDayOfWeek);
    NameWidget(*field, QString::fromLatin1(name), LoadText(label));
    // The second field is one Tab behind the first: its letter is left to the marks.
    const bool isFirst = column == kFromColumn;
    auto* caption = new QLabel(isFirst ? mnemonics.Give(LoadText(label)) : LoadText(label));
    if (isFirst) caption->setBuddy(field);
    form.addWidget(caption, 1, column);
    form.addWidget(field, 1, column + 1);
    connect(field, &CDateEdit::Entered, this, &CPeriodBox::ShowRangeNote);
    return field;
}

void CPeriodBox::ShowQuery(const QueryFields& query) {
    m_isOn->setChecked(query.isPeriodOn);
    ShowDate(*m_from, query.startText);
    ShowDate(*m_to, query.endText);
    m_row->setCurrentIndex(PresetOfRow(query.periodRow) ? query.periodRow : kCustomRow);
    Follow();
}

/// A text that can't be read shows as today.
void CPeriodBox::ShowDate(CDateEdit& field, const QString& text) const {
    DateTimeVal date;
    static_cast<void>(date.ParseDateText(text, m_context.period.region, m_context.clock));
    field.SetDate(date);
}

QString CPeriodBox::TextOf(const CDateEdit& field) const {
    DateTimeVal date;
    date.SetToday(m_context.clock);
    if (field.GetDate()) date = *field.GetDate();
    return FormatDate(m_context.period.region, date.month, date.day, date.year);
}

void CPeriodBox::ReadQuery(QueryFields& query) const {
    query.isPeriodOn = m_isOn->isChecked();
    query.periodRow = m_row->currentIndex();
    query.startText = TextOf(*m_from);
    query.endText = TextOf(*m_to);
}

CPickEdit* CPeriodBox::FirstUnreadable() const {
    for (CDateEdit* field : {m_from, m_to})
        if (field->isEnabled() && !field->IsReadable()) return field;
    return nullptr;
}

/// Without a period its box shows the range of one's own.
void CPeriodBox::Follow() {
    const bool isOn = m_isOn->isChecked();
    if (!isOn) m_row->setCurrentIndex(kCustomRow);
    const bool isCustom = m_row->currentIndex() == kCustomRow;
    m_row->setEnabled(isOn);
    for (QWidget* field : {static_cast<QWidget*>(m_from), static_cast<QWidget*>(m_to)})
        field->setEnabled(isOn && isCustom);
    if (!isCustom) ShowDaysOfRow();
    ShowRangeNote();
}

/// Two dates that stand the wrong way round are taken for one day.
void CPeriodBox::ShowRangeNote() {
    QueryFields query;
    ReadQuery(query);
    ShowNote(*m_note, NoteOnDates(query, m_context.period), *m_to);
}

void CPeriodBox::ShowDaysOfRow() {
    PeriodFilter period;
    const std::optional<int> preset = PresetOfRow(m_row->currentIndex());
    if (!preset || !period.ApplyPreset(*preset, m_context.period)) return;
    DateTimeVal start, end;
    if (!period.Dates(start, end, m_context.period)) return;
    m_from->SetDate(start);
    m_to->SetDate(end);
}
