#pragma once

#include "calendar/DateTimeVal.h"
#include "entry/DraftFinding.h"
#include "lang/Text.h"
#include "platform/host/CRegionalInfo.h"

#include <optional>

class CCfgStore;
class CClock;
class CDateEdit;
class CEnteredItems;
class CMnemonics;
class CPickEdit;
class CPrompt;
class CPulldownCatalogue;
class CRecordTimers;
class CVelmarchDoc;
class QDialog;
class QGridLayout;
class QLabel;
class QLineEdit;
struct RecordDate;

/// What the dialogs of records need from outside. All must outlive them.
struct RecordDialogContext {
    CVelmarchDoc& document;
    CRecordTimers& timers;
    CCfgStore& settings;
    CPrompt& prompt;
    const CClock& clock;
    CPulldownCatalogue& catalogue;
    CEnteredItems& entered;  ///< of the dialog that was accepted last: stored with its record
};

/// Pieces that the dialogs of time records and of expenses have in common.
namespace RecordDialogParts {

/// Regional values as the fields need them: the setting decides between 12 and 24 hours.
[[nodiscard]] CRegionalInfo FieldRegion(const CCfgStore& settings);
[[nodiscard]] std::optional<DateTimeVal> DayOf(const RecordDate& date);

/// What the user calls a field, cut where it would make a form too wide.
[[nodiscard]] QString LabelOf(const CPulldownCatalogue& catalogue, int field);

/// The first row of a form: the date, and behind the gap its weekday.
struct DateRow {
    CDateEdit* edit = nullptr;
    QLabel* weekday = nullptr;
};
[[nodiscard]] DateRow AddDateRow(QGridLayout& form, const RecordDialogContext& context,
                                 CMnemonics& mnemonics);
void ShowWeekday(const DateRow& row, const RecordDate& date);

/// Tells why the text of a field can't be accepted; the caller then calls for it with AskAgain.
void TellRefused(CPrompt& prompt, int textId, const QString& why);
/// Puts the user into the field, over its text.
void AskAgain(QLineEdit& field);
/// Marks a field with what was found in its text, or takes the mark off.
void MarkFinding(QLineEdit& field, const DraftFindings& findings, DraftField place);
/// Tells or asks of one finding after the other, until one stands: the field to which the user has to go
/// back. Nothing when the draft can be accepted.
[[nodiscard]] std::optional<DraftField> AskAbout(const DraftFindings& findings, CPrompt& prompt);
/// Ctrl+Enter accepts, from the notes too.
void AcceptByCtrlReturn(QDialog& dialog);

}  // namespace RecordDialogParts
