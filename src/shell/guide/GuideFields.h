#pragma once

#include <QString>

class CItemCombo;
class CMnemonics;
class QLabel;

// Fields of the guide are called as the user has just chosen, so their labels change.

/// A label without a text, as the field's buddy.
[[nodiscard]] QLabel* MakeFieldLabel(CItemCombo& field, const QString& objectName);
/// Gives label and field their name.
void NameField(QLabel& label, CItemCombo& field, const QString& name, CMnemonics& mnemonics);
