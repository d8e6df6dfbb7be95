#include "shell/record/COdometerDialog.h"

#include "app/ListTable.h"
#include "config/CCfgStore.h"
#include "lang/FormatText.h"
#include "lists/DependencyChain.h"
#include "records/CVORec.h"
#include "shell/controls/CItemCombo.h"
#include "shell/look/CMnemonics.h"
#include "shell/look/DialogSize.h"
#include "shell/look/FormRows.h"

#include <QDialogButtonBox>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QScopedValueRollback>
#include <QVBoxLayout>

using ExpenseEntryRules::Odometer;

namespace {

QString SizeSection() {
    return QStringLiteral("OdometerDialog");
}
constexpr QSize kUsualSize{400, 240};

}  // namespace

COdometerDialog::COdometerDialog(const RecordDialogContext& context, const QStringList& itemPath,
                                 QWidget* parent)
    : QDialog(parent),
      m_context(context),
      m_fields(context.catalogue, RecordMode::Expense, context.settings) {
    setObjectName(QStringLiteral("odometerDialog"));
    setWindowTitle(LoadText(Text::OdometerTitle));
    const auto chain = DependencyChain(RecordMode::Expense);
    for (qsizetype i = 0; i < itemPath.size(); ++i)
        m_fields.SetText(chain[static_cast<std::size_t>(i)], itemPath[i]);
    CMnemonics mnemonics;
    QDialogButtonBox* buttons = MakeDialogButtons(*this, Text::DialogOk, mnemonics);
    auto* column = new QVBoxLayout(this);
    auto* form = new QGridLayout;
    form->setSpacing(kFormSpace);
    m_start = AddReading(*form, Text::OdometerStart, QStringLiteral("startReading"), mnemonics);
    m_end = AddReading(*form, Text::OdometerEnd, QStringLiteral("endReading"), mnemonics);
    AddDistance(*form, mnemonics);
    form->setColumnStretch(1, 1);
    column->addLayout(form);
    column->addStretch();
    column->addSpacing(kFormSpace);
    column->addWidget(buttons);
    RestoreDialogSize(*this, m_context.settings.Profile(), SizeSection(), kUsualSize);
}

QLineEdit* COdometerDialog::AddReading(QGridLayout& form, Text label, const QString& name,
                                       CMnemonics& mnemonics) {
    auto* line = new QLineEdit;
    LimitLength(*line, kTextLength);
    const int row = form.rowCount();
    AddLabel(form, row, LoadText(label), *line, name, mnemonics);
    form.addWidget(line, row, 1);
    connect(line, &QLineEdit::textChanged, this, &COdometerDialog::EnterReading);
    return line;
}

void COdometerDialog::AddDistance(QGridLayout& form, CMnemonics& mnemonics) {
    const QString unit = LoadText(m_context.settings.metricUnits ? Text::UnitKilometres : Text::UnitMiles);
    m_distance = m_fields.AddRow(form, ListId::kDistance,
                                 FormatText<Text::FieldWithUnit>(LoadText(Text::ColumnCaptionTrip), unit),
                                 QStringLiteral("distanceField"), mnemonics);
    form.addWidget(MakeNote(LoadText(Text::OdometerHint), QStringLiteral("odometerHint")), form.rowCount(),
                   1);
    m_rate = m_fields.AddRow(form, ListId::kDistanceRate, LoadText(Text::ListDistanceRates),
                             QStringLiteral("rateField"), mnemonics);
    connect(m_distance, &CItemCombo::Edited, this, &COdometerDialog::EnterDistance);
    connect(m_rate, &CItemCombo::Edited, this, &COdometerDialog::MarkNumbers);
}

void COdometerDialog::EnterReading() {
    if (m_isShowing) return;
    Odometer odometer = GetDraft();
    ExpenseEntryRules::ReadingsChanged(odometer);
    if (odometer.distance != m_distance->Text()) m_distance->ShowText(odometer.distance);
    MarkNumbers();
}

void COdometerDialog::EnterDistance() {
    Odometer odometer = GetDraft();
    ExpenseEntryRules::DistanceChosen(odometer, m_distance->Text());
    ShowReadings(odometer);
    MarkNumbers();
}

void COdometerDialog::ShowReadings(const Odometer& odometer) {
    const QScopedValueRollback showing(m_isShowing, true);
    m_start->setText(odometer.start);
    m_end->setText(odometer.end);
}

QLineEdit* COdometerDialog::LineOf(DraftField place) const {
    if (place == DraftField::OdometerStart) return m_start;
    if (place == DraftField::OdometerEnd) return m_end;
    return (place == DraftField::Distance ? m_distance : m_rate)->lineEdit();
}

void COdometerDialog::MarkNumbers() {
    const DraftFindings findings = ExpenseEntryRules::FindIn(GetDraft());
    for (const DraftField place :
         {DraftField::OdometerStart, DraftField::OdometerEnd, DraftField::Distance, DraftField::Rate})
        RecordDialogParts::MarkFinding(*LineOf(place), findings, place);
}

void COdometerDialog::accept() {
    const auto place = RecordDialogParts::AskAbout(ExpenseEntryRules::FindIn(GetDraft()), m_context.prompt);
    if (place) return RecordDialogParts::AskAgain(*LineOf(*place));
    QDialog::accept();
}

void COdometerDialog::SetDraft(const Odometer& odometer) {
    ShowReadings(odometer);
    m_distance->ShowText(odometer.distance);
    m_rate->ShowText(odometer.rate);
    MarkNumbers();
    // A suggested or known start needs the end.
    QLineEdit* first = odometer.start.isEmpty() ? m_start : m_end;
    first->setFocus();
    first->selectAll();
}

Odometer COdometerDialog::GetDraft() const {
    return {.start = m_start->text(),
            .end = m_end->text(),
            .rate = m_rate->Text(),
            .distance = m_distance->Text()};
}

void COdometerDialog::done(int result) {
    PersistDialogSize(*this, m_context.settings.Profile(), SizeSection());
    QDialog::done(result);
}

bool RunOdometerDialog(QWidget* parent, Odometer& odometer, const QStringList& itemPath,
                       const RecordDialogContext& context) {
    COdometerDialog dialog(context, itemPath, parent);
    dialog.SetDraft(odometer);
    if (dialog.exec() != QDialog::Accepted) return false;
    odometer = dialog.GetDraft();
    return true;
}
