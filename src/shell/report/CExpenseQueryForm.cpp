#include "shell/report/CExpenseQueryForm.h"

#include "fields/ListId.h"
#include "lang/LoadText.h"
#include "shell/controls/CItemCombo.h"
#include "shell/look/CMnemonics.h"
#include "shell/look/FormRows.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QSignalBlocker>
#include <algorithm>

namespace {

constexpr FieldId kFlags[] = {FieldId::Flag1, FieldId::Flag2, FieldId::Flag3, FieldId::Flag4, FieldId::Flag5};

/// How amounts compare, in the order in which they are offered.
struct ComparisonRow {
    Text text;
    int comparison;
};
constexpr ComparisonRow kComparisons[] = {
    {Text::AmountEqual, AmountComparison::kEqual},
    {Text::AmountLess, AmountComparison::kLess},
    {Text::AmountGreater, AmountComparison::kGreater},
};

struct StateRow {
    Qt::CheckState state;
    int criterion;
    Text tip;
};
constexpr StateRow kStates[] = {
    {Qt::PartiallyChecked, FlagCriterion::kAny, Text::FilterFlagAny},
    {Qt::Checked, FlagCriterion::kSet, Text::FilterFlagSet},
    {Qt::Unchecked, FlagCriterion::kClear, Text::FilterFlagClear},
};

/// A stored criterion that is none of the three shows as any.
const StateRow& RowOf(int criterion) {
    const auto* row = std::ranges::find(kStates, criterion, &StateRow::criterion);
    return row == std::end(kStates) ? kStates[0] : *row;
}
const StateRow& RowOf(const QCheckBox& box) {
    return *std::ranges::find(kStates, box.checkState(), &StateRow::state);
}

/// Which of the three states a box is in is said in words, too.
void ShowCriterion(QCheckBox& box, int criterion) {
    const StateRow& row = RowOf(criterion);
    box.setCheckState(row.state);
    box.setToolTip(LoadText(row.tip));
    box.setAccessibleDescription(LoadText(row.tip));
}

}  // namespace

CExpenseQueryForm::CExpenseQueryForm(const FilterDialogContext& context, CMnemonics& mnemonics)
    : CQueryForm(RecordKind::Expense, context) {
    AddItems(mnemonics);
    AddAmount(mnemonics);
    AddMarks(mnemonics);
    AddMatching(mnemonics);
}

void CExpenseQueryForm::AddAmount(CMnemonics& mnemonics) {
    const QString label = LabelOf(FieldId::ExpenseAmount);
    const int row = Form().rowCount();
    m_comparison = new QComboBox;
    for (const ComparisonRow& choice : kComparisons)
        m_comparison->addItem(LoadText(choice.text), choice.comparison);
    AddLabel(Form(), row, label, *m_comparison, QStringLiteral("comparisonBox"), mnemonics);
    m_amount = MakePulldown(ListId::kAmount);
    NameWidget(*m_amount, QStringLiteral("amountField"), label);
    NameWidget(*m_amount->lineEdit(), QStringLiteral("amountFieldText"), label);
    auto* pair = new QHBoxLayout;
    pair->setSpacing(kFormSpace);
    pair->addWidget(m_comparison);
    pair->addWidget(m_amount, 1);
    Form().addLayout(pair, row, 1);
    m_amountNote = MakeNote({}, QStringLiteral("amountNote"));
    Form().addWidget(m_amountNote, row + 1, 1);
    connect(m_comparison, &QComboBox::currentIndexChanged, this, &CExpenseQueryForm::ShowAmountNote);
    connect(m_amount, &CItemCombo::Edited, this, &CExpenseQueryForm::ShowAmountNote);
}

void CExpenseQueryForm::ShowAmountNote() {
    ShowNote(*m_amountNote, NoteOnAmountText(CriterionOf(*m_amount), m_comparison->currentData().toInt()),
             *m_amount);
}

void CExpenseQueryForm::AddMarks(CMnemonics& mnemonics) {
    const auto add = [&](const QString& label, const QString& name) {
        QCheckBox* box = MakeCheckBox(label, name, mnemonics);
        box->setTristate(true);
        Second().addWidget(box);
        connect(box, &QCheckBox::stateChanged, this, &CExpenseQueryForm::FollowMarks);
        return box;
    };
    m_distance = add(LoadText(Text::DistanceEntry), QStringLiteral("distanceBox"));
    for (std::size_t i = 0; i < m_flags.size(); ++i)
        m_flags[i] = add(LabelOf(kFlags[i]), QStringLiteral("flag%1Box").arg(i + 1));
}

ExpenseQuery CExpenseQueryForm::MarksAsShown() const {
    ExpenseQuery query;
    query.distance = RowOf(*m_distance).criterion;
    for (std::size_t i = 0; i < m_flags.size(); ++i) query.flags[i] = RowOf(*m_flags[i]).criterion;
    return query;
}

void CExpenseQueryForm::ShowMarks(const ExpenseQuery& query) {
    const auto show = [](QCheckBox& box, int criterion, bool isEnabled) {
        const QSignalBlocker quiet(box);
        ShowCriterion(box, criterion);
        box.setEnabled(isEnabled);
    };
    show(*m_distance, query.distance, true);
    for (std::size_t i = 0; i < m_flags.size(); ++i) show(*m_flags[i], query.flags[i], CanAskFor(query, i));
}

void CExpenseQueryForm::FollowMarks() {
    ExpenseQuery query = MarksAsShown();
    DropDependents(query);
    ShowMarks(query);
}

void CExpenseQueryForm::ShowQuery(const StoredQuery& stored) {
    const auto& query = std::get<ExpenseQuery>(stored);
    ShowFields(query);
    m_amount->ShowText(AmountText(query.amount));
    m_comparison->setCurrentIndex(m_comparison->findData(query.comparison));
    ShowAmountNote();
    ExpenseQuery marks = query;
    DropDependents(marks);
    ShowMarks(marks);
}

void CExpenseQueryForm::ReadQuery(StoredQuery& stored) const {
    auto& query = std::get<ExpenseQuery>(stored);
    const ExpenseQuery marks = MarksAsShown();
    ReadFields(query);
    query.amount = AmountOfText(CriterionOf(*m_amount));
    query.comparison = m_comparison->currentData().toInt();
    query.distance = marks.distance;
    query.flags = marks.flags;
}
