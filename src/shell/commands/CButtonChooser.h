#pragma once

#include "viewmodel/commands/BarButtons.h"

#include <QDialog>
#include <optional>

class CProfile;
class CTwoLists;
class FieldLabels;
class QListWidget;

/// Which buttons a tool bar has, in which order, with dividing lines between them, chosen in two lists.
class CButtonChooser final : public QDialog {
    Q_OBJECT

 public:
    /// How buttons are called: as in the mode with these names of fields.
    struct Names {
        bool timeMode;
        const FieldLabels& labels;
    };
    /// The profile keeps its size.
    CButtonChooser(Bar bar, const QList<int>& buttons, const Names& names, CProfile& profile,
                   QWidget* parent = nullptr);

    [[nodiscard]] const QList<int>& Buttons() const { return m_choice.OnBar(); }
    void done(int result) override;

 private:
    void Fill(QListWidget& list, const QList<int>& buttons) const;

    ButtonChoice m_choice;
    Names m_names;
    CProfile& m_profile;
    CTwoLists* m_lists;
};

/// The buttons as chosen; nothing when the user cancelled.
[[nodiscard]] std::optional<QList<int>> RunButtonChooser(QWidget* parent, Bar bar, const QList<int>& buttons,
                                                         const CButtonChooser::Names& names,
                                                         CProfile& profile);
