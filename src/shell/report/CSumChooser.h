#pragma once

#include <QWidget>

class QComboBox;

/// The row above a report in which the sum of its chart is chosen. It is there only while there is a choice.
class CSumChooser final : public QWidget {
    Q_OBJECT

 public:
    explicit CSumChooser(QWidget* parent = nullptr);

    /// What can be chosen, and what is. With fewer than two the row is hidden.
    void ShowSums(const QStringList& sums, std::size_t chosen);

 Q_SIGNALS:
    /// By the user.
    void SumChosen(std::size_t sum);

 private:
    QComboBox* m_sums;
};
