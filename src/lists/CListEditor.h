#pragma once

#include <QString>
#include <QStringList>
#include <functional>

class CPrompt;
class CPulldownCatalogue;
class CRecordStore;
enum class Text : int;
struct Settings;

/// An item of a list that is to get another text.
struct ItemRename {
    int list;
    QString oldText;
    QString newText;
};

/// Editing the items of the pick lists: the rules of their window, without a widget. Each change is asked
/// about where it has to be and stored at once; what fails is told. Before a change the lists are read again
/// where another program has changed the store, so pointers to items don't outlive a call. What records hold
/// stays as it is.
class CListEditor {
 public:
    struct Context {
        CPulldownCatalogue& catalogue;
        CRecordStore& store;
        const Settings& settings;
        CPrompt& prompt;
    };
    explicit CListEditor(const Context& context) : m_context(context) {}

    /// False, and the user told, when there is no such list.
    [[nodiscard]] bool Open(int list);

    enum class Added {
        Done,
        NotYet,  ///< nothing was typed, or the store refused, which was told
        Refused  ///< the list holds the text, or can't take it, and nothing is told
    };
    /// typed: up to 255 characters of it count. Nobody is asked: it has just been typed.
    [[nodiscard]] Added Add(int list, const QString& typed);

    /// Why the list doesn't take a text anew, in a sentence.
    [[nodiscard]] QString WhyRefused(int list, const QString& text) const;

    /// Asks by confirmDeleteListItem, once for several. An empty text is no item that can be deleted. False
    /// when all is as before.
    bool Delete(int list, const QStringList& texts);
    /// caption: of the list.
    bool DeleteAll(int list, const QString& caption);

    enum class Renamed {
        No,      ///< one of the texts is empty, or both are the same
        Failed,  ///< which was told
        Done,
        Kept  ///< the list has the new text already, or can't take it: the item stays as it is
    };
    [[nodiscard]] Renamed Rename(const ItemRename& rename);
    /// After a rename to a text that is an item already: both can become one, where the user wants it.
    bool OfferMerge(const ItemRename& rename);

    /// For an action without an item to act on.
    void TellNothingSelected(Text what) const;

 private:
    [[nodiscard]] bool AsStoredNow(const std::function<bool()>& change);
    [[nodiscard]] bool AgreedToDelete(const QStringList& texts) const;

    Context m_context;
};
