#pragma once

#include "shell/controls/CFindBar.h"

class QCheckBox;

/// The bar above the record list in which words are looked for while they are typed. Escape closes it, Return
/// and the arrow down go to the records found.
class CListFindBar final : public CFindBar {
    Q_OBJECT

 public:
    explicit CListFindBar(QWidget* parent = nullptr);

    void Close();
    [[nodiscard]] bool IsEverywhere() const;
    void SetEverywhere(bool isEverywhere);
    /// How many records were found; nothing is said while there are no words.
    void ShowFound(int count);
    /// Whether the keyboard is in the bar.
    [[nodiscard]] bool HasKeyboard() const;

 Q_SIGNALS:
    void EverywhereChanged(bool isEverywhere);
    void ListWanted();
    void CloseWanted();

 protected:
    void keyPressEvent(QKeyEvent* event) override;

 private:
    QCheckBox* m_everywhere = nullptr;
};
