#pragma once

#include "app/ListTable.h"
#include "shell/record/CExpenseDialog.h"
#include "shell/record/DialogHome.h"

#include <QTimer>
#include <functional>
#include <memory>

/// An expense dialog over a scratch home.
class ExpenseDialogHome : public DialogHome {
 public:
    ExpenseDialogHome() {
        record.GenUnique();
        record.date.Set(11, 19, 2026);
    }

    /// Opens the dialog on the expense, in front and with the focus.
    void Open() {
        dialog = std::make_unique<CExpenseDialog>(Context());
        ExpenseDraft draft;
        draft.Begin(record);
        dialog->SetDraft(draft);
        Show(*dialog);
    }
    /// A distance entry with its amount.
    void SetDistance(float distance, float rate, float amount) {
        record.isDistance = true;
        record.distance.Set(distance);
        record.rate.Set(rate);
        record.amount.Set(amount);
    }
    /// Presses a button that opens a dialog; the steps drive that one and must end it.
    void PressAndDo(const char* button, const std::function<void(const DialogUser& opened)>& steps) {
        bool isDone = false;
        QTimer::singleShot(0, qApp, [&steps, &isDone] {
            QWidget* opened = QApplication::activeModalWidget();
            if (!opened) qFatal("no dialog came");
            steps(DialogUser(*opened));
            isDone = true;
        });
        Press(button);
        QVERIFY(isDone);
    }
    /// Distance, rate and amount as they stand in the fields.
    [[nodiscard]] QString Money() const {
        return QStringLiteral("%1 x %2 = %3")
            .arg(Shown("distanceField"), Shown("rateField"), Shown("amountField"));
    }

    CERecord record;
    std::unique_ptr<CExpenseDialog> dialog;
};
