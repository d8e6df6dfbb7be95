#pragma once

#include "shell/controls/CItemFields.h"

#include <QWidget>
#include <array>

class CItemCombo;
class CMnemonics;
class CNotesEdit;
class QGridLayout;
class TimeDraft;
struct RecordDialogContext;

/// What a time record is about, beside its times: its first two items and its notes. The pages of the items
/// and of the notes have the same fields; what is entered here stands there, and the other way round.
class CRecordDialogWork final : public QWidget {
    Q_OBJECT

 public:
    CRecordDialogWork(TimeDraft& draft, const RecordDialogContext& context, CMnemonics& mnemonics);

    /// What the fields are called; their mnemonics are planned together with those of the page.
    [[nodiscard]] static QStringList Labels(const RecordDialogContext& context);
    /// Shows what was entered elsewhere.
    void ShowItems();
    void ShowNotes();

 Q_SIGNALS:
    void ItemEntered();
    void NotesEntered();

 private:
    void AddItems(QGridLayout& form, const RecordDialogContext& context, CMnemonics& mnemonics);
    void AddNotes(QGridLayout& form, const RecordDialogContext& context, CMnemonics& mnemonics);

    TimeDraft& m_draft;
    CItemFields m_fields;
    std::array<CItemCombo*, 2> m_items{};
    CNotesEdit* m_notes = nullptr;
};
