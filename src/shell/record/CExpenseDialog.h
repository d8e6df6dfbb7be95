#pragma once

#include "entry/ExpenseDraft.h"
#include "shell/controls/CItemFields.h"
#include "shell/record/RecordDialogParts.h"

#include <QDialog>

class CExpenseItemsPage;
class CExpenseMoneyPage;
class CNotesPage;
class QTabWidget;

/// Edits one expense on three pages, Money, Items and Notes. It carries what is entered to the rules of
/// entry; the store is the caller's affair.
class CExpenseDialog final : public QDialog {
    Q_OBJECT

 public:
    explicit CExpenseDialog(const RecordDialogContext& context, QWidget* parent = nullptr);
    ~CExpenseDialog() override;

    void SetDraft(const ExpenseDraft& draft);
    /// As entered; complete once the dialog was accepted.
    [[nodiscard]] const ExpenseDraft& GetDraft() const { return m_draft; }

    /// Refused in words, and the dialog stays open, while the date is missing or something typed can't be
    /// read.
    void accept() override;
    /// Asks where something was entered that would be lost.
    void reject() override;
    void done(int result) override;

 private:
    void BuildPages();
    [[nodiscard]] bool IsAcceptable();
    [[nodiscard]] std::optional<Text> LossIfLeft() const;
    void GoTo(DraftField place);
    void OpenOdometer();

    RecordDialogContext m_context;
    ExpenseDraft m_draft;
    CItemFields m_fields;
    QTabWidget* m_pages = nullptr;
    CExpenseMoneyPage* m_money = nullptr;
    CExpenseItemsPage* m_items = nullptr;
    CNotesPage* m_notes = nullptr;
};

/// Lets the user edit the expense; true when accepted, and only then the record is changed. untouched: the
/// record without what was entered already, if it is another.
[[nodiscard]] bool RunExpenseDialog(QWidget* parent, CERecord& record, const RecordDialogContext& context,
                                    const CERecord* untouched = nullptr);
