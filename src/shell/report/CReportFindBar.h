#pragma once

#include "shell/controls/CFindBar.h"

class QCheckBox;

/// The bar below a report in which a text is looked for: while it is typed, and from place to place by
/// Return, F3 and with Shift backwards. Escape closes it.
class CReportFindBar final : public CFindBar {
    Q_OBJECT

 public:
    explicit CReportFindBar(QWidget* parent = nullptr);

    [[nodiscard]] bool MatchesCase() const;
    /// number: of the place that is shown, from 1; 0 with a count of 0 for none.
    void ShowPlaces(int number, int count);

 Q_SIGNALS:
    /// The text or how it is compared was changed: the first place from where the report stands.
    void Changed();
    void NextWanted(bool backwards);
    void Closed();

 protected:
    void keyPressEvent(QKeyEvent* event) override;

 private:
    void Close();

    QCheckBox* m_case = nullptr;
};
