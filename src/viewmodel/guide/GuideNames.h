#pragma once

#include "fields/FieldId.h"
#include "viewmodel/guide/GuideDraft.h"

#include <QString>
#include <map>

class CPulldownCatalogue;
class FieldLabels;

/// What a field will be called with these words.
[[nodiscard]] QString NameWith(const GuideDraft& draft, const FieldLabels& labels, FieldId field);
/// Whether any field has a name of the user's own.
[[nodiscard]] bool HasOwnNames(const FieldLabels& labels);
/// Gives the fields these names, as one change. False when that could not be stored, of which the user was
/// told.
[[nodiscard]] bool StoreNames(const GuideDraft& draft, CPulldownCatalogue& catalogue);
