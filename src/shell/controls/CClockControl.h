#pragma once

#include "viewmodel/fields/TimePad.h"

#include <QTimeEdit>

/// The field of a time pad, spun with the arrow keys or typed into.
class CClockControl final : public QTimeEdit, public CTimeControl {
    Q_OBJECT

 public:
    explicit CClockControl(bool is24Hour, QWidget* parent = nullptr);

    /// An hour after 23 is refused as an argument that isn't valid (EINVAL).
    [[nodiscard]] int SetTime(const SYSTEMTIME& time) override;
    [[nodiscard]] bool GetTime(SYSTEMTIME& out) const override;
};
