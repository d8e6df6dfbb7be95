#pragma once

#include "shell/record/CRecordDialog.h"
#include "shell/record/DialogHome.h"

#include <memory>

/// A record dialog over a scratch home.
class RecordDialogHome : public DialogHome {
 public:
    RecordDialogHome() {
        record.GenUnique();
        record.date.Set(11, 19, 2026);
    }

    /// Opens the dialog on the record, in front and with the focus.
    void Open() {
        dialog = std::make_unique<CRecordDialog>(Context());
        TimeDraft draft(*home.settings);
        draft.Begin(record);
        dialog->SetDraft(draft);
        Show(*dialog);
    }
    /// Start, end, duration and break as they stand in the fields.
    [[nodiscard]] QString Times() const {
        return QStringLiteral("%1 to %2, %3 less %4")
            .arg(Shown("startField"), Shown("endField"), Shown("durationField"), Shown("breakField"));
    }

    static DateTimeVal Time(const QString& text) {
        DateTimeVal time;
        if (!time.ParseTimeText(text, true)) qFatal("no time: %s", qPrintable(text));
        return time;
    }
    /// "09:00" or nothing.
    void SetTimes(const QString& start, const QString& end) {
        if (!start.isEmpty()) record.SetStart(Time(start));
        if (!end.isEmpty()) record.SetEnd(Time(end));
    }

    CTRecord record;
    std::unique_ptr<CRecordDialog> dialog;
};
