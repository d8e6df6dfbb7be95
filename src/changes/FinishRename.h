#pragma once

#include "lists/CListEditor.h"

class CRecordChanges;

/// What follows a rename of an item that was done, or that met a text the list doesn't take anew: two items
/// that would be called the same may become one, and the user may carry the text into the records. True when
/// the items did.
bool FinishRename(CListEditor::Renamed renamed, const ItemRename& rename, CListEditor& editor,
                  CRecordChanges& changes, CPrompt& prompt);
