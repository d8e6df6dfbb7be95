#pragma once

#include <QString>

class CPrompt;
class CRecordChanges;

/// After an item of a pick list has got another text, the user may carry it into the records that use the
/// list, and is told how many took it. True when every record with the old text has the new one now: false as
/// well for a list that records don't use, and when the user would rather not.
bool OfferReplaceInRecords(int list, const QString& oldText, const QString& newText, CRecordChanges& changes,
                           CPrompt& prompt);
