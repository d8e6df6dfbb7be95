#include "shell/record/CRecordDialogWork.h"

#include "config/CCfgStore.h"
#include "entry/TimeDraft.h"
#include "fields/ItemMembers.h"
#include "fields/TimeFields.h"
#include "shell/controls/CItemCombo.h"
#include "shell/look/CMnemonics.h"
#include "shell/look/FormRows.h"
#include "shell/record/CNotesEdit.h"
#include "shell/record/RecordDialogParts.h"

#include <QGridLayout>
#include <QLabel>

using RecordDialogParts::LabelOf;

namespace {

constexpr auto kItems = ItemFields<CTRecord>(kTimeFields);
constexpr int kNotesName = NumberOf(FieldId::TimeNotes);

/// Long names of fields, two of which stand side by side on this page, leave room for the fields.
void LetShrink(QWidget& label) {
    constexpr int kCharacters = 10;
    const int most = kCharacters * label.fontMetrics().averageCharWidth();
    label.setMinimumWidth(qMin(label.minimumSizeHint().width(), most));
}

}  // namespace

CRecordDialogWork::CRecordDialogWork(TimeDraft& draft, const RecordDialogContext& context,
                                     CMnemonics& mnemonics)
    : m_draft(draft), m_fields(context.catalogue, RecordMode::Time, context.settings) {
    setObjectName(QStringLiteral("workFields"));
    auto* form = new QGridLayout(this);
    form->setContentsMargins(0, 0, 0, 0);
    form->setSpacing(kFormSpace);
    AddItems(*form, context, mnemonics);
    AddNotes(*form, context, mnemonics);
    form->setColumnStretch(1, 1);
}

QStringList CRecordDialogWork::Labels(const RecordDialogContext& context) {
    QStringList labels;
    for (const FieldId field : {kItems[0].id, kItems[1].id, FieldId::TimeNotes})
        labels << LabelOf(context.catalogue, NumberOf(field));
    return labels;
}

void CRecordDialogWork::AddItems(QGridLayout& form, const RecordDialogContext& context,
                                 CMnemonics& mnemonics) {
    for (std::size_t i = 0; i < m_items.size(); ++i) {
        const int row = form.rowCount();
        m_items[i] = m_fields.AddRow(form, kItems[i].list, LabelOf(context.catalogue, NumberOf(kItems[i].id)),
                                     QStringLiteral("workItem%1Field").arg(i + 1), mnemonics);
        LetShrink(*form.itemAtPosition(row, 0)->widget());
        connect(m_items[i], &CItemCombo::Edited, this, [this, i] {
            m_draft.EnterItem(kItems[i].member, m_items[i]->Text());
            Q_EMIT ItemEntered();
        });
    }
}

/// Two lines are always in sight; a higher dialog gives its room to the notes.
void CRecordDialogWork::AddNotes(QGridLayout& form, const RecordDialogContext& context,
                                 CMnemonics& mnemonics) {
    constexpr int kLines = 2;
    const int row = form.rowCount();
    const QString label = LabelOf(context.catalogue, kNotesName);
    m_notes = new CNotesEdit(label, QStringLiteral("workNotesField"));
    QLabel* caption = AddLabel(form, row, label, *m_notes, QStringLiteral("workNotesField"), mnemonics);
    form.setAlignment(caption, Qt::AlignTop);
    LetShrink(*caption);
    form.addWidget(m_notes, row, 1);
    form.setRowStretch(row, 1);
    const int margins = 2 * (m_notes->frameWidth() + static_cast<int>(m_notes->document()->documentMargin()));
    m_notes->setMinimumHeight(kLines * m_notes->fontMetrics().lineSpacing() + margins);
    m_notes->setMinimumWidth(0);
    connect(m_notes, &CNotesEdit::Edited, this, [this] {
        m_draft.EnterNotes(m_notes->GetNotes());
        Q_EMIT NotesEntered();
    });
}

void CRecordDialogWork::ShowItems() {
    for (std::size_t i = 0; i < m_items.size(); ++i) {
        const QString& text = m_draft.Record().*kItems[i].member;
        if (m_items[i]->Text() != text) m_items[i]->ShowText(text);
    }
}

void CRecordDialogWork::ShowNotes() {
    if (m_notes->GetNotes() != m_draft.Record().notes) m_notes->SetNotes(m_draft.Record().notes);
}
