#pragma once

#include "config/ColumnTable.h"

#include <QDialog>

class CAppearancePage;
class CCfgStore;
class CColumnPage;
class CPrompt;

/// Chooses the columns of one half: those of the record list, with its look on a second page, or the levels
/// of the data tree. Nothing is changed before OK.
class CColumnsDialog final : public QDialog {
    Q_OBJECT

 public:
    enum class Of { List, Tree };
    CColumnsDialog(Of of, ColumnHalf half, CCfgStore& settings, QWidget* parent = nullptr);

    /// Puts what is shown into the settings in memory.
    void accept() override;
    void done(int result) override;

 private:
    [[nodiscard]] QWidget* ListPages();

    Of m_of;
    ColumnHalf m_half;
    CCfgStore& m_settings;
    CColumnPage* m_columns;
    CAppearancePage* m_look = nullptr;
};

/// True when the user has changed and accepted; saved then, and the user told when that fails. The caller
/// rebuilds what shows the columns.
[[nodiscard]] bool RunColumnsDialog(QWidget* parent, CColumnsDialog::Of of, ColumnHalf half,
                                    CCfgStore& settings, CPrompt& prompt);
