#pragma once

#include <QDialog>

class CGuideText;
class CProfile;
class QHBoxLayout;
class QLabel;
class QLineEdit;
class QListWidget;

/// The user guide as it comes with the program, with its contents beside it and a search. It stays open
/// beside the work, and goes with the window that it belongs to.
class CUserGuide final : public QDialog {
    Q_OBJECT

 public:
    /// The profile keeps its size.
    explicit CUserGuide(CProfile& profile, QWidget* parent = nullptr);

    void done(int result) override;
    [[nodiscard]] bool eventFilter(QObject* watched, QEvent* event) override;

 private:
    [[nodiscard]] QListWidget* MakeContents();
    [[nodiscard]] QHBoxLayout* MakeSearch();
    void ShowGuide();
    void FillContents();
    void GoTo(int chapter);
    void Find();

    CProfile& m_profile;
    CGuideText* m_text;
    QListWidget* m_contents = nullptr;
    QLineEdit* m_words = nullptr;
    QLabel* m_notFound = nullptr;
};
