// What the dialog of the stored defaults asks, and in which order.
#include "entry/NamedDefaults.h"
#include "lang/FormatText.h"
#include "platform/host/CPrompt.h"
#include "records/CVORec.h"

#include <utility>

namespace {

MessageBox BoxOf(Text id, const QString& text, Text title) {
    MessageBox box;
    box.textId = static_cast<int>(id);
    box.title = LoadText(title);
    box.text = text;
    box.icon = BoxIcon::Warning;
    return box;
}

MessageBox QuestionOf(Text id, Text title, Buttons buttons, Answer harmless) {
    MessageBox box = BoxOf(id, LoadText(id), title);
    box.icon = BoxIcon::Question;
    box.buttons = buttons;
    box.defaultAnswer = harmless;
    return box;
}

/// The empty record can't be changed: the user is told.
bool IsRefused(const QString& name, Text refusal, Text title, CPrompt& prompt) {
    if (!NamedDefaults::IsReserved(name)) return false;
    prompt.Tell(BoxOf(refusal, LoadText(refusal) + name + LoadText(Text::ReservedDefault), title));
    return true;
}

/// Whether the user goes on to another name. Going on is what Enter and Escape mean, so that what was
/// entered so far isn't lost by a slip.
bool GoesOn(Text question, Text title, CPrompt& prompt) {
    return prompt.Ask(QuestionOf(question, title, Buttons::OkCancel, Answer::Ok)) == Answer::Ok;
}

}  // namespace

NamedDefaultsActions::NamedDefaultsActions(NamedDefaults& defaults, CVORec& working, bool confirmDelete,
                                           Screen screen)
    : m_defaults(defaults), m_working(working), m_confirmDelete(confirmDelete), m_screen(std::move(screen)) {}

std::optional<QString> NamedDefaultsActions::New() {
    if (!m_defaults.Read(NamedDefaults::EmptyRecordName(), m_working) || !m_screen.edit(m_working)) return {};
    std::optional<QString> name = AskNewName();
    if (!name || !m_defaults.Write(*name, m_working)) return {};
    return name;
}

/// A default that is to be replaced keeps the name it has: "standard" replaces "Standard". The name of the
/// empty record isn't refused, unlike in Rename; such a default is stored and can never be chosen.
std::optional<QString> NamedDefaultsActions::AskNewName() {
    QString typed;
    while (const std::optional<QString> name = m_screen.askName(typed)) {
        typed = *name;
        if (typed.isEmpty()) {
            if (!GoesOn(Text::AskNameAgain, Text::DefaultsName, m_screen.prompt)) return {};
            continue;
        }
        std::optional<QString> former = m_defaults.FindName(typed);
        if (!former) return typed;
        const Answer answer = m_screen.prompt.Ask(
            QuestionOf(Text::AskReplaceDefault, Text::NewDefaultTitle, Buttons::YesNoCancel, Answer::No));
        if (answer == Answer::Yes) return former;
        if (answer == Answer::Cancel) return {};
    }
    return {};
}

bool NamedDefaultsActions::Edit(const QString& name) {
    if (name.isEmpty() || IsRefused(name, Text::EditRefused, Text::EditDefaultTitle, m_screen.prompt))
        return false;
    if (!m_defaults.Read(name, m_working)) {
        m_screen.prompt.Tell(
            BoxOf(Text::DefaultDamaged, FormatText<Text::DefaultDamaged>(name), Text::EditDefaultTitle));
        return false;
    }
    return m_screen.edit(m_working) && m_defaults.Write(name, m_working);
}

bool NamedDefaultsActions::Delete(const QString& name) {
    if (name.isEmpty() || IsRefused(name, Text::DeleteRefused, Text::DeleteDefaultTitle, m_screen.prompt))
        return false;
    if (m_confirmDelete) {
        MessageBox question =
            QuestionOf(Text::AskDeleteDefault, Text::DeleteDefaultTitle, Buttons::YesNo, Answer::No);
        question.text += name + LoadText(Text::AskDeleteDefaultEnd);
        question.actionLabel = LoadText(Text::AskDeleteTitle);
        if (m_screen.prompt.Ask(question) != Answer::Yes) return false;
    }
    return m_defaults.Delete(name);
}

std::optional<QString> NamedDefaultsActions::Rename(const QString& name) {
    if (name.isEmpty() || IsRefused(name, Text::RenameRefused, Text::RenameDefaultTitle, m_screen.prompt))
        return {};
    std::optional<QString> newName = AskOtherName(name);
    if (!newName || !m_defaults.Rename(name, *newName)) return {};
    return newName;
}

/// The name of the empty record is refused in any case of letters, as two names that differ in nothing else
/// can't stand side by side.
std::optional<QString> NamedDefaultsActions::AskOtherName(const QString& name) {
    QString typed = name;
    while (const std::optional<QString> other = m_screen.askName(typed)) {
        typed = *other;
        if (typed == name) return {};
        if (typed.isEmpty()) {
            if (!GoesOn(Text::AskNameAgain, Text::RenameDefaultTitle, m_screen.prompt)) return {};
        } else if (NamedDefaults::LooksReserved(typed)) {
            static_cast<void>(IsRefused(NamedDefaults::EmptyRecordName(), Text::RenameRefused,
                                        Text::RenameDefaultTitle, m_screen.prompt));
        } else if (m_defaults.IsTaken(typed, name)) {
            if (!GoesOn(Text::AskOtherName, Text::RenameDefaultTitle, m_screen.prompt)) return {};
        } else {
            return typed;
        }
    }
    return {};
}
