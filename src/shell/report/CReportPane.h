#pragma once

#include <QWidget>

class CProfile;
class CReportFindBar;
class CReportView;
class CSumChooser;
class QLabel;

/// The report that takes the place of the record list: its page, below it the bar in which texts are looked
/// for, and a line that says what happened last, as the status bar is hidden meanwhile.
class CReportPane final : public QWidget {
    Q_OBJECT

 public:
    /// The profile keeps whether wide pages shrink.
    explicit CReportPane(CProfile& profile, QWidget* parent = nullptr);

    void ShowPage(const QString& page);
    /// The page is given up; nothing is shown.
    void Clear();
    [[nodiscard]] CReportView& View() { return *m_view; }
    /// The row above the page in which the sum of the chart is chosen.
    [[nodiscard]] CSumChooser& Sums() { return *m_sums; }
    [[nodiscard]] bool HasSelection() const;
    /// Stays until something else is said, or another page shown.
    void Say(const QString& what);
    void OpenFind();
    [[nodiscard]] bool Shrinks() const { return m_shrinks; }
    /// Remembered at once; the page stays as it was made.
    void ToggleShrink();

 Q_SIGNALS:
    /// What is selected, and with it which commands are offered.
    void StateChanged();

 private:
    void Find(bool backwards, bool fromHere);

    CProfile& m_profile;
    bool m_shrinks;
    CSumChooser* m_sums;
    CReportView* m_view;
    CReportFindBar* m_find;
    QLabel* m_note;
};
