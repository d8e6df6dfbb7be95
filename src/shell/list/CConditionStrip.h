#pragma once

#include <QStringList>
#include <QWidget>

class CFlowLayout;

/// The conditions that narrow the list, by name, each a button with a cross that ends it. Hidden while there
/// are none; on several rows where one is too short.
class CConditionStrip final : public QWidget {
    Q_OBJECT

 public:
    explicit CConditionStrip(QWidget* parent = nullptr);

    void ShowConditions(const QStringList& words);

 Q_SIGNALS:
    /// place: of the condition among those shown.
    void EndWanted(int place);

 private:
    void Add(const QString& words, int place);

    CFlowLayout* m_row;
    QStringList m_words;
};
