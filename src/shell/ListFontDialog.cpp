#include "shell/ListFontDialog.h"

#include "lang/LoadText.h"
#include "shell/CMnemonics.h"

#include <QFont>
#include <QFontDialog>
#include <QFontInfo>
#include <QLabel>
#include <QListView>
#include <algorithm>

namespace {

/// The lists of families, styles and sizes are read out by the words above them, which come in the same
/// order. A dialog of the desktop's own has neither.
void NameLists(const QFontDialog& dialog) {
    QStringList words;
    for (const auto* label : dialog.findChildren<QLabel*>(QString(), Qt::FindDirectChildrenOnly))
        if (label->buddy()) words << CMnemonics::Plain(label->text());
    const auto lists = dialog.findChildren<QListView*>(QString(), Qt::FindDirectChildrenOnly);
    for (qsizetype i = 0; i < std::min(lists.size(), words.size()); ++i)
        lists[i]->setAccessibleName(words[i]);
}

}  // namespace

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

std::optional<FontRecord> AskListFont(QWidget* parent, const QFont& present) {
    QFontDialog dialog(present, parent);
    dialog.setObjectName(QStringLiteral("listFontDialog"));
    dialog.setWindowTitle(LoadText(Text::ListFontTitle));
    NameLists(dialog);
    if (dialog.exec() != QDialog::Accepted) return std::nullopt;
    return FontRecordOf(dialog.selectedFont());
}
