#pragma once

#include <QDialog>
#include <vector>

class CCfgStore;
class CColumnNames;
class COptionsModel;
class COptionsTree;
class CPrompt;
class QLabel;
class QLineEdit;
class QSortFilterProxyModel;

/// The settings as a tree that a search narrows. Nothing is changed before OK.
class COptionsDialog final : public QDialog {
    Q_OBJECT

 public:
    /// names: what the fields of records are called; null: as by default.
    explicit COptionsDialog(CCfgStore& settings, const CColumnNames* names = nullptr,
                            QWidget* parent = nullptr);
    ~COptionsDialog() override;

    /// Puts the values shown into the settings in memory.
    void accept() override;
    void done(int result) override;
    /// Indices of the settings that were changed.
    [[nodiscard]] const std::vector<int>& Changed() const { return m_changed; }

 protected:
    void keyPressEvent(QKeyEvent* event) override;

 private:
    void BuildTree();
    void ShowAll();
    void Narrow(const QString& words);

    CCfgStore& m_settings;
    COptionsModel* m_model;
    QSortFilterProxyModel* m_proxy;
    COptionsTree* m_tree = nullptr;
    QLineEdit* m_search = nullptr;
    QLabel* m_nothing = nullptr;
    std::vector<int> m_changed;
};

/// Lets the user change the settings; true when accepted. Saved then, and the user told when that fails; the
/// caller refreshes what shows them.
[[nodiscard]] bool RunOptionsDialog(QWidget* parent, CCfgStore& settings, CPrompt& prompt,
                                    const CColumnNames* names = nullptr);
