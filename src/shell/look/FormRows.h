#pragma once

#include "lang/Text.h"

#include <QString>

class CMnemonics;
class QCheckBox;
class QDialogButtonBox;
class QGridLayout;
class QLabel;
class QLineEdit;
class QPushButton;
class QWidget;

/// The rhythm of forms: the space between rows, and three times as much between groups.
inline constexpr int kFormSpace = 8;

/// Names a widget for tests and for screen readers; the list that a combo box opens has its name too.
void NameWidget(QWidget& widget, const QString& objectName, const QString& accessibleName);

/// Shows a value in a label that stands beside its caption. Read aloud it is both: "Net time: 3:30".
void ShowValue(QLabel& label, const QString& caption, const QString& value);

/// The label of a field in column 0 of a form with its mnemonic, as the field's buddy; the field takes the
/// label's words as its accessible name.
QLabel* AddLabel(QGridLayout& form, int row, const QString& text, QWidget& field, const QString& objectName,
                 CMnemonics& mnemonics);
/// A sentence in a dialog, with room for it on two lines however narrow the dialog gets.
[[nodiscard]] QLabel* MakeNote(const QString& text, const QString& objectName);
/// Shows a note about what was entered in a field, which reads it aloud, too; an empty one goes away.
void ShowNote(QLabel& note, const QString& text, QWidget& field);
[[nodiscard]] QCheckBox* MakeCheckBox(const QString& text, const QString& objectName, CMnemonics& mnemonics);
/// The button that accepts, which is the default, and Cancel; both are connected to the dialog. The caller
/// lays them out, last, so that they come last with Tab as well.
[[nodiscard]] QDialogButtonBox* MakeDialogButtons(class QDialog& dialog, Text acceptText,
                                                  CMnemonics& mnemonics);

/// A field takes this many characters; one that is cut at the limit isn't cut in half.
void LimitLength(QLineEdit& field, int mostCharacters);

/// Marks a field whose text can't be read by an icon with the reason as its tip, and takes the mark off
/// again.
void MarkUnreadable(QLineEdit& field, bool isUnreadable, const QString& reason);
[[nodiscard]] bool IsMarked(const QLineEdit& field);
