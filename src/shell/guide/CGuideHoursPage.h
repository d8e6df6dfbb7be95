#pragma once

#include "shell/controls/CItemFields.h"
#include "shell/guide/CGuidePage.h"
#include "shell/look/CMnemonics.h"
#include "viewmodel/fields/ValueChoices.h"

class CGuide;
class CItemCombo;
class QComboBox;
class QGridLayout;
class QLabel;

/// The rate, and how hours, days and distances are counted.
class CGuideHoursPage final : public CGuidePage {
    Q_OBJECT

 public:
    CGuideHoursPage(const CGuide& guide, const CMnemonics& mnemonics);

    [[nodiscard]] Text Title() const override { return Text::GuideHoursTitle; }
    [[nodiscard]] Text Hint() const override { return Text::GuideHoursHint; }
    void Show(const GuideDraft& draft) override;
    void Take(GuideDraft& draft) const override;
    /// A rate that can't be read.
    [[nodiscard]] QWidget* WrongField() const override;

 private:
    void AddMoney(QGridLayout& form);
    QComboBox* AddChoice(QGridLayout& form, Text label, std::span<const ValueChoice> choices,
                         const QString& objectName, CMnemonics& mnemonics);
    [[nodiscard]] int PlacesOfDecimals() const;
    void FollowRate();

    const CGuide& m_guide;
    CMnemonics m_mnemonics;  ///< the letters that the dialog has given already, and the ones of the choices
    GuideDraft m_draft;      ///< as it was shown
    CItemFields m_fields;
    CItemCombo* m_rate;
    CItemCombo* m_currency;
    QLabel* m_rateLabel;
    QLabel* m_currencyLabel;
    QLabel* m_defaultHint;
    QComboBox* m_spans = nullptr;
    QComboBox* m_clock = nullptr;
    QComboBox* m_week = nullptr;
    QComboBox* m_distances = nullptr;
};
