#include "shell/report/CQueryForm.h"

#include "app/CPulldownCatalogue.h"
#include "fields/FieldTable.h"
#include "lang/LoadText.h"
#include "shell/controls/CItemCombo.h"
#include "shell/look/CMnemonics.h"
#include "shell/look/FormRows.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QLineEdit>

namespace {
constexpr int kLabelLength = 24;
}

CQueryForm::CQueryForm(RecordKind kind, const FilterDialogContext& context)
    : m_kind(kind), m_context(context), m_form(new QGridLayout), m_second(new QVBoxLayout) {
    setObjectName(QStringLiteral("queryForm"));
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(3 * kFormSpace);
    m_form->setSpacing(kFormSpace);
    m_second->setSpacing(kFormSpace);
    m_form->setColumnStretch(1, 1);
    row->addLayout(m_form, 1);
    row->addLayout(m_second);
}

QString CQueryForm::LabelOf(FieldId field) const {
    const QString label = m_context.catalogue.Labels().GetLabel(NumberOf(field));
    return label.size() <= kLabelLength ? label : label.left(kLabelLength - 1) + QChar(0x2026);
}

CItemCombo* CQueryForm::MakePulldown(int list) const {
    return new CItemCombo([&catalogue = m_context.catalogue, list] {
        return QStringList{LoadText(Text::AnyWord)} + catalogue.Texts(list);
    });
}

void CQueryForm::AddItems(CMnemonics& mnemonics) {
    std::size_t next = 0;
    for (const FieldRow& field : FieldsOf(m_kind)) {
        if (field.form != FieldForm::Text) continue;
        CItemCombo* combo = MakePulldown(field.list);
        const int row = m_form->rowCount();
        const QString name = QStringLiteral("item%1Field").arg(next + 1);
        AddLabel(*m_form, row, LabelOf(field.id), *combo, name, mnemonics);
        NameWidget(*combo->lineEdit(), name + QStringLiteral("Text"), LabelOf(field.id));
        m_form->addWidget(combo, row, 1);
        m_items[next++] = combo;
    }
}

void CQueryForm::AddMatching(CMnemonics& mnemonics) {
    m_second->addSpacing(kFormSpace);
    m_whole = MakeCheckBox(LoadText(Text::FilterWhole), QStringLiteral("matchWhole"), mnemonics);
    m_case = MakeCheckBox(LoadText(Text::FilterCase), QStringLiteral("matchCase"), mnemonics);
    m_second->addWidget(m_whole);
    m_second->addWidget(m_case);
    m_second->addStretch();
    m_form->setRowStretch(m_form->rowCount(), 1);
    setFocusProxy(m_items.front());
}

void CQueryForm::ShowFields(const QueryFields& query) {
    for (std::size_t i = 0; i < m_items.size(); ++i) m_items[i]->ShowText(query.items[i]);
    m_whole->setChecked(query.matchWhole);
    m_case->setChecked(query.matchCase);
}

void CQueryForm::ReadFields(QueryFields& query) const {
    for (std::size_t i = 0; i < m_items.size(); ++i) query.items[i] = CriterionOf(*m_items[i]);
    query.matchWhole = m_whole->isChecked();
    query.matchCase = m_case->isChecked();
}

QString CriterionOf(const CItemCombo& field) {
    return field.Text().isEmpty() ? LoadText(Text::AnyWord) : field.Text();
}
