#include "reports/query/CQueryActions.h"

#include "lang/LoadText.h"
#include "platform/host/CPrompt.h"
#include "reports/query/CQueryStore.h"

#include <utility>

namespace {

MessageBox BoxOf(Text id, const QString& text, RecordMode mode) {
    MessageBox box;
    box.textId = static_cast<int>(id);
    box.title = LoadText(QueryTitle(mode));
    box.text = text;
    box.icon = BoxIcon::Warning;
    return box;
}

MessageBox QuestionOf(Text id, const QString& text, Text verb, RecordMode mode) {
    MessageBox box = BoxOf(id, text, mode);
    box.icon = BoxIcon::Question;
    box.buttons = Buttons::YesNo;
    box.defaultAnswer = Answer::No;
    box.actionLabel = LoadText(verb);
    return box;
}

}  // namespace

Text QueryTitle(RecordMode mode) {
    return mode == RecordMode::Time ? Text::DeleteDefaultTitle : Text::NewDefaultTitle;
}

QString DeleteQueryQuestion(const QString& name) {
    return LoadText(Text::AskDeleteDefault) + name + LoadText(Text::AskDeleteQueryEnd);
}

QString ReservedQueryRefusal(const QString& name) {
    return LoadText(Text::DeleteRefused) + name + LoadText(Text::ReservedQuery);
}

CQueryActions::CQueryActions(CQueryStore& store, RecordMode mode, bool confirmDelete, Screen screen)
    : m_store(store), m_mode(mode), m_confirmDelete(confirmDelete), m_screen(std::move(screen)) {}

/// The name of the last filter isn't refused: what is saved there is gone with the next OK.
std::optional<QString> CQueryActions::SaveAs(const QString& selected, const StoredQuery& query) {
    auto name = m_screen.askName(CQueryStore::IsReserved(selected) ? QString() : selected);
    if (!name || name->isEmpty()) return std::nullopt;
    const MessageBox question =
        QuestionOf(Text::AskReplaceQuery, LoadText(Text::AskReplaceQuery), Text::VerbReplace, m_mode);
    for (qsizetype i = m_store.Alike(*name).size(); i > 0; --i)
        if (m_screen.prompt.Ask(question) != Answer::Yes) return std::nullopt;
    return m_store.Save(*name, query) ? name : std::nullopt;
}

bool CQueryActions::Delete(const QString& selected) {
    if (selected.isEmpty()) return false;
    if (CQueryStore::IsReserved(selected)) {
        m_screen.prompt.Tell(BoxOf(Text::DeleteRefused, ReservedQueryRefusal(selected), m_mode));
        return false;
    }
    const MessageBox question =
        QuestionOf(Text::AskDeleteDefault, DeleteQueryQuestion(selected), Text::AskDeleteTitle, m_mode);
    if (m_confirmDelete && m_screen.prompt.Ask(question) != Answer::Yes) return false;
    return m_store.Delete(selected);
}
