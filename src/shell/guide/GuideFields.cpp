#include "shell/guide/GuideFields.h"

#include "shell/controls/CItemCombo.h"
#include "shell/look/CMnemonics.h"
#include "shell/look/FormRows.h"

#include <QFontMetrics>
#include <QLabel>
#include <QLineEdit>

QLabel* MakeFieldLabel(CItemCombo& field, const QString& objectName) {
    field.setObjectName(objectName);
    auto* label = new QLabel;
    label->setObjectName(objectName + QStringLiteral("Label"));
    label->setBuddy(&field);
    return label;
}

/// A name of 255 characters is cut where it would make the form too wide.
void NameField(QLabel& label, CItemCombo& field, const QString& name, CMnemonics& mnemonics) {
    constexpr int kMostLetters = 30;
    const QFontMetrics metrics = label.fontMetrics();
    const int room = kMostLetters * metrics.averageCharWidth();
    label.setText(mnemonics.Give(metrics.elidedText(name, Qt::ElideRight, room)));
    NameWidget(field, field.objectName(), name);
    NameWidget(*field.lineEdit(), field.objectName() + QStringLiteral("Text"), name);
}
