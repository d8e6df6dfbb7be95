#pragma once

#include "shell/look/CMnemonics.h"

#include <QWidget>

class QHBoxLayout;
class QLabel;
class QLineEdit;

/// A bar of a window in which words are looked for while they are typed, with a word about what was found
/// behind them. Escape closes it, whatever else the key is a shortcut of.
class CFindBar : public QWidget {
    Q_OBJECT

 public:
    /// The names by which tests and screen readers' scripts find the bar and its parts.
    struct Names {
        const char* bar;
        const char* words;
        const char* found;
    };

    /// Shows the bar with its words selected, for the next ones to be typed over.
    void Open();
    [[nodiscard]] QString Words() const;

 Q_SIGNALS:
    void WordsChanged();

 protected:
    CFindBar(const Names& names, QWidget* parent);

    [[nodiscard]] QLineEdit& Field() { return *m_words; }
    /// The row of the bar; what is added stands behind the words.
    [[nodiscard]] QHBoxLayout& Row() { return *m_row; }
    /// The letters that neither the menus of the window nor the bar have taken.
    [[nodiscard]] CMnemonics& Mnemonics() { return m_mnemonics; }
    /// What was found, in words; empty while nothing is looked for.
    void Say(const QString& found);

    [[nodiscard]] bool event(QEvent* event) override;

 private:
    CMnemonics m_mnemonics;
    QLineEdit* m_words;
    QLabel* m_found;
    QHBoxLayout* m_row;
};
