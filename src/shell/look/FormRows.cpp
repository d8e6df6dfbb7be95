#include "shell/look/FormRows.h"

#include "lang/FormatText.h"
#include "shell/look/CMnemonics.h"

#include <QAbstractItemView>
#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDialog>
#include <QDialogButtonBox>
#include <QGridLayout>
#include <QIcon>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QStyle>

namespace {

QString MarkName() {
    return QStringLiteral("unreadableMark");
}

/// Without the halves of characters beyond the basic plane that have lost the other one.
QString WholeCharacters(const QString& text) {
    QString whole;
    whole.reserve(text.size());
    for (qsizetype i = 0; i < text.size(); ++i) {
        const bool isPair = text[i].isHighSurrogate() && i + 1 < text.size() && text[i + 1].isLowSurrogate();
        if (!isPair && text[i].isSurrogate()) continue;
        whole.append(text[i]);
        if (isPair) whole.append(text[++i]);
    }
    return whole;
}

}  // namespace

void NameWidget(QWidget& widget, const QString& objectName, const QString& accessibleName) {
    widget.setObjectName(objectName);
    widget.setAccessibleName(accessibleName);
    if (const auto* box = qobject_cast<QComboBox*>(&widget)) box->view()->setAccessibleName(accessibleName);
}

void ShowValue(QLabel& label, const QString& caption, const QString& value) {
    label.setText(value);
    label.setAccessibleName(value.isEmpty() ? caption : FormatText<Text::RecordInWords>(caption, value));
}

QLabel* AddLabel(QGridLayout& form, int row, const QString& text, QWidget& field, const QString& objectName,
                 CMnemonics& mnemonics) {
    auto* label = new QLabel(mnemonics.Give(text));
    label->setBuddy(&field);
    label->setObjectName(objectName + QStringLiteral("Label"));
    NameWidget(field, objectName, text);
    form.addWidget(label, row, 0);
    return label;
}

QLabel* MakeNote(const QString& text, const QString& objectName) {
    auto* note = new QLabel(text);
    note->setWordWrap(true);
    NameWidget(*note, objectName, text);
    const QFontMetrics metrics = note->fontMetrics();
    note->setMinimumSize(metrics.horizontalAdvance(text) * 2 / 3, 2 * metrics.lineSpacing());
    return note;
}

void ShowNote(QLabel& note, const QString& text, QWidget& field) {
    note.setText(text);
    note.setHidden(text.isEmpty());
    field.setAccessibleDescription(text);
}

QCheckBox* MakeCheckBox(const QString& text, const QString& objectName, CMnemonics& mnemonics) {
    auto* box = new QCheckBox(mnemonics.Give(text));
    NameWidget(*box, objectName, text);
    return box;
}

QDialogButtonBox* MakeDialogButtons(QDialog& dialog, Text acceptText, CMnemonics& mnemonics) {
    auto* box = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    const auto dress = [&mnemonics, box](QDialogButtonBox::StandardButton which, Text text,
                                         const QString& name) {
        box->button(which)->setText(mnemonics.Give(LoadText(text)));
        NameWidget(*box->button(which), name, LoadText(text));
    };
    dress(QDialogButtonBox::Ok, acceptText, QStringLiteral("acceptButton"));
    dress(QDialogButtonBox::Cancel, Text::DialogCancel, QStringLiteral("cancelButton"));
    QPushButton* accept = box->button(QDialogButtonBox::Ok);
    accept->setDefault(true);
    // Any button is the one for Enter while it has the keyboard. Qt forgets to give that back when the
    // keyboard goes on by a mnemonic or a page; in a field Enter always accepts.
    QObject::connect(qApp, &QApplication::focusChanged, accept, [&dialog, accept](QWidget*, QWidget* now) {
        if (now && dialog.isAncestorOf(now) && !qobject_cast<QPushButton*>(now)) accept->setDefault(true);
    });
    QObject::connect(box, &QDialogButtonBox::accepted, &dialog, &QDialog::accept);
    QObject::connect(box, &QDialogButtonBox::rejected, &dialog, &QDialog::reject);
    return box;
}

void LimitLength(QLineEdit& field, int mostCharacters) {
    field.setMaxLength(mostCharacters);
    QObject::connect(&field, &QLineEdit::textEdited, &field, [&field](const QString& text) {
        const QString whole = WholeCharacters(text);
        if (whole == text) return;
        const int cursor = field.cursorPosition();
        field.setText(whole);
        field.setCursorPosition(cursor - 1);
    });
}

void MarkUnreadable(QLineEdit& field, bool isUnreadable, const QString& reason) {
    auto* mark = field.findChild<QAction*>(MarkName());
    if (!isUnreadable) {
        delete mark;
        field.setAccessibleDescription({});
        return;
    }
    if (!mark) {
        const QIcon icon = QIcon::fromTheme(QStringLiteral("dialog-warning"),
                                            field.style()->standardIcon(QStyle::SP_MessageBoxWarning));
        mark = field.addAction(icon, QLineEdit::LeadingPosition);
        mark->setObjectName(MarkName());
    }
    mark->setToolTip(reason);
    field.setAccessibleDescription(reason);
}

bool IsMarked(const QLineEdit& field) {
    return field.findChild<QAction*>(MarkName()) != nullptr;
}
