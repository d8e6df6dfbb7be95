#pragma once

class CVORec;
class QWidget;
struct RecordDialogContext;

/// Lets the user edit a time record or an expense in the dialog of its kind; true when accepted, and only
/// then the record is changed.
[[nodiscard]] bool EditRecord(QWidget* parent, CVORec& record, const RecordDialogContext& context);
