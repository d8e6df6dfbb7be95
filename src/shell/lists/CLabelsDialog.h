#pragma once

#include "lists/LabelSets.h"
#include "viewmodel/fields/CLabelModel.h"

#include <QDialog>
#include <map>

class CLabelView;
class CMnemonics;
class CPulldownCatalogue;
class CProfile;
class QHBoxLayout;
class QPushButton;
struct LabelQuestion;

/// The names of the fields of both kinds of records. A name is stored as it is entered, and stays so however
/// the dialog ends; ready-made sets of names, and none at all, show first what they would change.
class CLabelsDialog final : public QDialog {
    Q_OBJECT

 public:
    /// Both must outlive the dialog, the catalogue with its lists loaded.
    CLabelsDialog(CPulldownCatalogue& catalogue, CProfile& profile, QWidget* parent = nullptr);

    /// Whether any name was stored.
    [[nodiscard]] bool IsChanged() const { return m_editor.IsChanged(); }
    void done(int result) override;

 private:
    struct SetRow;
    CLabelView* AddTable(QHBoxLayout& tables, CLabelModel& model, const QString& name);
    QPushButton* AddSet(QHBoxLayout& row, const SetRow& set, CMnemonics& mnemonics);
    void Offer(const SetRow& set);

    CPulldownCatalogue& m_catalogue;
    CProfile& m_profile;
    CLabelEditor m_editor;
    CLabelModel m_times, m_expenses;
};

/// Lets the user name the fields. True when what shows their names must be told: after OK, and when a name
/// was stored before Cancel.
[[nodiscard]] bool RunLabelsDialog(QWidget* parent, CPulldownCatalogue& catalogue, CProfile& profile);
