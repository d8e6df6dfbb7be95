#pragma once

#include "lang/Text.h"
#include "viewmodel/guide/GuideDraft.h"

#include <QDialog>
#include <vector>

class CGuide;
class CGuidePage;
class CProfile;
class CPrompt;
class QHBoxLayout;
class QLabel;
class QPushButton;
class QScrollArea;
class QStackedWidget;
class QVBoxLayout;

/// The first steps on four pages. Nothing is stored before the last one is accepted; who leaves before is
/// asked only where something was entered.
class CGuideDialog final : public QDialog {
    Q_OBJECT

 public:
    /// How it was left.
    enum class Left {
        Stored,
        Skipped,
        NotByUser  ///< the program ends: the guide comes again
    };
    CGuideDialog(CGuide& guide, CPrompt& prompt, CProfile& profile, QWidget* parent);

    [[nodiscard]] Left HowLeft() const { return m_left; }
    /// The next page, or the end.
    void accept() override;
    void reject() override;
    void done(int result) override;

 private:
    void AddHead(QVBoxLayout& column);
    void AddPages();
    QPushButton* AddButton(QHBoxLayout& row, Text text, const QString& objectName);
    void AddButtons(QVBoxLayout& column);
    [[nodiscard]] CGuidePage& Page() const { return *m_pages[m_place]; }
    [[nodiscard]] bool IsLast() const { return m_place + 1 == m_pages.size(); }
    void Open(std::size_t place);
    void Back();
    void Finish(const GuideDraft& draft);
    void Leave();
    [[nodiscard]] GuideDraft Entered() const;

    CGuide& m_guide;
    CPrompt& m_prompt;
    CProfile& m_profile;
    const GuideDraft m_proposal;
    GuideDraft m_draft;
    Left m_left = Left::NotByUser;
    bool m_wasTimerProposed = false;
    std::size_t m_place = 0;
    std::vector<CGuidePage*> m_pages;
    QLabel* m_title;
    QLabel* m_hint;
    QLabel* m_count;
    QScrollArea* m_scroll;
    QStackedWidget* m_stack;
    QPushButton* m_skip = nullptr;
    QPushButton* m_back = nullptr;
    QPushButton* m_next = nullptr;
};

/// Runs the guide. True when it has stored something.
[[nodiscard]] bool RunGuideDialog(QWidget* parent, CGuide& guide, CPrompt& prompt, CProfile& profile);
