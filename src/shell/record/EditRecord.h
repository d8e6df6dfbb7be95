#pragma once

class CVORec;
class QWidget;
struct RecordDialogContext;

/// Lets the user edit a time record or an expense in the dialog of its kind; true when accepted, and only
/// then the record is changed. What its timer counts meanwhile goes into untouched as well, which was the
/// same record before.
[[nodiscard]] bool EditRecord(QWidget* parent, CVORec& record, const RecordDialogContext& context,
                              CVORec* untouched = nullptr);
