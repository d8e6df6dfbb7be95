#pragma once

#include "config/Settings.h"

#include <QWidget>
#include <vector>

class CAppearancePreview;
class CColourPicker;
class CMnemonics;
class QCheckBox;
class QComboBox;
class QGridLayout;
class QSpinBox;

/// Rows, lines and colours of the record list, with a preview. It reads from settings and writes into them;
/// who shows the page saves them.
class CAppearancePage final : public QWidget {
    Q_OBJECT

 public:
    explicit CAppearancePage(QWidget* parent = nullptr);

    void SetDraft(const Settings& settings);
    /// Puts what is shown into the settings and answers the indices of those that changed. A colour left on
    /// "Default" becomes the setting's default.
    std::vector<int> GetDraft(Settings& settings) const;

 protected:
    void changeEvent(QEvent* event) override;

 private:
    void BuildRows(QGridLayout& form, CMnemonics& mnemonics);
    void BuildLines(QGridLayout& form, CMnemonics& mnemonics);
    void BuildTexts(QGridLayout& form, CMnemonics& mnemonics);
    void AddColour(QGridLayout& form, const char* setting, const QString& caption, CMnemonics& mnemonics);
    void ShowDefaults();
    void ShowUse();
    void Preview();
    void PutColours(Settings& settings) const;

    struct Picker {
        const char* setting;
        CColourPicker* button;
    };
    [[nodiscard]] CColourPicker* PickerOf(const char* setting) const;

    Settings m_draft;
    QCheckBox* m_alternateRows = nullptr;
    QCheckBox* m_gridLines = nullptr;
    QComboBox* m_style = nullptr;
    QSpinBox* m_width = nullptr;
    std::vector<Picker> m_pickers;
    CAppearancePreview* m_preview;
};
