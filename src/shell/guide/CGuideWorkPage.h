#pragma once

#include "shell/controls/CItemFields.h"
#include "shell/guide/CGuidePage.h"
#include "shell/look/CMnemonics.h"

class CGuide;
class CItemCombo;
class QLabel;

/// The first client and project, called as the page before says.
class CGuideWorkPage final : public CGuidePage {
    Q_OBJECT

 public:
    CGuideWorkPage(const CGuide& guide, const CMnemonics& mnemonics);

    [[nodiscard]] Text Title() const override { return Text::GuideWorkTitle; }
    [[nodiscard]] Text Hint() const override { return Text::GuideWorkHint; }
    void Show(const GuideDraft& draft) override;
    void Take(GuideDraft& draft) const override;

 private:
    const CGuide& m_guide;
    CMnemonics m_mnemonics;  ///< the letters that the dialog has given already
    CItemFields m_fields;
    CItemCombo* m_client;
    CItemCombo* m_project;
    QLabel* m_clientLabel;
    QLabel* m_projectLabel;
};
