#pragma once

#include "shell/guide/CGuidePage.h"

class CGuide;
class CMnemonics;
class QButtonGroup;
class QGridLayout;
class QLabel;
class QLineEdit;
class QRadioButton;
class QVBoxLayout;

/// What fields are called: ready-made sets of names, or two words of the user's own.
class CGuideWordsPage final : public CGuidePage {
    Q_OBJECT

 public:
    CGuideWordsPage(const CGuide& guide, CMnemonics mnemonics);

    [[nodiscard]] Text Title() const override { return Text::GuideWordsTitle; }
    [[nodiscard]] Text Hint() const override { return Text::GuideWordsHint; }
    void Show(const GuideDraft& draft) override;
    void Take(GuideDraft& draft) const override;

 private:
    void AddChoice(QVBoxLayout& column, GuideWords words, const QString& text, const QString& objectName,
                   CMnemonics& mnemonics);
    void AddOwnWords(QVBoxLayout& column, CMnemonics& mnemonics);
    QLineEdit* AddWord(QGridLayout& form, Text label, Text sample, const QString& objectName,
                       CMnemonics& mnemonics);
    void Follow();

    const CGuide& m_guide;
    QButtonGroup* m_choices;
    QLineEdit* m_person = nullptr;
    QLineEdit* m_work = nullptr;
    QLabel* m_shown;
};
