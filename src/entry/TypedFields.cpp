#include "entry/TypedFields.h"

#include "calendar/NumberText.h"
#include "records/CVORec.h"
#include "records/FieldValues.h"

QString CutItem(const QString& text) {
    QString cut = text.left(kTextLength);
    if (cut.size() < text.size() && cut.back().isHighSurrogate()) cut.chop(1);
    return cut;
}

void PutTyped(DecimalField& field, const QString& text) {
    float value = 0.0F;
    if (ParseFloat(TheRegion(), text, value))
        field.Set(value);
    else
        field.SetNone();
}
