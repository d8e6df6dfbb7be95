#pragma once

#include <QToolButton>

/// Shows the period of the list and offers all others in a menu. It sets a period by itself, not by a command
/// number, so each preset is reached here, "last year" too.
class CPeriodButton final : public QToolButton {
    Q_OBJECT

 public:
    explicit CPeriodButton(QWidget* parent = nullptr);

    void ShowPeriod(const QString& name, int preset);

 Q_SIGNALS:
    void PresetChosen(int preset);
    void AllChosen();
    void DayWanted();

 private:
    void FillMenu();

    int m_preset = 0;
};
