#pragma once

#include "shell/controls/CItemFields.h"
#include "shell/guide/CGuidePage.h"
#include "shell/look/CMnemonics.h"

class CGuide;
class CItemCombo;
class QLabel;
class QRadioButton;

/// Whether a timer starts for what was entered.
class CGuideTimerPage final : public CGuidePage {
    Q_OBJECT

 public:
    CGuideTimerPage(const CGuide& guide, CMnemonics mnemonics);

    [[nodiscard]] Text Title() const override { return Text::GuideTimerTitle; }
    [[nodiscard]] Text Hint() const override { return Text::GuideTimerPlace; }
    void Show(const GuideDraft& draft) override;
    void Take(GuideDraft& draft) const override;

 private:
    QRadioButton* MakeChoice(Text text, const QString& objectName);

    const CGuide& m_guide;
    CMnemonics m_mnemonics;  ///< the letters that the dialog has given already, and those of the choices
    CItemFields m_fields;
    QRadioButton* m_now;
    QRadioButton* m_later;
    QLabel* m_work;
    CItemCombo* m_activity;
    QLabel* m_activityLabel;
};
