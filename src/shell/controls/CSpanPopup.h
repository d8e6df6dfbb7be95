#pragma once

#include "lang/Text.h"
#include "shell/controls/CPickPopup.h"
#include "viewmodel/fields/SpanPad.h"

class QGridLayout;
class QLineEdit;
class QListWidget;

/// The pad for a length of time as a popup: a list and a field for the hours, another pair for the minutes. A
/// double click on a line accepts.
class CSpanPopup final : public CPickPopup {
    Q_OBJECT

 public:
    CSpanPopup(CTRecord& entry, int step, const std::optional<EnteredSpan>& span, QWidget* parent);

    [[nodiscard]] std::optional<EnteredSpan> Span() const { return m_pad.Span(); }
    /// False while the pad holds what it opened with.
    [[nodiscard]] bool IsTouched() const { return m_pad.IsTouched(); }

 protected:
    PadState Press(int id) override { return m_pad.Press(id); }

 private:
    struct Part {
        QLineEdit* field;
        QListWidget* list;
    };
    using Choose = void (SpanPad::*)(int line);
    using Type = void (SpanPad::*)(const QString& text);
    Part AddPart(QGridLayout& grid, Text caption, const char* name, CMnemonics& mnemonics);
    void Connect(const Part& part, Choose choose, Type type);
    void ShowFields();

    SpanPad m_pad;
    Part m_hours;
    Part m_minutes;
};
