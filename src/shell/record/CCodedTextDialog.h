#pragma once

#include "shell/record/RecordDialogParts.h"

#include <QDialog>
#include <QStringList>
#include <array>

class CElidedLabel;
class CItemCombo;

/// The texts of the four items of an expense, from the first.
using CodedItems = std::array<QString, 4>;

/// Edits the first three items of an expense in two parts, a code and a name, and offers the kinds of payment
/// for the fourth. A text that isn't coded opens with empty parts, and stays while they are; the dialog says
/// which texts that are.
class CCodedTextDialog final : public QDialog {
    Q_OBJECT

 public:
    explicit CCodedTextDialog(const RecordDialogContext& context, QWidget* parent = nullptr);

    void SetDraft(const CodedItems& items);
    [[nodiscard]] CodedItems GetDraft() const;

    void done(int result) override;

 private:
    /// The fields of one coded item.
    struct Parts {
        QLineEdit* code = nullptr;
        QLineEdit* name = nullptr;
    };
    void BuildRows(QGridLayout& form, CMnemonics& mnemonics);
    [[nodiscard]] Parts AddParts(QGridLayout& form, int item, const QString& label, CMnemonics& mnemonics);
    void AddPayment(QGridLayout& form, const QString& label, CMnemonics& mnemonics);
    static void ShareRoom(const Parts& parts);

    RecordDialogContext m_context;
    std::array<Parts, 3> m_parts;
    CodedItems m_given;
    CItemCombo* m_payment = nullptr;
    CElidedLabel* m_note = nullptr;
};

/// Lets the user edit the texts; true when accepted, and only then they are changed.
[[nodiscard]] bool RunCodedTextDialog(QWidget* parent, CodedItems& items, const RecordDialogContext& context);
