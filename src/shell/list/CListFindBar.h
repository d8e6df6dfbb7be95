#pragma once

#include <QWidget>

class QCheckBox;
class QLabel;
class QLineEdit;

/// The bar above the record list in which words are looked for while they are typed. Escape closes it, Return
/// and the arrow down go to the records found.
class CListFindBar final : public QWidget {
    Q_OBJECT

 public:
    explicit CListFindBar(QWidget* parent = nullptr);

    /// Shows the bar with its words selected, for the next ones to be typed over.
    void Open();
    void Close();
    [[nodiscard]] QString Words() const;
    [[nodiscard]] bool IsEverywhere() const;
    void SetEverywhere(bool isEverywhere);
    /// How many records were found; nothing is said while there are no words.
    void ShowFound(int count);
    /// Whether the keyboard is in the bar.
    [[nodiscard]] bool HasKeyboard() const;

 Q_SIGNALS:
    void WordsChanged();
    void EverywhereChanged(bool isEverywhere);
    void ListWanted();
    void CloseWanted();

 protected:
    [[nodiscard]] bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

 private:
    void Build();

    QLineEdit* m_words;
    QCheckBox* m_everywhere = nullptr;
    QLabel* m_count;
};
