#pragma once

#include <QString>
#include <QStringList>

class CPrompt;
class CProgress;
class CTimerService;
class CVelmarchDoc;
enum class RecordMark : int;
enum class Text : int;
struct Settings;

/// Deletes, copies and marks the selected records: asks first where the settings say so, stops at the first
/// failure (or when the user cancels), and announces what was done in one piece.
class CRecordCommands {
 public:
    struct Context {
        CVelmarchDoc& document;
        CTimerService& timers;
        const Settings& settings;
        CPrompt& prompt;
        CProgress& progress;
    };
    explicit CRecordCommands(const Context& context) : m_context(context) {}

    /// The views drop the records first, then they go one by one with their timers. ask: as confirmDelete
    /// says.
    void Delete(const QStringList& ids, bool ask);
    void Copy(const QStringList& ids);
    /// A record that bears the mark already is left alone. A mark that the mode's records don't know does
    /// nothing.
    void SetMark(RecordMark mark, const QStringList& ids, bool ask);

 private:
    /// The title is the verb of the button that says yes.
    [[nodiscard]] bool Confirmed(Text question, Text title, qsizetype records) const;
    [[nodiscard]] bool MarkOne(RecordMark mark, const QString& id, bool inBatch);
    /// After a batch of which nothing was kept.
    void ReadAnew();

    Context m_context;
};
