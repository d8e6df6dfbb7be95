#pragma once

#include "app/CPulldownCatalogue.h"
#include "changes/Outcome.h"

#include <QString>
#include <QStringList>
#include <functional>
#include <optional>
#include <vector>

class CEnteredItems;
class CItemCarrier;
class CProgress;
class CPrompt;
class CTimersOfRecords;
class CVelmarchDoc;
class CVORec;
enum class Hint : int;
enum class Hold;
enum class Identity;
enum class RecordKind : int;
enum class RecordMark : int;
struct RecordQuestion;
struct Settings;

/// Records that are added together, one after the other, as they come from outside.
class CRecordSource {
 public:
    enum class Next { Record, End, Failed /** the source knows why */ };

    virtual ~CRecordSource() = default;
    [[nodiscard]] virtual Next Read() = 0;
    /// The one that was read last, once.
    [[nodiscard]] virtual std::unique_ptr<CVORec> TakeRecord() = 0;
    /// It was written, under this identity. None of them is stored before all are.
    virtual void NoteAdded(const QString& id) = 0;
    /// After the last: what goes into the pick lists with them, as far as the lists take it.
    [[nodiscard]] virtual std::vector<ListText> ListTexts() const = 0;
    [[nodiscard]] virtual int Count() const = 0;
    /// What is done, in words.
    [[nodiscard]] virtual QString Progress() const = 0;
};

/// Whether the user is asked before records are changed.
enum class Ask { BySetting, Always, No };

/// The one way in which records change: added, edited, deleted, copied, marked, and given the new text of a
/// list item. Each of these is one transaction; the records are durable before their timers go and before the
/// views are told. A change of several records stops at the first failure, or when the user cancels. A commit
/// that fails leaves nothing: memory shows what is stored, and the user was told.
class CRecordChanges {
 public:
    /// What becomes of the records before the one that failed.
    enum class Partial {
        Kept,   ///< they are changed, the others aren't
        Undone  ///< all or nothing
    };
    struct Context {
        CVelmarchDoc& document;
        CTimersOfRecords& timers;
        CPulldownCatalogue& catalogue;
        CEnteredItems& entered;  ///< stored with the next record that is added or edited
        const Settings& settings;
        CPrompt& prompt;
        CProgress& progress;
        Partial partial;
        CItemCarrier* carrier = nullptr;  ///< takes the new text of an item over as well; null: nobody does
    };
    explicit CRecordChanges(const Context& context) : m_context(context) {}

    // The texts that were entered with the record go into the pick lists together with it, as far as the
    // lists take them.

    [[nodiscard]] Outcome Add(const CVORec& record, Identity identity);
    /// id: the identity that the record is stored under.
    [[nodiscard]] Outcome Edit(const CVORec& record, const QString& id);
    /// The views drop the records first, then they go one by one, and with the commit their timers.
    [[nodiscard]] Outcome Delete(RecordKind kind, const QStringList& ids, Ask ask);
    /// All under new identities, or none of them: not when one can't be stored, nor when the user cancels.
    /// The outcome has the identities of records that are held; a million of them would take their room.
    [[nodiscard]] Outcome AddAll(CRecordSource& source, Hold hold);
    /// Items of the pick lists, as far as the lists take them: all of them or none. Says how many were new.
    [[nodiscard]] Outcome AddItems(const std::vector<ListText>& texts, int& added);
    /// The outcome has the identities of the copies.
    [[nodiscard]] Outcome Copy(RecordKind kind, const QStringList& ids);
    /// A record that bears the mark already is left alone, and so is one that isn't there any more. A mark
    /// that records of the kind don't know does nothing.
    [[nodiscard]] Outcome SetMark(RecordKind kind, RecordMark mark, const QStringList& ids, Ask ask);
    /// Carries the new text of a list item into the times and expenses that hold the old one: all of them or
    /// none.
    [[nodiscard]] Outcome ReplaceInRecords(int list, const QString& oldText, const QString& newText);
    /// The same with the item itself, which must be loaded: item and records, or neither.
    [[nodiscard]] Outcome RenameInRecords(int list, const QString& oldText, const QString& newText);
    /// Makes one item of two, all of which must be loaded: records and dependencies take the second one, and
    /// the first goes from its list. All of it or nothing.
    [[nodiscard]] Outcome MergeItems(int list, const QString& goneText, const QString& keptText);

 private:
    /// A change of several records, one after the other.
    struct Batch {
        QStringList ids;
        QString progress;                             ///< what is done, in words
        Hint hint;                                    ///< what the views are told afterwards
        std::function<void()> prepare;                ///< before the first of them
        std::function<bool(const QString& id)> step;  ///< false: it could not be done, which was told
    };

    [[nodiscard]] bool Confirmed(const RecordQuestion& question) const;
    void NoteTimer(const QString& id, const QByteArray& image);
    void Carry(int list, const QString& oldText, const QString& newText, Outcome& outcome);
    [[nodiscard]] bool MarkOne(RecordKind kind, RecordMark mark, const QString& id);

    [[nodiscard]] Outcome AddInTransaction(CRecordSource& source, Hold hold,
                                           std::optional<CPulldownCatalogue::NewItems>& items);
    void WalkAndStore(CRecordSource& source, Hold hold, Outcome& outcome);
    void WalkSource(CRecordSource& source, Hold hold, Outcome& outcome);
    [[nodiscard]] Outcome Run(const Batch& batch);
    [[nodiscard]] Outcome RunInTransaction(const Batch& batch);
    void Walk(const Batch& batch, Outcome& outcome);
    static void Commit(StoreTransaction& transaction, Outcome& outcome);
    void ShowStored(RecordKind kind, const QString& id);
    [[nodiscard]] Outcome ChangeWithItems(const std::function<Outcome()>& change);

    Context m_context;
};
