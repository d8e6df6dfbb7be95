#pragma once

#include <QString>
#include <optional>

/// What can be answered to a message box.
enum class Answer { Ok, Yes, No, Cancel, Abort, Retry, Ignore };

/// The buttons of a box.
enum class Buttons { Ok, OkCancel, YesNo, YesNoCancel, AbortRetryIgnore };

/// The icon of a box.
enum class BoxIcon { None, Information, Warning, Stop, Question };

/// One message or question. The text is ready for reading; its number tells scripts and tests which one it
/// is.
struct MessageBox {
    int textId = 0;  ///< number of the text in the language library, 0 if built in
    QString title;
    QString text;
    BoxIcon icon = BoxIcon::Information;
    Buttons buttons = Buttons::Ok;
    Answer defaultAnswer = Answer::Ok;  ///< the harmless one
    QString actionLabel;                ///< verb on the button that says yes ("Delete"); empty: "Yes"
    QString otherLabel = {};            ///< verb on the button that says no; empty: it cancels, beside a verb
    QString cancelLabel = {};           ///< words on the third button; empty: "Cancel"
    /// What Return answers in a box, where that isn't the harmless answer, as Escape and the end of a
    /// script's lines are.
    std::optional<Answer> onReturn = {};
};

/// Which file is wanted.
struct FileChoice {
    enum class Purpose { Open, Save };
    Purpose purpose = Purpose::Open;
    QString title;
    QString suggestedName;
    QString filter;  ///< "Text files (*.txt)"
};

/// The way to the user: boxes in the window, lines in the console, a script in a test.
class CPrompt {
 public:
    virtual ~CPrompt() = default;
    [[nodiscard]] virtual Answer Ask(const MessageBox& box) = 0;
    virtual void Tell(const MessageBox& box) = 0;
    [[nodiscard]] virtual std::optional<QString> ChooseFile(const FileChoice& choice) = 0;
};
