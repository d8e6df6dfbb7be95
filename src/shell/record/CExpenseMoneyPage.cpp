#include "shell/record/CExpenseMoneyPage.h"

#include "app/ListTable.h"
#include "config/CCfgStore.h"
#include "fields/FieldId.h"
#include "lang/FormatText.h"
#include "records/CERecord.h"
#include "shell/controls/CDateEdit.h"
#include "shell/controls/CItemCombo.h"
#include "shell/controls/CItemFields.h"
#include "shell/look/CMnemonics.h"
#include "shell/look/FormRows.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <utility>

using namespace RecordDialogParts;

namespace {

constexpr int kItem5Name = NumberOf(FieldId::ExpenseItem5);
constexpr int kAmountName = NumberOf(FieldId::ExpenseAmount);
constexpr int kUnitColumn = 3;

void ShowNumber(CItemCombo& field, const QString& text) {
    field.ShowText(text);
    MarkUnreadable(*field.lineEdit(), false, {});
}

}  // namespace

CExpenseMoneyPage::CExpenseMoneyPage(const RecordDialogContext& context, const CItemFields& fields,
                                     CMnemonics mnemonics)
    : m_context(context) {
    setObjectName(QStringLiteral("moneyPage"));
    auto* form = new QGridLayout(this);
    form->setSpacing(kFormSpace);
    mnemonics.Plan({LoadText(Text::LabelDate), LoadText(Text::DistanceEntry),
                    LoadText(Text::ColumnCaptionTrip), LoadText(Text::OdometerButton),
                    LoadText(Text::ListDistanceRates), LabelOf(context.catalogue, kAmountName),
                    LabelOf(context.catalogue, kItem5Name)});
    m_day = AddDateRow(*form, context, mnemonics);
    setFocusProxy(m_day.edit);
    form->setRowMinimumHeight(form->rowCount(), kFormSpace);
    AddDistance(*form, fields, mnemonics);
    form->setRowMinimumHeight(form->rowCount(), kFormSpace);
    AddAmount(*form, fields, mnemonics);
    form->setColumnMinimumWidth(2, kFormSpace);
    form->setColumnStretch(1, 2);
    form->setColumnStretch(kUnitColumn + 1, 1);
    form->setRowStretch(form->rowCount(), 1);
    Wire();
}

QString CExpenseMoneyPage::Unit() const {
    return LoadText(m_context.settings.metricUnits ? Text::UnitKilometres : Text::UnitMiles);
}

void CExpenseMoneyPage::AddDistance(QGridLayout& form, const CItemFields& fields, CMnemonics& mnemonics) {
    m_isDistance = MakeCheckBox(LoadText(Text::DistanceEntry), QStringLiteral("distanceEntryBox"), mnemonics);
    form.addWidget(m_isDistance, form.rowCount(), 1);
    m_distance = fields.AddRow(form, ListId::kDistance, LoadText(Text::ColumnCaptionTrip),
                               QStringLiteral("distanceField"), mnemonics);
    AddOdometer(form, mnemonics);
    m_rate = fields.AddRow(form, ListId::kDistanceRate, LoadText(Text::ListDistanceRates),
                           QStringLiteral("rateField"), mnemonics);
    m_ofDistance += {m_distance, m_rate, m_odometer};
    for (const char* name : {"distanceFieldLabel", "rateFieldLabel", "distanceUnit"})
        m_ofDistance << findChild<QWidget*>(QString::fromLatin1(name));
}

/// Beside the distance: its unit and the odometer.
void CExpenseMoneyPage::AddOdometer(QGridLayout& form, CMnemonics& mnemonics) {
    const int row = form.rowCount() - 1;
    auto* unit = new QLabel(Unit());
    NameWidget(*unit, QStringLiteral("distanceUnit"), Unit());
    form.addWidget(unit, row, kUnitColumn);
    m_distance->setAccessibleDescription(Unit());
    m_odometer = new QPushButton(mnemonics.Give(LoadText(Text::OdometerButton)));
    NameWidget(*m_odometer, QStringLiteral("odometerButton"), LoadText(Text::OdometerTitle));
    m_odometer->setAutoDefault(false);
    form.addWidget(m_odometer, row, kUnitColumn + 1, Qt::AlignLeft);
}

void CExpenseMoneyPage::AddAmount(QGridLayout& form, const CItemFields& fields, CMnemonics& mnemonics) {
    m_amount = fields.AddRow(form, ListId::kAmount, LabelOf(m_context.catalogue, kAmountName),
                             QStringLiteral("amountField"), mnemonics);
    m_item5 = fields.AddRow(form, ListId::kItem5, LabelOf(m_context.catalogue, kItem5Name),
                            QStringLiteral("item5Field"), mnemonics);
}

/// The field that has the focus settles its entry when it goes, and that is after this page's own part.
CExpenseMoneyPage::~CExpenseMoneyPage() {
    for (const QObject* child : findChildren<QObject*>()) child->disconnect(this);
}

void CExpenseMoneyPage::Wire() {
    connect(m_isDistance, &QCheckBox::clicked, this, &CExpenseMoneyPage::SwitchDistance);
    connect(m_distance, &CItemCombo::Edited, this, &CExpenseMoneyPage::EnterDistance);
    connect(m_rate, &CItemCombo::Edited, this, &CExpenseMoneyPage::EnterDistance);
    connect(m_odometer, &QPushButton::clicked, this, &CExpenseMoneyPage::OdometerWanted);
    connect(m_amount, &CItemCombo::Edited, this,
            [this] { MarkNumber(*m_amount->lineEdit(), Text::NumberUnreadable); });
    connect(m_day.edit, &CDateEdit::Entered, this, &CExpenseMoneyPage::ShowDay);
    connect(m_day.edit, &CDateEdit::Settled, this, [this] {
        // Its final form, "t" as the date of today.
        if (m_day.edit->IsReadable()) m_day.edit->SetDate(m_day.edit->GetDate());
    });
}

void CExpenseMoneyPage::ShowDay() {
    RecordDate date;
    if (const auto& day = m_day.edit->GetDate()) date.Set(day->month, day->day, day->year);
    ShowWeekday(m_day, date);
}

void CExpenseMoneyPage::ShowRecord(const CERecord& record) {
    m_day.edit->SetDate(DayOf(record.date));
    ShowDay();
    m_isDistance->setChecked(record.isDistance);
    ShowNumber(*m_distance, record.isDistance ? record.distance.text : QString());
    ShowNumber(*m_rate, record.isDistance ? record.GetRateText() : QString());
    // A distance entry that became a plain amount keeps these, for when it becomes one again.
    const bool isKept = !record.isDistance && record.GetDistance() != 0.0F;
    m_keptDistance = isKept ? record.distance.text : QString();
    m_keptRate = isKept ? record.GetRateText() : QString();
    ShowNumber(*m_amount, record.GetAmountText());
    m_item5->ShowText(record.item5);
    ShowEnabled();
}

void CExpenseMoneyPage::ShowDistance(const CERecord& record) {
    ShowNumber(*m_distance, record.distance.text);
    ShowNumber(*m_rate, record.GetRateText());
    EnterDistance();
}

/// Turned off, the fields are cleared; turned on for the first time, they show what the record has kept.
void CExpenseMoneyPage::SwitchDistance(bool isDistance) {
    const QString distance = std::exchange(m_keptDistance, {});
    const QString rate = std::exchange(m_keptRate, {});
    ShowNumber(*m_distance, isDistance ? distance : QString());
    ShowNumber(*m_rate, isDistance ? rate : QString());
    ShowNumber(*m_amount, isDistance ? LoadText(Text::AmountIsComputed) : QString());
    ShowEnabled();
    if (isDistance && !distance.isEmpty()) EnterDistance();
}

void CExpenseMoneyPage::EnterDistance() {
    for (const CItemCombo* field : {m_distance, m_rate})
        MarkNumber(*field->lineEdit(), Text::NumberCountsAsZero);
    ShowNumber(*m_amount, ExpenseEntryRules::UpdateDistanceAmount(m_distance->Text(), m_rate->Text()));
}

void CExpenseMoneyPage::ShowEnabled() {
    const bool isDistance = m_isDistance->isChecked();
    for (QWidget* widget : m_ofDistance) widget->setEnabled(isDistance);
    m_amount->setEnabled(!isDistance);
    m_amount->setToolTip(isDistance ? LoadText(Text::AmountFollows) : QString());
}

ExpenseEntryRules::MoneyPage CExpenseMoneyPage::Page() const {
    ExpenseEntryRules::MoneyPage page;
    if (const auto& day = m_day.edit->GetDate()) {
        page.month = day->month;
        page.day = day->day;
        page.year = day->year;
    }
    page.isDistance = m_isDistance->isChecked();
    page.distance = m_distance->Text();
    page.rate = m_rate->Text();
    page.amount = m_amount->Text();
    page.item5 = m_item5->Text();
    return page;
}
