#include "shell/report/CTimeQueryForm.h"

#include "lang/LoadText.h"
#include "shell/look/CMnemonics.h"
#include "shell/look/FormRows.h"

#include <QComboBox>
#include <QGridLayout>
#include <algorithm>
#include <array>

namespace {

/// The texts of a mark: any, with it, without it.
struct MarkChoice {
    Text text;
    int criterion;
};
using MarkChoices = std::array<MarkChoice, 3>;
constexpr MarkChoices kBillable{{{Text::AnyWord, FlagCriterion::kAny},
                                 {Text::TreeBillable, FlagCriterion::kSet},
                                 {Text::TreeNotBillable, FlagCriterion::kClear}}};
constexpr MarkChoices kBilled{{{Text::AnyWord, FlagCriterion::kAny},
                               {Text::TreeBilled, FlagCriterion::kSet},
                               {Text::TreeNotBilled, FlagCriterion::kClear}}};

QComboBox* MakeChoice(const MarkChoices& choices) {
    auto* box = new QComboBox;
    for (const MarkChoice& choice : choices) box->addItem(LoadText(choice.text), choice.criterion);
    return box;
}

/// A stored criterion that is none of the three shows as any.
void ShowChoice(QComboBox& box, int criterion) {
    box.setCurrentIndex(std::max(0, box.findData(criterion)));
}

}  // namespace

CTimeQueryForm::CTimeQueryForm(const FilterDialogContext& context, CMnemonics& mnemonics)
    : CQueryForm(RecordKind::Time, context),
      m_billable(MakeChoice(kBillable)),
      m_billed(MakeChoice(kBilled)) {
    AddItems(mnemonics);
    auto* marks = new QGridLayout;
    marks->setSpacing(kFormSpace);
    AddLabel(*marks, 0, LabelOf(FieldId::Billable), *m_billable, QStringLiteral("billableBox"), mnemonics);
    marks->addWidget(m_billable, 0, 1);
    AddLabel(*marks, 1, LabelOf(FieldId::Billed), *m_billed, QStringLiteral("billedBox"), mnemonics);
    marks->addWidget(m_billed, 1, 1);
    Second().addLayout(marks);
    AddMatching(mnemonics);
}

void CTimeQueryForm::ShowQuery(const StoredQuery& stored) {
    const auto& query = std::get<TimeQuery>(stored);
    ShowFields(query);
    ShowChoice(*m_billable, query.billable);
    ShowChoice(*m_billed, query.billed);
}

void CTimeQueryForm::ReadQuery(StoredQuery& stored) const {
    auto& query = std::get<TimeQuery>(stored);
    ReadFields(query);
    query.billable = m_billable->currentData().toInt();
    query.billed = m_billed->currentData().toInt();
}
