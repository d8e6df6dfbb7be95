#pragma once

#include <QToolButton>

/// Shows the period of the list and offers all others in a menu. It sets a period by itself, not by a command
/// number, so each preset is reached here, "last year" too.
class CPeriodButton final : public QToolButton {
    Q_OBJECT

 public:
    explicit CPeriodButton(QWidget* parent = nullptr);

    void ShowPeriod(const QString& name, int preset);
    /// As wide as the longest name of a period, so that nothing moves when another is chosen.
    [[nodiscard]] QSize sizeHint() const override;

 Q_SIGNALS:
    void PresetChosen(int preset);
    void AllChosen();
    void DayWanted();
    void RangeWanted();

 protected:
    void changeEvent(QEvent* event) override;

 private:
    void FillMenu();
    [[nodiscard]] int WidthOf(const QString& text) const;
    [[nodiscard]] int WidestName() const;
    void FitName();

    QString m_name;
    int m_preset = 0;
};
