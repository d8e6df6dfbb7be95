#pragma once

#include "app/DependencyTree.h"
#include "app/FieldLabels.h"
#include "app/ListTable.h"
#include "records/CPRecord.h"
#include "records/CRecordStore.h"

#include <QHash>
#include <QString>
#include <QStringList>
#include <memory>
#include <optional>
#include <vector>

class CCfgStore;
class CPrompt;
class CVelmarchDoc;
struct Settings;

/// Whether a text may become an item of a list. The numbers are fixed.
enum class NewItem : int { Refused = 5, Acceptable = 6 };

/// The two sets of dependencies between list items.
enum class DependencySet : int { Time = 55, Expense = 66 };
[[nodiscard]] constexpr DependencySet DependencySetOf(RecordKind kind) {
    return kind == RecordKind::Time ? DependencySet::Time : DependencySet::Expense;
}

/// The two texts of a command: what the status bar says while it is pointed at, and its short tool tip.
struct CommandTexts {
    QString status;
    QString tip;
};

/// All pick lists with their items, the dependencies between items, and the user's names of fields, in
/// memory; every change is written to the store at once. What goes wrong is told to the user.
class CPulldownCatalogue {
 public:
    /// Items in the order of loading and adding.
    using ItemList = std::vector<CPRecord*>;
    /// What the catalogue needs from outside. All must outlive it.
    struct Surroundings {
        CVOSrcMgr& manager;
        CVelmarchDoc& document;  ///< carries renamed items into the records of the mode in use
        CPrompt& prompt;
        const Settings& settings;
        QString dataSourceName;
    };
    explicit CPulldownCatalogue(const Surroundings& around);
    ~CPulldownCatalogue();
    CPulldownCatalogue(const CPulldownCatalogue&) = delete;
    CPulldownCatalogue& operator=(const CPulldownCatalogue&) = delete;

    /// Everything anew: lists, both trees, names of fields, texts of commands. The first failure ends it,
    /// after the user was told, with what came before in place.
    bool Load();
    /// For a program that needs no more than a few lists (the console): only the items of these. Trees and
    /// names stay empty.
    bool LoadLists(std::initializer_list<int> lists);
    /// Reads one set of dependencies; a store that has it in the old form only is converted. A set that is
    /// damaged is asked about; it is empty then, and what is stored stays until the user agrees to start
    /// over.
    bool LoadTree(DependencySet set);
    /// False, and the store as it was, on failure, and for a set that could not be read and wasn't given up.
    [[nodiscard]] bool SaveTree(DependencySet set);
    [[nodiscard]] DependencyTree& Tree(DependencySet set);
    [[nodiscard]] const DependencyTree& Tree(DependencySet set) const;

    /// Null for a list that isn't known.
    [[nodiscard]] const ItemList* GetList(int list) const;
    /// The texts of a list in its order; empty for an unknown list.
    [[nodiscard]] QStringList Texts(int list) const;
    /// By exact comparison of what the item shows; the first of several. Constant time.
    [[nodiscard]] const CPRecord* FindItem(int list, const QString& text) const;
    [[nodiscard]] bool HasItem(int list, const QString& text) const {
        return FindItem(list, text) != nullptr;
    }
    [[nodiscard]] const CPRecord* FindById(const QString& id) const;
    /// Refused: empty, begins like a coded text or a kind of payment, no number in a list of numbers, or
    /// there already.
    [[nodiscard]] NewItem CheckNewItem(int list, const QString& text) const;

    /// ask: the user agrees first where confirmAddListItem is on.
    bool AddItem(int list, const QString& text, bool ask);
    bool RenameItem(int list, const QString& oldText, const QString& newText);
    /// The item goes from its list and from both trees, with all that stood below it there.
    bool DeleteItem(int list, const QString& text);
    bool DeleteAllItems(int list);
    /// Carries the new text of an item into the time and expense records that hold the old one, as one
    /// change. Always true; count says how many took it.
    bool ReplaceInRecords(int& count, int list, const QString& oldText, const QString& newText);

    /// Fills the names of fields from their lists.
    void FillLabels();
    [[nodiscard]] const FieldLabels& Labels() const { return m_labels; }
    /// Null for a command without texts here.
    [[nodiscard]] const CommandTexts* TextsOf(int command) const;

 private:
    // The owner of this file completes the private part.
    FieldLabels m_labels;
};

/// Process-wide name for the catalogue in use; null before the application has one.
extern CPulldownCatalogue* thePulldownCatalogue;
