#pragma once

#include "entry/TimeEntryRules.h"
#include "platform/host/CRegionalInfo.h"
#include "shell/controls/CPickEdit.h"

#include <optional>

class CTRecord;

/// A field for a length of time, or none. It shows any length; what is typed or picked stays under 24 hours.
class CSpanEdit final : public CPickEdit {
    Q_OBJECT

 public:
    /// entry: the scratch record of its popup. step: minutes from one step, and one line of the popup, to the
    /// next.
    CSpanEdit(const CRegionalInfo& region, CTRecord& entry, int step, QWidget* parent = nullptr);

    void SetSpan(const std::optional<EnteredSpan>& span);
    /// The span as entered; the last one that could be read while the text can't be.
    [[nodiscard]] const std::optional<EnteredSpan>& GetSpan() const { return m_span; }
    [[nodiscard]] QString WhyUnreadable() const override;
    [[nodiscard]] int UnreadableTextId() const override;

 protected:
    [[nodiscard]] bool ReadText() override;
    void StepBy(int steps, bool isLarge) override;
    [[nodiscard]] QWidget* MakePopup() override;

 private:
    void StepTo(int minutes, int from);

    CRegionalInfo m_region;
    CTRecord& m_entry;
    int m_step;
    std::optional<EnteredSpan> m_span;
};
