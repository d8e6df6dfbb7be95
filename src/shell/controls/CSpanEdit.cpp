#include "shell/controls/CSpanEdit.h"

#include "lang/FormatText.h"
#include "shell/controls/CSpanPopup.h"
#include "viewmodel/fields/TypedTimes.h"

#include <algorithm>

namespace {

constexpr int kMostMinutes = 24 * 60 - 1;
constexpr int kMostStored = 32767 * 60 + 59;

QString TextOf(const EnteredSpan& span) {
    return FormatText<Text::SpanClock>(span.hours, span.minutes);
}

}  // namespace

CSpanEdit::CSpanEdit(const CRegionalInfo& region, CTRecord& entry, int step, QWidget* parent)
    : CPickEdit(FormatText<Text::SpanForms>(QString(QChar(region.decimalChar))), parent),
      m_region(region),
      m_entry(entry),
      m_step(step) {}

void CSpanEdit::SetSpan(const std::optional<EnteredSpan>& span) {
    m_span = span;
    ShowText(span ? TextOf(*span) : QString());
}

int CSpanEdit::UnreadableTextId() const {
    return static_cast<int>(Text::SpanUnreadable);
}

QString CSpanEdit::WhyUnreadable() const {
    return FormatText<Text::SpanUnreadable>(text());
}

bool CSpanEdit::ReadText() {
    EnteredSpan span;
    const Typed read = ReadTypedSpan(text(), m_region, span.hours, span.minutes);
    if (read == Typed::Nothing) m_span.reset();
    if (read == Typed::Value) m_span = span;
    return read != Typed::Unreadable;
}

/// From a length under a day on it stays under a day; a longer one, which can't be typed, can be stepped all
/// the same.
void CSpanEdit::StepTo(int minutes, int from) {
    const int within = std::clamp(minutes, 0, from > kMostMinutes ? kMostStored : kMostMinutes);
    m_span = EnteredSpan{within / 60, within % 60};
    EnterStep(TextOf(*m_span));
}

/// To the next multiple of the step; a large step is an hour.
void CSpanEdit::StepBy(int steps, bool isLarge) {
    const int now = m_span ? m_span->hours * 60 + m_span->minutes : 0;
    if (isLarge) {
        StepTo(now + 60 * steps, now);
        return;
    }
    const int over = now % 60 % m_step;
    const bool isDownToMultiple = steps < 0 && over > 0;
    StepTo(isDownToMultiple ? now - over : now - over + steps * m_step, now);
}

QWidget* CSpanEdit::MakePopup() {
    auto* popup = new CSpanPopup(m_entry, m_step, m_span, this);
    popup->setWindowTitle(accessibleName());
    connect(popup, &CPickPopup::Accepted, this, [this, popup] {
        if (!popup->IsTouched()) return;
        const auto span = popup->Span();
        EnterText(span ? TextOf(*span) : QString());
    });
    return popup;
}
