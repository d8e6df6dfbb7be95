#include "shell/record/CExpenseMoneyPage.h"

#include "app/ListTable.h"
#include "config/CCfgStore.h"
#include "entry/ExpenseDraft.h"
#include "fields/FieldId.h"
#include "lang/FormatText.h"
#include "shell/controls/CDateEdit.h"
#include "shell/controls/CItemCombo.h"
#include "shell/controls/CItemFields.h"
#include "shell/look/CMnemonics.h"
#include "shell/look/FormRows.h"

#include <QApplication>
#include <QCheckBox>
#include <QEvent>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

using namespace RecordDialogParts;

namespace {

constexpr int kItem5Name = NumberOf(FieldId::ExpenseItem5);
constexpr int kAmountName = NumberOf(FieldId::ExpenseAmount);
constexpr int kUnitColumn = 3;

/// What is computed can't be entered, but it is there to be read: not in the colour of what is out of use.
void ShowComputed(QWidget& field, bool isComputed) {
    QPalette palette;
    if (isComputed)
        palette.setColor(QPalette::Disabled, QPalette::Text,
                         QApplication::palette(&field).color(QPalette::Active, QPalette::Text));
    field.setPalette(palette);
}

}  // namespace

CExpenseMoneyPage::CExpenseMoneyPage(ExpenseDraft& draft, const RecordDialogContext& context,
                                     const CItemFields& fields, CMnemonics mnemonics)
    : m_draft(draft), m_context(context) {
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
    connect(m_isDistance, &QCheckBox::clicked, this, [this](bool isOn) {
        m_draft.SwitchDistance(isOn);
        ShowMoney();
    });
    connect(m_distance, &CItemCombo::Edited, this,
            [this] { Enter(*m_distance, &ExpenseDraft::EnterDistance); });
    connect(m_rate, &CItemCombo::Edited, this, [this] { Enter(*m_rate, &ExpenseDraft::EnterRate); });
    connect(m_amount, &CItemCombo::Edited, this, [this] { Enter(*m_amount, &ExpenseDraft::EnterAmount); });
    connect(m_item5, &CItemCombo::Edited, this,
            [this] { m_draft.EnterItem(&CERecord::item5, m_item5->Text()); });
    connect(m_odometer, &QPushButton::clicked, this, &CExpenseMoneyPage::OdometerWanted);
    connect(m_day.edit, &CDateEdit::Entered, this, [this] {
        m_draft.EnterDate(m_day.edit->GetDate());
        ShowDay();
    });
    connect(m_day.edit, &CDateEdit::Settled, this, [this] {
        // Its final form, "t" as the date of today.
        if (m_day.edit->IsReadable()) m_day.edit->SetDate(m_day.edit->GetDate());
    });
}

void CExpenseMoneyPage::ShowDay() {
    ShowWeekday(m_day, m_draft.Record().date);
}

void CExpenseMoneyPage::ShowRecord() {
    m_day.edit->SetDate(DayOf(m_draft.Record().date));
    ShowDay();
    m_isDistance->setChecked(m_draft.IsDistance());
    m_item5->ShowText(m_draft.Record().item5);
    ShowMoney();
}

void CExpenseMoneyPage::ShowMoney() {
    ShowMoneyBeside(nullptr);
    ShowEnabled();
}

void CExpenseMoneyPage::Enter(CItemCombo& typed, Typed (ExpenseDraft::*enter)(const QString& text)) {
    static_cast<void>((m_draft.*enter)(typed.Text()));  // what can't be read is marked
    ShowMoneyBeside(&typed);
}

/// What is being typed stays as typed.
void CExpenseMoneyPage::ShowMoneyBeside(const CItemCombo* typed) {
    const auto show = [typed](CItemCombo& field, const QString& text) {
        if (&field != typed && field.Text() != text) field.ShowText(text);
    };
    show(*m_distance, m_draft.DistanceText());
    show(*m_rate, m_draft.RateText());
    show(*m_amount, m_draft.AmountText());
    const DraftFindings findings = m_draft.Findings();
    for (const DraftField place : {DraftField::Distance, DraftField::Rate, DraftField::Amount})
        MarkFinding(*LineOf(place), findings, place);
}

QLineEdit* CExpenseMoneyPage::LineOf(DraftField place) const {
    if (place == DraftField::Distance) return m_distance->lineEdit();
    if (place == DraftField::Rate) return m_rate->lineEdit();
    if (place == DraftField::Amount) return m_amount->lineEdit();
    return m_day.edit;
}

void CExpenseMoneyPage::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::PaletteChange && m_amount) ShowComputed(*m_amount, m_draft.IsDistance());
}

void CExpenseMoneyPage::ShowEnabled() {
    const bool isDistance = m_draft.IsDistance();
    for (QWidget* widget : m_ofDistance) widget->setEnabled(isDistance);
    m_amount->setEnabled(!isDistance);
    ShowComputed(*m_amount, isDistance);
    m_amount->setToolTip(isDistance ? LoadText(Text::AmountFollows) : QString());
}
