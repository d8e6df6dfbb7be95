#include "shell/controls/CRangeDialog.h"

#include "calendar/PeriodFilter.h"
#include "lang/LoadText.h"
#include "shell/controls/CDateEdit.h"
#include "shell/look/CMnemonics.h"
#include "shell/look/FormRows.h"

#include <QDialogButtonBox>
#include <QGridLayout>
#include <QLabel>
#include <QVBoxLayout>

CRangeDialog::CRangeDialog(const Days& days, const PeriodContext& context, QWidget* parent)
    : QDialog(parent) {
    setObjectName(QStringLiteral("rangeDialog"));
    setWindowTitle(LoadText(Text::RangeTitle));
    CMnemonics mnemonics;
    auto* column = new QVBoxLayout(this);
    auto* form = new QGridLayout;
    form->setSpacing(kFormSpace);
    m_first = AddDay(*form, context, {Text::RangeFrom, Text::RangeFromName, "rangeFrom"}, mnemonics);
    m_last = AddDay(*form, context, {Text::RangeTo, Text::RangeToName, "rangeTo"}, mnemonics);
    column->addLayout(form);
    m_note = MakeNote({}, QStringLiteral("rangeNote"));
    column->addWidget(m_note);
    column->addStretch(1);
    column->addWidget(MakeDialogButtons(*this, Text::RangeAccept, mnemonics));
    m_first->SetDate(days.first);
    m_last->SetDate(days.last);
    for (CDateEdit* day : {m_first, m_last})
        connect(day, &CDateEdit::Entered, this, [this, context] { ShowNoteOnOrder(context); });
    ShowNoteOnOrder(context);
    m_first->setFocus();
    m_first->selectAll();
}

CDateEdit* CRangeDialog::AddDay(QGridLayout& form, const PeriodContext& context, const Row& row,
                                CMnemonics& mnemonics) {
    auto* field = new CDateEdit(context.region, context.clock, context.firstDayOfWeek);
    auto* label = new QLabel(mnemonics.Take(LoadText(row.label)));
    label->setBuddy(field);
    NameWidget(*field, QString::fromLatin1(row.objectName), LoadText(row.name));
    const int line = form.rowCount();
    form.addWidget(label, line, 0);
    form.addWidget(field, line, 1);
    form.setColumnStretch(1, 1);
    return field;
}

CRangeDialog::Days CRangeDialog::GetDays() const {
    return {m_first->GetDate().value_or(DateTimeVal()), m_last->GetDate().value_or(DateTimeVal())};
}

/// A field that was emptied names no day, either.
CDateEdit* CRangeDialog::FirstWithoutDay() const {
    for (CDateEdit* day : {m_first, m_last})
        if (!day->IsReadable() || !day->GetDate()) return day;
    return nullptr;
}

void CRangeDialog::ShowNoteOnOrder(const PeriodContext& context) {
    const Days days = GetDays();
    ShowNote(*m_note, FirstWithoutDay() ? QString() : NoteOnRange(days.first, days.last, context), *m_last);
}

void CRangeDialog::accept() {
    if (CDateEdit* day = FirstWithoutDay()) {
        ShowNote(*m_note, day->WhyUnreadable(), *day);
        day->setFocus();
        day->selectAll();
        return;
    }
    QDialog::accept();
}
