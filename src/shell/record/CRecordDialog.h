#pragma once

#include "records/CTRecord.h"
#include "shell/record/RecordDialogParts.h"

#include <QDialog>
#include <memory>

class CNotesPage;
class CRecordDialogEntry;
class CRecordDialogTime;
class CRecordDraft;
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
    void SetDraft(const CTRecord& record);
    /// The record as edited, once the dialog was accepted.
    [[nodiscard]] const CTRecord& GetDraft() const;

    /// Refused in words, and the dialog stays open, while a typed date or time can't be read.
    void accept() override;
    /// A running timer goes on; one that was stopped here is gone with its count.
    void reject() override;

 private:
    void BuildPages();
    void Wire();
    [[nodiscard]] bool TypingIsReadable();
    void ShowTimes();
    void Refuse(CPickEdit& field, int textId, const QString& why);

    RecordDialogContext m_context;
    std::unique_ptr<CRecordDraft> m_draft;
    QTabWidget* m_pages = nullptr;
    CRecordDialogTime* m_time = nullptr;
    CRecordDialogEntry* m_entry = nullptr;
    CNotesPage* m_notes = nullptr;
    CTimerPanelWidget* m_timer = nullptr;
};

/// Lets the user edit the record; true when accepted, and only then the record is changed.
[[nodiscard]] bool RunRecordDialog(QWidget* parent, CTRecord& record, const RecordDialogContext& context);
