#include "lists/CListEditor.h"

#include "app/CPulldownCatalogue.h"
#include "app/ListTable.h"
#include "config/Settings.h"
#include "lang/FormatText.h"
#include "platform/host/CPrompt.h"
#include "records/FieldDef.h"
#include "records/StoreTransaction.h"

namespace {

MessageBox Message(Text id, const QString& text, Text title) {
    return {.textId = static_cast<int>(id),
            .title = LoadText(title),
            .text = text,
            .icon = BoxIcon::Warning,
            .actionLabel = {}};
}

/// A question whose harmless answer is No.
MessageBox Question(Text id, const QString& text, Text title, Text action) {
    return {.textId = static_cast<int>(id),
            .title = LoadText(title),
            .text = text,
            .icon = BoxIcon::Warning,
            .buttons = Buttons::YesNo,
            .defaultAnswer = Answer::No,
            .actionLabel = LoadText(action)};
}

}  // namespace

bool CListEditor::Open(int list) {
    if (m_context.catalogue.GetList(list)) return true;
    m_context.prompt.Tell(
        Message(Text::ItemListUnknown, FormatText<Text::ItemListUnknown>(list), Text::ListsTitle));
    return false;
}

/// A transaction holds the store from the look at what is stored to the change, so that an item or a
/// dependency that another program has just added isn't undone.
bool CListEditor::AsStoredNow(const std::function<bool()>& change) {
    CPulldownCatalogue& catalogue = m_context.catalogue;
    StoreTransaction hold(m_context.store);
    if (!hold.IsOpen() || (catalogue.IsStale() && !catalogue.Load())) return false;
    return change() && hold.Commit() == CommitEnd::Durable;
}

CListEditor::Added CListEditor::Add(int list, const QString& typed) {
    const QString text = typed.left(kTextLength);
    if (text.isEmpty()) {
        TellNothingSelected(Text::NoItemTyped);
        return Added::NotYet;
    }
    Added added = Added::NotYet;
    const bool isDone = AsStoredNow([&] {
        CPulldownCatalogue& catalogue = m_context.catalogue;
        if (catalogue.CheckNewItem(list, text) == NewItem::Refused) {
            added = Added::Refused;
            return true;
        }
        return catalogue.AddItem(list, text, false);
    });
    return isDone && added != Added::Refused ? Added::Done : added;
}

QString CListEditor::WhyRefused(int list, const QString& text) const {
    float number = 0.0F;
    QString display;
    if (HoldsNumbers(list) && !NormaliseNumber(text, number, display))
        return FormatText<Text::ItemIsNoNumber>(text);
    return m_context.catalogue.HasItem(list, ItemShown(list, text))
               ? FormatText<Text::ItemIsThere>(ItemShown(list, text))
               : FormatText<Text::ItemIsReserved>(text);
}

bool CListEditor::AgreedToDelete(const QStringList& texts) const {
    if (!m_context.settings.confirmDeleteListItem) return true;
    const auto count = static_cast<int>(texts.size());
    const MessageBox box = count == 1
                               ? Question(Text::AskDeleteItem, FormatText<Text::AskDeleteItem>(texts.front()),
                                          Text::AskAddItemTitle, Text::ActionDeleteItem)
                               : Question(Text::AskDeleteItems, FormatText<Text::AskDeleteItems>(count),
                                          Text::AskAddItemTitle, Text::ActionDeleteItem);
    return m_context.prompt.Ask(box) == Answer::Yes;
}

bool CListEditor::Delete(int list, const QStringList& texts) {
    if (texts.isEmpty()) {
        TellNothingSelected(Text::NoItemToDelete);
        return false;
    }
    QStringList gone = texts;
    gone.removeAll(QString());
    if (gone.isEmpty() || !AgreedToDelete(gone)) return false;
    return AsStoredNow([&] {
        return gone.size() == 1 ? m_context.catalogue.DeleteItem(list, gone.front())
                                : m_context.catalogue.DeleteItems(list, gone);
    });
}

bool CListEditor::DeleteAll(int list, const QString& caption) {
    const auto count = static_cast<int>(m_context.catalogue.Texts(list).size());
    const QString words = LoadText(Text::AskDeleteAllItems) + QStringLiteral("\n\n") +
                          (count == 1 ? FormatText<Text::ItemsInListOne>(caption)
                                      : FormatText<Text::ItemsInList>(caption, count));
    if (m_context.prompt.Ask(Question(Text::AskDeleteAllItems, words, Text::AskAddItemTitle,
                                      Text::ActionDeleteAllItems)) != Answer::Yes)
        return false;
    return AsStoredNow([&] { return m_context.catalogue.DeleteAllItems(list); });
}

CListEditor::Renamed CListEditor::Rename(const ItemRename& rename) {
    if (rename.oldText.isEmpty() || rename.newText.isEmpty() || rename.oldText == rename.newText)
        return Renamed::No;
    Renamed renamed = Renamed::Done;
    const bool isDone = AsStoredNow([this, &rename, &renamed] {
        CPulldownCatalogue& catalogue = m_context.catalogue;
        if (catalogue.CheckNewItem(rename.list, rename.newText) == NewItem::Acceptable)
            return catalogue.TryRenameItem(rename.list, rename.oldText, rename.newText);
        renamed = Renamed::Kept;
        return true;
    });
    if (isDone) return renamed;
    m_context.prompt.Tell(
        Message(Text::ItemStaysAsItWas, LoadText(Text::ItemStaysAsItWas), Text::RenameFailedTitle));
    return Renamed::Failed;
}

bool CListEditor::OfferMerge(const ItemRename& rename) {
    CPulldownCatalogue& catalogue = m_context.catalogue;
    const int list = rename.list;
    const QString gone = rename.oldText, kept = ItemShown(list, rename.newText);
    if (gone == kept || !catalogue.HasItem(list, gone) || !catalogue.HasItem(list, kept)) return false;
    const MessageBox box =
        Question(Text::AskMergeItems, FormatText<Text::AskMergeItems>(gone, kept, gone, kept),
                 Text::MergeTitle, Text::ActionMerge);
    return m_context.prompt.Ask(box) == Answer::Yes &&
           AsStoredNow([&] { return catalogue.MergeItems(list, gone, kept); });
}

void CListEditor::TellNothingSelected(Text what) const {
    m_context.prompt.Tell(Message(what, LoadText(what), Text::ItemChoiceTitle));
}
