#pragma once

#include "lists/CListEditor.h"

class CRecordChanges;

/// What follows a rename of an item that was done, or that met a text the list doesn't take anew: the user
/// may carry the text into the records, and two items that are called the same now may become one. True when
/// they did.
bool FinishRename(CListEditor::Renamed renamed, const ItemRename& rename, CListEditor& editor,
                  CRecordChanges& changes, CPrompt& prompt);
