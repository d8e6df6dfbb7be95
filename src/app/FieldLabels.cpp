#include "app/FieldLabels.h"

#include "fields/FieldTable.h"
#include "lang/LoadText.h"

void FieldLabels::Clear() {
    m_labels.clear();
    m_isFilled = false;
}

QString FieldLabels::GetLabel(int field) const {
    const QString own = Own(field);
    return own.isEmpty() ? Default(field) : own;
}

QString FieldLabels::Default(int field) {
    const FieldRow* row = FindField(field);
    return row && row->label != Text{} ? LoadText(row->label) : QString();
}
