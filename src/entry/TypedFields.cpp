#include "entry/TypedFields.h"

#include "calendar/NumberText.h"
#include "entry/TypedNumber.h"
#include "records/CVORec.h"
#include "records/FieldValues.h"

QString CutItem(const QString& text) {
    QString cut = text.left(kTextLength);
    if (cut.size() < text.size() && cut.back().isHighSurrogate()) cut.chop(1);
    return cut;
}

bool ReadTypedFloat(const QString& text, float& out) {
    const TypedNumber typed = ReadTypedNumber(text, TheRegion());
    return typed.IsValue() && ParseFloat(TheRegion(), typed.plain, out);
}

void PutTyped(DecimalField& field, const QString& text) {
    if (!text.isEmpty() && text == field.MoneyText()) return;
    float value = 0.0F;
    if (ReadTypedFloat(text, value))
        field.Set(value);
    else
        field.SetNone();
}
