#pragma once

#include "config/Settings.h"

#include <QDialog>

class CCfgStore;
class COptionsModel;
class CPrompt;
class QLineEdit;
class QTreeView;

/// The settings as a tree that a search narrows. Nothing is changed before OK.
class COptionsDialog final : public QDialog {
    Q_OBJECT

 public:
    explicit COptionsDialog(CCfgStore& settings, QWidget* parent = nullptr);
    ~COptionsDialog() override;

    /// Puts the values shown into the settings in memory.
    void accept() override;

 private:
    void BuildTree();
    void Narrow(const QString& words);

    CCfgStore& m_settings;
    COptionsModel* m_model = nullptr;
    QTreeView* m_tree = nullptr;
    QLineEdit* m_search = nullptr;
};

/// Lets the user change the settings; true when accepted. Saved then, and the user told when that fails; the
/// caller refreshes what shows them.
[[nodiscard]] bool RunOptionsDialog(QWidget* parent, CCfgStore& settings, CPrompt& prompt);
