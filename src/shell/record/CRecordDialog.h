#pragma once

#include "app/CTimerService.h"
#include "entry/TimeDraft.h"
#include "shell/record/RecordDialogParts.h"

#include <QDialog>
#include <QTimer>
#include <optional>

class CNotesPage;
class CRecordDialogEntry;
class CRecordDialogTime;
class CTimerPanelWidget;
class QTabWidget;

/// Edits one time record on three pages, Time, Entry and Notes, with its timer in sight on each. It carries
/// what is entered to the rules of entry and shows what they made of it; the store is the caller's affair.
class CRecordDialog final : public QDialog {
    Q_OBJECT

 public:
    CRecordDialog(const RecordDialogContext& context, QWidget* parent = nullptr);
    ~CRecordDialog() override;

    /// Shows a record. Its identity tells which timer is meant; a new record has one already. One without an
    /// identity, a stored default, can't have a timer.
    ///
    /// A new record that has a timer isn't stored yet, so its draft is persisted with the timer: at once when
    /// the timer starts, pauses or stops, and a moment after anything else was entered.
    void SetDraft(const TimeDraft& draft);
    /// As entered; complete once the dialog was accepted.
    [[nodiscard]] const TimeDraft& GetDraft() const { return m_draft; }
    /// Whether the user has accepted or cancelled. A dialog that ends because the program leaves is neither.
    [[nodiscard]] bool IsDecided() const { return m_isDecided; }

    /// Refused in words, and the dialog stays open, while something typed can't be read.
    void accept() override;
    /// Asks where something was entered that would be lost, or where a record that isn't stored has a timer.
    /// A running timer of a stored record goes on; one that was stopped here is gone with its count.
    void reject() override;

 private:
    void BuildPages();
    void Wire();
    void WireNotes();
    [[nodiscard]] bool IsNew() const;
    [[nodiscard]] std::optional<Text> LossIfLeft() const;
    void ShowPage();
    void StampStart();
    [[nodiscard]] bool IsAcceptable();
    void ShowTimes();
    void Refuse(CPickEdit& field, int textId, const QString& why);
    void GoTo(DraftField place);
    void PersistLater();
    void PersistNow();

    RecordDialogContext m_context;
    TimeDraft m_draft;
    QTabWidget* m_pages = nullptr;
    CRecordDialogTime* m_time = nullptr;
    CRecordDialogEntry* m_entry = nullptr;
    CNotesPage* m_notes = nullptr;
    CTimerPanelWidget* m_timer = nullptr;
    QTimer m_persist;  ///< runs while something entered isn't persisted yet
    TimerState m_timerState = TimerState::None;
    bool m_isDecided = false;
};

/// Lets the user edit the record; true when accepted, and only then the record is changed, and untouched, if
/// there is one, by what the timer has counted. untouched: the record without what was entered already.
[[nodiscard]] bool RunRecordDialog(QWidget* parent, CTRecord& record, const RecordDialogContext& context,
                                   CTRecord* untouched = nullptr);
