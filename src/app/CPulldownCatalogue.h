#pragma once

#include "app/CommandTexts.h"
#include "app/DependencySet.h"
#include "app/DependencyStore.h"
#include "app/DependencyTree.h"
#include "app/FieldLabels.h"
#include "app/PulldownLists.h"
#include "records/CRecordStore.h"

#include <QHash>
#include <QString>
#include <QStringList>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <vector>

class CPrompt;
struct Settings;

/// Whether a text may become an item of a list. The numbers are fixed.
enum class NewItem : int { Refused = 5, Acceptable = 6 };

/// A text for one of the lists.
struct ListText {
    int list;
    QString text;
};

/// All pick lists with their items, the dependencies between items, and the user's names of fields, in
/// memory; every change is written to the store at once, and memory follows when it is durable: false means
/// that neither has changed. What goes wrong is told to the user. Pointers to items stay good until the next
/// load, those to deleted ones as well.
class CPulldownCatalogue {
 public:
    /// Items in the order of loading and adding.
    using ItemList = PulldownLists::ItemList;
    /// What the catalogue needs from outside. All must outlive it.
    struct Context {
        CVOSrcMgr& manager;
        CPrompt& prompt;
        const Settings& settings;
        QString dataSourceName;
    };
    explicit CPulldownCatalogue(const Context& context);
    ~CPulldownCatalogue();
    CPulldownCatalogue(const CPulldownCatalogue&) = delete;
    CPulldownCatalogue& operator=(const CPulldownCatalogue&) = delete;

    /// Everything anew: lists, both trees, names of fields, texts of commands. The first failure ends it,
    /// after the user was told, with what came before in place.
    bool Load();
    /// For a program that needs no more than a few lists (the console): only the items of these. Trees and
    /// names stay empty. Deleting an item loads everything, as it may stand in a tree.
    bool LoadLists(const QList<int>& lists);
    /// Whether another program has written to the store since the last load. Also after a load that failed.
    [[nodiscard]] bool IsStale();
    /// Reads one set of dependencies; a store that has it in the old form only is converted. A set that is
    /// damaged is asked about; it is empty then, and what is stored stays until the user agrees to start
    /// over. True after either answer; false when the store can't be read, or the items aren't all loaded.
    bool LoadTree(DependencySet set);
    /// False, and the store as it was, on failure, and for a set that wasn't read, or could not be and wasn't
    /// given up.
    [[nodiscard]] bool SaveTree(DependencySet set);
    [[nodiscard]] DependencyTree& Tree(DependencySet set) { return PlaceOf(set).tree; }
    [[nodiscard]] const DependencyTree& Tree(DependencySet set) const {
        return set == DependencySet::Time ? m_tree1.tree : m_tree2.tree;
    }
    /// What is stored of the set couldn't be read and hasn't been given up; the tree is empty meanwhile.
    [[nodiscard]] bool IsDamaged(DependencySet set) const {
        return (set == DependencySet::Time ? m_tree1 : m_tree2).state == TreePlace::State::Damaged;
    }

    /// Null for a list that isn't known.
    [[nodiscard]] const ItemList* GetList(int list) const { return m_lists.Get(list); }
    /// The texts of a list in its order; empty for an unknown list.
    [[nodiscard]] QStringList Texts(int list) const;
    /// By exact comparison of what the item shows; the first of several. Constant time.
    [[nodiscard]] const CPRecord* FindItem(int list, const QString& text) const {
        return m_lists.Find(list, text);
    }
    [[nodiscard]] bool HasItem(int list, const QString& text) const {
        return FindItem(list, text) != nullptr;
    }
    [[nodiscard]] const CPRecord* FindById(const QString& id) const { return m_lists.FindById(id); }
    /// Refused: empty, begins like a coded text or a kind of payment, no number in a list of numbers, or
    /// there already.
    [[nodiscard]] NewItem CheckNewItem(int list, const QString& text) const;

    /// ask: the user agrees first where confirmAddListItem is on.
    [[nodiscard]] bool AddItem(int list, const QString& text, bool ask);
    [[nodiscard]] bool RenameItem(int list, const QString& oldText, const QString& newText);
    /// The same for a caller that tells the user itself that the item stays as it was; what the store has to
    /// say about it is told before.
    [[nodiscard]] bool TryRenameItem(int list, const QString& oldText, const QString& newText);
    /// The item goes from its list and from both trees, with all that stood below it there.
    [[nodiscard]] bool DeleteItem(int list, const QString& text);
    /// All of them or none; those that aren't there are passed over.
    [[nodiscard]] bool DeleteItems(int list, const QStringList& texts);
    [[nodiscard]] bool DeleteAllItems(int list);
    /// Makes one item of two: the first goes, and its places in both trees, with all below them, are the
    /// other's.
    [[nodiscard]] bool MergeItems(int list, const QString& goneText, const QString& keptText);

    // Items that are stored together with something else, in its transaction: memory follows by the second
    // call, when that is durable.

    /// Items that stand in the open transaction.
    using NewItems = std::vector<std::unique_ptr<CPRecord>>;
    /// Those of the texts that would become items of their lists, loaded before: a list refuses a text that
    /// it holds already, for example, and takes one that comes twice once.
    [[nodiscard]] std::vector<ListText> NewAmong(const std::vector<ListText>& texts) const;
    /// Texts that their list refuses are passed over. Loads the lists that are concerned where not everything
    /// is loaded. Nothing when one can't be written.
    [[nodiscard]] std::optional<NewItems> PutItems(const std::vector<ListText>& texts);
    void TakeUp(NewItems items);
    /// False when there is no such item, or it can't take the new text.
    [[nodiscard]] bool PutRenamed(int list, const QString& oldText, const QString& newText);
    void TakeUpRenamed(int list, const QString& oldText, const QString& newText);
    /// False when one of the two isn't there, when they are the same one, and before everything is loaded.
    [[nodiscard]] bool PutMerged(int list, const QString& goneText, const QString& keptText);
    void TakeUpMerged(int list, const QString& goneText, const QString& keptText);

    /// Gives fields names, each the only item of its list then; an empty one takes the former away. All as
    /// one change: with a failure, of which the user is told, all names are as they were.
    [[nodiscard]] bool SetNames(const std::map<int, QString>& names);
    /// Fills the names of fields from their lists, and then the texts of commands, some of which name a
    /// field.
    void FillLabels();
    [[nodiscard]] const FieldLabels& Labels() const { return m_labels; }
    /// Null for a command without texts here, and before the names of fields were filled.
    [[nodiscard]] const CommandTexts* TextsOf(int command) const;

 private:
    /// How much of the items is in memory.
    enum class Extent { Incomplete, SomeLists, Everything };
    struct TreePlace {
        /// Damaged: not given up, so what is stored stays.
        enum class State { Unread, Sound, Damaged };
        DependencyTree tree;
        State state = State::Unread;
    };
    enum class Deleted { No, Done, TreesRefuse };

    void Forget();
    [[nodiscard]] QString StoreVersion();
    [[nodiscard]] bool LoadItems(const QString& statement);
    enum class LoadEnd { Complete, Failed, Stopped };
    [[nodiscard]] LoadEnd LoadBulk(const QString& statement);
    [[nodiscard]] LoadEnd LoadRowByRow(const QString& statement);
    [[nodiscard]] bool Keep(std::unique_ptr<CPRecord> item);
    void AskAboutDamage(DependencySet set);

    [[nodiscard]] bool Agreed(const QString& text) const;
    [[nodiscard]] std::unique_ptr<CPRecord> PutItem(int list, const QString& text);
    [[nodiscard]] CPRecord* FindShown(int list, const QString& text) const;
    enum class Renaming { Done, NotBegun, Failed };
    [[nodiscard]] Renaming StoreRenamed(int list, const QString& oldText, const QString& newText);
    [[nodiscard]] bool StoreValue(const CPRecord& item, const CPRecord& value);
    [[nodiscard]] bool TreesAreKnown();
    [[nodiscard]] QStringList NamesOfChange(const std::map<int, QString>& names) const;
    [[nodiscard]] bool StoreNames(const std::map<int, QString>& names,
                                  std::vector<std::unique_ptr<CPRecord>>& items);
    [[nodiscard]] Deleted DeleteStored(const std::function<bool()>& deleteRows,
                                       const DependencyTree::ItemTest& isGone);
    [[nodiscard]] bool StoreMerged(int list, const QString& goneText, const QString& keptText);
    [[nodiscard]] bool HoldsItem(DependencySet set, const CPRecord& item) const;
    [[nodiscard]] TreePlace& PlaceOf(DependencySet set) {
        return set == DependencySet::Time ? m_tree1 : m_tree2;
    }
    bool Warn(Text id, const QString& text) const;
    bool Warn(Text id) const;
    bool WarnItemsStay() const;

    CPrompt& m_prompt;
    const Settings& m_settings;
    CRecordStore m_store;
    DependencyStore m_dependencies;
    PulldownLists m_lists;
    Extent m_extent = Extent::Incomplete;
    QString m_version;  ///< of the store, before what is in memory was read
    TreePlace m_tree1, m_tree2;
    FieldLabels m_labels;
    QHash<int, CommandTexts> m_commandTexts;
};

/// Process-wide name for the catalogue in use; null before the application has one.
extern CPulldownCatalogue* thePulldownCatalogue;
