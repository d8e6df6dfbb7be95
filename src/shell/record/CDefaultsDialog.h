#pragma once

#include "entry/NamedDefaults.h"
#include "shell/record/RecordDialogParts.h"

#include <QDialog>
#include <memory>

class CVORec;
class QPushButton;
class QTreeWidget;
class QVBoxLayout;

/// The stored defaults of one kind of record: to manage them, or to choose the one that a new record starts
/// from. The last row is the empty record.
class CDefaultsDialog final : public QDialog {
    Q_OBJECT

 public:
    /// working: its kind tells which defaults; it takes the chosen one, and stays as it is otherwise.
    CDefaultsDialog(CVORec& working, bool isChoosing, const RecordDialogContext& context,
                    QWidget* parent = nullptr);
    ~CDefaultsDialog() override;

    /// Takes the selected row. Without one, and when that default can't be read, the dialog stays open.
    void accept() override;
    void done(int result) override;

 private:
    [[nodiscard]] bool EditDefault(CVORec& record);
    [[nodiscard]] NamedDefaultsActions Actions(const QString& title);
    void Build();
    void BuildList(QVBoxLayout& column);
    [[nodiscard]] QVBoxLayout* BuildActions(CMnemonics& mnemonics);
    QPushButton* AddAction(QVBoxLayout& column, Text caption, const char* name,
                           void (CDefaultsDialog::*action)(), CMnemonics& mnemonics);
    void BuildEnd(QVBoxLayout& column, CMnemonics& mnemonics);
    void New();
    void Edit();
    void Delete();
    void Rename();
    void Fill();
    void Select(const QString& name);
    [[nodiscard]] QString Selected() const;
    void ShowState();

    RecordDialogContext m_context;
    CVORec& m_working;
    bool m_isChoosing;
    NamedDefaults m_defaults;
    std::unique_ptr<CVORec> m_scratch;  ///< what New and Edit work on
    QTreeWidget* m_list = nullptr;
    QLabel* m_note = nullptr;
    QPushButton* m_edit = nullptr;
    QList<QPushButton*> m_ofRow;     ///< buttons that need a selected row
    QList<QPushButton*> m_ofStored;  ///< buttons that need a selected default; the empty record is none
};

/// Lets the user manage the stored defaults, or with isChoosing choose one into the record: true then. The
/// setting clock24 is afterwards what it was, whatever was done to it meanwhile.
[[nodiscard]] bool RunDefaultsDialog(QWidget* parent, CVORec& working, bool isChoosing,
                                     const RecordDialogContext& context);
