#pragma once

#include <QHash>
#include <QString>
#include <QStringList>

/// Gives each text of a dialog page a mnemonic of its own, so that labels which users name themselves get one
/// too and none comes twice: "Client", "Cost centre" become "&Client", "C&ost centre".
class CMnemonics {
 public:
    /// Shares letters out among texts that Give is asked for later, those with the fewest free ones first.
    void Plan(QStringList texts);
    /// The text with its mnemonic; without one when all its letters are taken.
    [[nodiscard]] QString Give(const QString& text);
    /// A text of the language library with its mnemonic marked, "Entr&y".
    [[nodiscard]] QString Take(const QString& markedText);
    /// A marked text without its mark.
    [[nodiscard]] static QString Plain(QString markedText);

 private:
    [[nodiscard]] qsizetype FreeLetters(const QString& text) const;
    [[nodiscard]] int FreePlace(const QString& text) const;
    [[nodiscard]] QString Mark(const QString& text);

    QHash<QString, QString> m_planned;
    QString m_taken;  ///< upper-case letters and digits
};
