#include "shell/report/CFilterDialog.h"

#include "app/CPulldownCatalogue.h"
#include "config/CCfgStore.h"
#include "fields/FieldTable.h"
#include "lang/FormatText.h"
#include "platform/host/CPrompt.h"
#include "shell/controls/AskText.h"
#include "shell/controls/CPickEdit.h"
#include "shell/look/CMnemonics.h"
#include "shell/look/DialogSize.h"
#include "shell/look/FormRows.h"
#include "shell/report/CExpenseQueryForm.h"
#include "shell/report/CPeriodBox.h"
#include "shell/report/CTimeQueryForm.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>

namespace {

constexpr QSize kUsualSize{600, 380};

QString SizeSection(RecordMode mode) {
    return mode == RecordMode::Time ? QStringLiteral("TimeFilterDialog")
                                    : QStringLiteral("ExpenseFilterDialog");
}

QueryFields& FieldsOf(StoredQuery& query) {
    return std::visit([](auto& held) -> QueryFields& { return held; }, query);
}
const QueryFields& FieldsOf(const StoredQuery& query) {
    return std::visit([](const auto& held) -> const QueryFields& { return held; }, query);
}

StoredQuery EmptyQuery(RecordMode mode, const PeriodContext& period) {
    StoredQuery query = mode == RecordMode::Time ? StoredQuery(TimeQuery()) : StoredQuery(ExpenseQuery());
    std::visit([&period](auto& held) { held.Reset(period); }, query);
    return query;
}

}  // namespace

CFilterDialog::CFilterDialog(RecordMode mode, Use use, const FilterDialogContext& context, QWidget* parent)
    : QDialog(parent), m_mode(mode), m_context(context), m_queries(context.settings, mode) {
    setObjectName(QStringLiteral("filterDialog"));
    setWindowTitle(LoadText(mode == RecordMode::Time ? Text::FilterTitleTime : Text::FilterTitleExpenses));
    Build(use);
    ShowLast();
    RestoreDialogSize(*this, m_context.settings.Profile(), SizeSection(mode), kUsualSize);
    m_form->setFocus();
}

void CFilterDialog::Build(Use use) {
    CMnemonics mnemonics;
    const Text acceptText = use == Use::List ? Text::FilterAccept : Text::FilterAcceptReport;
    PlanLetters(mnemonics, acceptText);
    auto* column = new QVBoxLayout(this);
    column->setSpacing(kFormSpace);
    QDialogButtonBox* buttons =
        MakeDialogButtons(*this, use == Use::List ? Text::FilterAccept : Text::FilterAcceptReport, mnemonics);
    auto* reset =
        buttons->addButton(mnemonics.Give(LoadText(Text::FilterReset)), QDialogButtonBox::ResetRole);
    reset->setAutoDefault(false);
    NameWidget(*reset, QStringLiteral("resetButton"), LoadText(Text::FilterReset));
    connect(reset, &QPushButton::clicked, this, &CFilterDialog::Reset);
    column->addLayout(BuildStored(mnemonics));
    column->addSpacing(kFormSpace);
    if (m_mode == RecordMode::Time)
        m_form = new CTimeQueryForm(m_context, mnemonics);
    else
        m_form = new CExpenseQueryForm(m_context, mnemonics);
    m_period = new CPeriodBox(m_context, mnemonics);
    column->addWidget(m_form, 1);
    column->addSpacing(kFormSpace);
    column->addWidget(m_period);
    column->addSpacing(kFormSpace);
    column->addWidget(buttons);
}

/// So that the fields, whatever they are called, leave letters to the others.
void CFilterDialog::PlanLetters(CMnemonics& mnemonics, Text acceptText) const {
    QStringList texts{LoadText(acceptText)};
    for (const Text text :
         {Text::FilterStored, Text::FilterSaveAs, Text::FilterDelete, Text::FilterReset, Text::FilterWhole,
          Text::FilterCase, Text::FilterPeriod, Text::FilterFrom, Text::DialogCancel})
        texts << LoadText(text);
    const RecordKind kind = KindOf(m_mode);
    for (const FieldRow& field : ::FieldsOf(kind))
        if (field.form == FieldForm::Text || field.form == FieldForm::Flag ||
            field.id == FieldId::ExpenseAmount)
            texts << m_context.catalogue.Labels().GetLabel(NumberOf(field.id));
    if (m_mode == RecordMode::Expense) texts << LoadText(Text::DistanceEntry);
    mnemonics.Plan(texts);
}

QHBoxLayout* CFilterDialog::BuildStored(CMnemonics& mnemonics) {
    auto* row = new QHBoxLayout;
    row->setSpacing(kFormSpace);
    m_names = new QComboBox;
    m_names->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    NameWidget(*m_names, QStringLiteral("storedQueries"), LoadText(Text::FilterStored));
    auto* label = new QLabel(mnemonics.Give(LoadText(Text::FilterStored)));
    label->setBuddy(m_names);
    row->addWidget(label);
    row->addWidget(m_names, 1);
    row->addWidget(AddButton(Text::FilterSaveAs, "saveQueryButton", mnemonics, &CFilterDialog::SaveAs));
    auto* deletes = AddButton(Text::FilterDelete, "deleteQueryButton", mnemonics, &CFilterDialog::Delete);
    deletes->setEnabled(false);
    row->addWidget(deletes);
    connect(m_names, &QComboBox::currentTextChanged, deletes,
            [deletes](const QString& name) { deletes->setEnabled(!name.isEmpty()); });
    connect(m_names, &QComboBox::textActivated, this, &CFilterDialog::Choose);
    return row;
}

QPushButton* CFilterDialog::AddButton(Text caption, const char* name, CMnemonics& mnemonics,
                                      void (CFilterDialog::*action)()) {
    auto* button = new QPushButton(mnemonics.Give(LoadText(caption)));
    button->setAutoDefault(false);
    NameWidget(*button, QString::fromLatin1(name), LoadText(caption));
    connect(button, &QPushButton::clicked, this, action);
    return button;
}

/// As it was left, or empty when there is nothing or it can't be read.
void CFilterDialog::ShowLast() {
    ShowNames({});
    ShowQuery(EmptyQuery(m_mode, m_context.period));
    if (Load(CQueryStore::ReservedName())) ShowNames(CQueryStore::ReservedName());
}

void CFilterDialog::ShowQuery(const StoredQuery& query) {
    m_form->ShowQuery(query);
    m_period->ShowQuery(FieldsOf(query));
}

void CFilterDialog::ShowNames(const QString& selected) {
    const QStringList names = m_queries.Names();
    m_names->clear();
    m_names->addItems(names);
    m_names->setCurrentIndex(static_cast<int>(names.indexOf(selected)));
}

StoredQuery CFilterDialog::GetQuery() const {
    StoredQuery query = EmptyQuery(m_mode, m_context.period);
    m_form->ReadQuery(query);
    m_period->ReadQuery(FieldsOf(query));
    return query;
}

bool CFilterDialog::Load(const QString& name) {
    const std::optional<StoredQuery> query = m_queries.Load(name);
    if (query) ShowQuery(*query);
    return query.has_value();
}

void CFilterDialog::Choose(const QString& name) {
    const std::optional<StoredQuery> query = m_queries.Load(name);
    if (query) {
        ShowQuery(*query);
        TellIfDatesUnread(name, FieldsOf(*query));
        return;
    }
    Tell(static_cast<int>(Text::QueryDamaged), FormatText<Text::QueryDamaged>(name));
}

void CFilterDialog::Tell(int textId, const QString& text) {
    m_context.prompt.Tell({.textId = textId,
                           .title = windowTitle(),
                           .text = text,
                           .icon = BoxIcon::Warning,
                           .actionLabel = {}});
}

void CFilterDialog::TellIfDatesUnread(const QString& name, const QueryFields& query) {
    for (const QString& date : UnreadDates(query, m_context.period))
        Tell(static_cast<int>(Text::QueryDateUnread), FormatText<Text::QueryDateUnread>(name, date));
}

CQueryActions CFilterDialog::Actions() {
    CQueryActions::Screen screen{
        [this](const QString& opening) {
            return AskText(this, {LoadText(Text::FilterSaveTitle), LoadText(Text::QueryNamePrompt), opening});
        },
        m_context.prompt};
    return {m_queries, m_mode, m_context.settings.confirmDelete, std::move(screen)};
}

void CFilterDialog::SaveAs() {
    const std::optional<QString> name = Actions().SaveAs(m_names->currentText(), GetQuery());
    if (name) ShowNames(*name);
}

void CFilterDialog::Delete() {
    if (Actions().Delete(m_names->currentText())) ShowNames({});
}

void CFilterDialog::Reset() {
    ShowQuery(EmptyQuery(m_mode, m_context.period));
}

void CFilterDialog::accept() {
    if (CPickEdit* field = m_period->FirstUnreadable()) {
        Tell(field->UnreadableTextId(), field->WhyUnreadable());
        field->setFocus();
        field->selectAll();
        return;
    }
    // A query that can't be kept for the next time is no reason not to filter by it now.
    static_cast<void>(m_queries.Save(CQueryStore::ReservedName(), GetQuery()));
    QDialog::accept();
}

void CFilterDialog::done(int result) {
    PersistDialogSize(*this, m_context.settings.Profile(), SizeSection(m_mode));
    QDialog::done(result);
}

namespace {

template <class Query, class Filter>
bool RunDialog(RecordMode mode, QWidget* parent, Filter& filter, CFilterDialog::Use use,
               const FilterDialogContext& context) {
    CFilterDialog dialog(mode, use, context, parent);
    if (dialog.exec() != QDialog::Accepted) return false;
    filter.Reset();
    ApplyQuery(std::get<Query>(dialog.GetQuery()), context.period, filter);
    return true;
}

}  // namespace

bool RunFilterDialog(QWidget* parent, TimeFilter& filter, CFilterDialog::Use use,
                     const FilterDialogContext& context) {
    return RunDialog<TimeQuery>(RecordMode::Time, parent, filter, use, context);
}

bool RunFilterDialog(QWidget* parent, ExpenseFilter& filter, CFilterDialog::Use use,
                     const FilterDialogContext& context) {
    return RunDialog<ExpenseQuery>(RecordMode::Expense, parent, filter, use, context);
}
