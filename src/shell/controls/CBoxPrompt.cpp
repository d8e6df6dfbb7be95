#include "shell/controls/CBoxPrompt.h"

#include "lang/LoadText.h"
#include "shell/look/CMnemonics.h"

#include <QApplication>
#include <QFileDialog>
#include <QMessageBox>
#include <QPushButton>

namespace {

struct ButtonRow {
    Answer answer;
    QMessageBox::StandardButton button;
};
constexpr ButtonRow kButtons[] = {
    {Answer::Ok, QMessageBox::Ok},         {Answer::Yes, QMessageBox::Yes},
    {Answer::No, QMessageBox::No},         {Answer::Cancel, QMessageBox::Cancel},
    {Answer::Abort, QMessageBox::Abort},   {Answer::Retry, QMessageBox::Retry},
    {Answer::Ignore, QMessageBox::Ignore},
};

QMessageBox::StandardButtons ButtonsOf(Buttons buttons) {
    switch (buttons) {
        case Buttons::OkCancel:
            return QMessageBox::Ok | QMessageBox::Cancel;
        case Buttons::YesNo:
            return QMessageBox::Yes | QMessageBox::No;
        case Buttons::YesNoCancel:
            return QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel;
        case Buttons::AbortRetryIgnore:
            return QMessageBox::Abort | QMessageBox::Retry | QMessageBox::Ignore;
        default:
            return QMessageBox::Ok;
    }
}

QMessageBox::Icon IconOf(BoxIcon icon) {
    switch (icon) {
        case BoxIcon::Information:
            return QMessageBox::Information;
        case BoxIcon::Warning:
            return QMessageBox::Warning;
        case BoxIcon::Stop:
            return QMessageBox::Critical;
        case BoxIcon::Question:
            return QMessageBox::Question;
        default:
            return QMessageBox::NoIcon;
    }
}

QMessageBox::StandardButton ButtonOf(Answer answer) {
    for (const ButtonRow& row : kButtons)
        if (row.answer == answer) return row.button;
    return QMessageBox::NoButton;
}

/// What a box has of its own for a button; empty: the usual word. Beside a verb "No" is no answer.
QString WordsOf(Answer answer, const MessageBox& box) {
    if (answer == Answer::Yes) return box.actionLabel;
    if (answer == Answer::Cancel) return box.cancelLabel;
    if (answer != Answer::No || box.actionLabel.isEmpty()) return {};
    return box.otherLabel.isEmpty() ? LoadText(Text::ActionCancel) : box.otherLabel;
}

/// The window in front; a progress box, which hasn't the keyboard, counts too. Of one that goes by itself:
/// the one behind it.
QWidget* InFront() {
    QWidget* modal = QApplication::activeModalWidget();
    QWidget* front = modal && modal->isVisible() ? modal : QApplication::activeWindow();
    while (front && front->property(kGoesByItself).toBool()) front = front->parentWidget();
    return front;
}

/// Each button has a letter of its own.
void NameButtons(const QMessageBox& shown, const MessageBox& box) {
    CMnemonics letters;
    for (const ButtonRow& row : kButtons) {
        QAbstractButton* button = shown.button(row.button);
        if (!button) continue;
        const QString words = WordsOf(row.answer, box);
        button->setText(letters.Give(words.isEmpty() ? CMnemonics::Plain(button->text()) : words));
        // The picture of "No" or "Cancel" says something else than the words do.
        if (!words.isEmpty()) button->setIcon({});
    }
}

/// A box may come in the middle of long work, and then it is the user who is waited for.
class ReadyCursor {
 public:
    ReadyCursor() {
        if (m_isWaiting) QGuiApplication::setOverrideCursor(Qt::ArrowCursor);
    }
    ~ReadyCursor() {
        if (m_isWaiting) QGuiApplication::restoreOverrideCursor();
    }
    ReadyCursor(const ReadyCursor&) = delete;
    ReadyCursor& operator=(const ReadyCursor&) = delete;

 private:
    bool m_isWaiting = QGuiApplication::overrideCursor() != nullptr;
};

/// Escape and the box's close button answer what the harmless button answers.
int Show(const MessageBox& box) {
    QMessageBox shown(IconOf(box.icon), box.title, box.text, ButtonsOf(box.buttons), InFront());
    shown.setObjectName(QStringLiteral("messageBox"));
    shown.setTextFormat(Qt::PlainText);
    shown.setTextInteractionFlags(Qt::TextSelectableByMouse);
    NameButtons(shown, box);
    const QMessageBox::StandardButton harmless = ButtonOf(box.defaultAnswer);
    if (shown.button(harmless)) {
        shown.setDefaultButton(ButtonOf(box.onReturn.value_or(box.defaultAnswer)));
        shown.setEscapeButton(harmless);
    }
    const ReadyCursor ready;
    return shown.exec();
}

/// "html" of "Report pages (*.html)"; empty for a filter without one.
QString ExtensionOf(const QString& filter) {
    const qsizetype from = filter.indexOf(QStringLiteral("*."));
    const qsizetype to = filter.indexOf(QLatin1Char(')'), from);
    return from < 0 || to < from ? QString()
                                 : filter.mid(from + 2, to - from - 2).section(QLatin1Char(' '), 0, 0);
}

}  // namespace

Answer CBoxPrompt::Ask(const MessageBox& box) {
    const int button = Show(box);
    for (const ButtonRow& row : kButtons)
        if (row.button == button) return row.answer;
    return box.defaultAnswer;
}

void CBoxPrompt::Tell(const MessageBox& box) {
    Show(box);
}

/// A name that is typed without an extension takes that of the filter, before the dialog asks whether a file
/// of that name may be replaced.
std::optional<QString> CBoxPrompt::ChooseFile(const FileChoice& choice) {
    const bool isSave = choice.purpose == FileChoice::Purpose::Save;
    QFileDialog dialog(InFront(), choice.title, choice.suggestedName, choice.filter);
    dialog.setObjectName(QStringLiteral("fileDialog"));
    dialog.setAcceptMode(isSave ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
    dialog.setFileMode(isSave ? QFileDialog::AnyFile : QFileDialog::ExistingFile);
    if (isSave) {
        dialog.selectFile(choice.suggestedName);
        const auto follow = [&dialog](const QString& filter) {
            dialog.setDefaultSuffix(ExtensionOf(filter));
        };
        follow(dialog.selectedNameFilter());
        QObject::connect(&dialog, &QFileDialog::filterSelected, &dialog, follow);
    }
    const ReadyCursor ready;
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) return std::nullopt;
    return dialog.selectedFiles().front();
}

std::optional<QString> ChooseFolder(QWidget* parent, const QString& title, const QString& begin) {
    const QString folder = QFileDialog::getExistingDirectory(parent, title, begin);
    return folder.isEmpty() ? std::nullopt : std::optional(folder);
}
