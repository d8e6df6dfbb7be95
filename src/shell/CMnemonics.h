#pragma once

#include <QString>

/// Gives each text of a dialog page a mnemonic of its own, so that labels which users name themselves get one
/// too and none comes twice: "Client", "Cost centre" become "&Client", "C&ost centre".
class CMnemonics {
 public:
    /// The text with its mnemonic; without one when all its letters are taken. Texts that need theirs most
    /// come first.
    [[nodiscard]] QString Give(const QString& text);

 private:
    [[nodiscard]] int FreePlace(const QString& text) const;

    QString m_taken;  ///< upper-case letters and digits
};
