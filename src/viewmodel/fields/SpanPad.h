#pragma once

#include "entry/TimeEntryRules.h"
#include "viewmodel/fields/PadState.h"

#include <QString>
#include <QStringList>
#include <optional>

class CTRecord;

/// Minutes from one choice of a time or a length of time to the next: those of its rounding if it is rounded,
/// otherwise 5.
[[nodiscard]] int PickStep(int roundType, int roundMinutes);

/// The pad on which a length of time is picked, without its widgets: two lists and two fields to type in, on
/// a scratch record. What is typed stays under 24 hours.
class SpanPad {
 public:
    static constexpr int kAccept = kPadAccept, kCancel = kPadCancel, kClear = 1008;
    static constexpr int kNothingChosen = -1;

    /// entry: the scratch record; step: minutes from one line of the minute list to the next.
    SpanPad(CTRecord& entry, int step);

    /// Starts with a length of time, which may be a day and more, or without one (-1).
    void Open(int hours, int minutes);
    [[nodiscard]] const QStringList& HourTexts() const { return m_hourTexts; }
    [[nodiscard]] const QStringList& MinuteTexts() const { return m_minuteTexts; }
    [[nodiscard]] int ChosenHour() const { return m_hours.line; }
    [[nodiscard]] int ChosenMinute() const { return m_minutes.line; }
    [[nodiscard]] const QString& TypedHours() const { return m_hours.typed; }
    [[nodiscard]] const QString& TypedMinutes() const { return m_minutes.typed; }

    /// A line of a list, which also goes into the field beside it; or nothing chosen.
    void ChooseHour(int line);
    void ChooseMinute(int line);
    void TypeHours(const QString& text);
    void TypeMinutes(const QString& text);
    /// Whether anything was chosen, typed or cleared: accepted without it, the pad gives back what it opened
    /// with, a day and more too.
    [[nodiscard]] bool IsTouched() const { return m_hours.isTouched || m_minutes.isTouched || m_isCleared; }

    /// Other numbers do nothing.
    PadState Press(int id);
    /// The length of time of the scratch record, or none.
    [[nodiscard]] std::optional<EnteredSpan> Span() const;

 private:
    /// Hours or minutes: the line of the list, the text of the field, and what both stand for while nobody
    /// touches them.
    struct Part {
        int line = 0;
        QString typed;
        int opened = -1;  ///< -1: not set
        bool isTouched = false;
    };
    static void Choose(Part& part, int line, int value);
    static void Type(Part& part, const QString& text);
    [[nodiscard]] static bool Read(const Part& part, int greatest, int& out);
    void Accept();

    CTRecord& m_entry;
    int m_step;
    QStringList m_hourTexts, m_minuteTexts;
    Part m_hours, m_minutes;
    bool m_isCleared = false;
};
