#pragma once

#include "calendar/DateTimeVal.h"
#include "lang/Text.h"

#include <QDialog>

class CDateEdit;
class CMnemonics;
class QGridLayout;
class QLabel;
struct PeriodContext;

/// Two days, from which to which the list is to show its records.
class CRangeDialog final : public QDialog {
    Q_OBJECT

 public:
    struct Days {
        DateTimeVal first;
        DateTimeVal last;
    };
    /// days: what stands there at first. The context's clock and region must outlive the dialog.
    CRangeDialog(const Days& days, const PeriodContext& context, QWidget* parent = nullptr);

    [[nodiscard]] Days GetDays() const;
    /// Not while a day can't be read: its field says why.
    void accept() override;

 private:
    struct Row {
        Text label;
        Text name;
        const char* objectName;
    };
    [[nodiscard]] CDateEdit* AddDay(QGridLayout& form, const PeriodContext& context, const Row& row,
                                    CMnemonics& mnemonics);
    [[nodiscard]] CDateEdit* FirstWithoutDay() const;
    void ShowNoteOnOrder(const PeriodContext& context);

    CDateEdit* m_first = nullptr;
    CDateEdit* m_last = nullptr;
    QLabel* m_note = nullptr;
};
