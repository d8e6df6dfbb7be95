#include "shell/options/ListFontDialog.h"

#include "lang/LoadText.h"
#include "shell/look/CMnemonics.h"
#include "shell/look/FormRows.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QFont>
#include <QFontDialog>
#include <QFontInfo>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <algorithm>
#include <vector>

std::optional<FontRecord> FontRecordOf(const QFont& font) {
    // A font by pixels has no size in points of its own.
    const double points = font.pointSizeF() > 0 ? font.pointSizeF() : QFontInfo(font).pointSizeF();
    if (font.family().isEmpty() || points <= 0) return std::nullopt;
    FontRecord record;
    record.tenthsOfPoint = std::clamp(qRound(points * 10), 10, 10000);
    record.weight = std::clamp(static_cast<int>(font.weight()), 1, 1000);
    record.italic = font.italic();
    record.face = font.family();
    return record;
}

namespace {

bool IsField(const QWidget& widget) {
    return qobject_cast<const QLineEdit*>(&widget) || qobject_cast<const QAbstractItemView*>(&widget) ||
           qobject_cast<const QComboBox*>(&widget);
}

/// Qt's fields have no names: a field and the list below it are called by the label above them.
void NameFields(const QFontDialog& dialog) {
    const auto* grid = qobject_cast<const QGridLayout*>(dialog.layout());
    if (!grid) return;
    std::vector<QString> labels(static_cast<std::size_t>(grid->columnCount()));
    for (int place = 0; place < grid->rowCount() * grid->columnCount(); ++place) {
        const int column = place % grid->columnCount();
        const QLayoutItem* item = grid->itemAtPosition(place / grid->columnCount(), column);
        QWidget* widget = item ? item->widget() : nullptr;
        QString& label = labels[static_cast<std::size_t>(column)];
        if (const auto* above = qobject_cast<const QLabel*>(widget))
            label = CMnemonics::Plain(above->text());
        else if (widget && IsField(*widget))
            NameWidget(*widget, widget->objectName(), label);
    }
}

}  // namespace

std::optional<FontRecord> AskListFont(QWidget* parent, const QFont& present) {
    QFontDialog dialog(present, parent);
    dialog.setObjectName(QStringLiteral("listFontDialog"));
    dialog.setWindowTitle(LoadText(Text::ListFontTitle));
    NameFields(dialog);
    if (dialog.exec() != QDialog::Accepted) return std::nullopt;
    return FontRecordOf(dialog.selectedFont());
}
