#pragma once

#include <QDialog>
#include <QStringList>
#include <functional>

class CProfile;
class CSearchList;
class QRadioButton;

/// Chooses the column that sorts, and the direction. A column that is picked proposes the direction that a
/// click on its header would give.
class CSortDialog final : public QDialog {
    Q_OBJECT

 public:
    struct Choice {
        QStringList columns;
        int present = -1;  ///< the column that sorts now, -1 for none
        std::function<bool(int column)> isAscendingByHeader;
    };
    /// The profile keeps its size.
    CSortDialog(Choice choice, CProfile& profile, QWidget* parent = nullptr);

    /// The column picked, -1 for none.
    [[nodiscard]] int Picked() const;
    [[nodiscard]] bool IsAscending() const;
    void done(int result) override;

 private:
    [[nodiscard]] QWidget* MakeDirections(class CMnemonics& mnemonics);
    void Propose(int column);

    Choice m_choice;
    CProfile& m_profile;
    CSearchList* m_list;
    QRadioButton* m_ascending = nullptr;
    QRadioButton* m_descending = nullptr;
};
