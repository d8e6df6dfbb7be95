#include "shell/options/CAppearancePage.h"

#include "config/SettingsTable.h"
#include "lang/FormatText.h"
#include "shell/controls/CColourPicker.h"
#include "shell/look/CMnemonics.h"
#include "shell/look/FormRows.h"
#include "shell/look/ListColours.h"
#include "shell/options/CAppearancePreview.h"
#include "viewmodel/fields/ValueChoices.h"
#include "viewmodel/list/ColourTable.h"

#include <QCheckBox>
#include <QComboBox>
#include <QEvent>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QSignalBlocker>
#include <QSpinBox>
#include <QVBoxLayout>

namespace {

constexpr int kMostWidth = 10;

const SettingRow& RowOf(const char* setting) {
    const SettingRow* row = FindSetting(QString::fromLatin1(setting));
    Q_ASSERT(row);
    return *row;
}

/// How the default of a colour looks on this desktop: on a dark one it isn't the colour that is stored.
struct LookRow {
    const char* setting;
    QColor (*look)(const ListColours& colours);
};
constexpr LookRow kLooks[] = {
    {"alternateRowColour", [](const ListColours& colours) { return colours.alternate; }},
    {"gridLineColour", [](const ListColours& colours) { return colours.grid; }},
    {"lineColour1", [](const ListColours& colours) { return colours.lines[0]; }},
    {"lineColour2", [](const ListColours& colours) { return colours.lines[1]; }},
    {"lineColour3", [](const ListColours& colours) { return colours.lines[2]; }},
    {"lineColour4", [](const ListColours& colours) { return colours.lines[3]; }},
};

void AddGap(QGridLayout& form) {
    form.setRowMinimumHeight(form.rowCount(), kFormSpace);
}

}  // namespace

CAppearancePage::CAppearancePage(QWidget* parent) : QWidget(parent), m_preview(new CAppearancePreview) {
    setObjectName(QStringLiteral("appearancePage"));
    setWindowTitle(LoadText(Text::AppearanceTitle));
    CMnemonics mnemonics;
    auto* row = new QHBoxLayout(this);
    row->setSpacing(3 * kFormSpace);
    auto* form = new QGridLayout;
    form->setSpacing(kFormSpace);
    row->addLayout(form, 3);
    BuildRows(*form, mnemonics);
    AddGap(*form);
    BuildLines(*form, mnemonics);
    AddGap(*form);
    BuildTexts(*form, mnemonics);
    form->setColumnStretch(1, 1);
    form->setRowStretch(form->rowCount(), 1);
    auto* sample = new QVBoxLayout;
    sample->setSpacing(kFormSpace);
    NameWidget(*m_preview, QStringLiteral("appearancePreview"), LoadText(Text::AppPreview));
    sample->addWidget(new QLabel(LoadText(Text::AppPreview)));
    sample->addWidget(m_preview);
    sample->addStretch();
    row->addLayout(sample, 2);
    ShowDefaults();
    SetDraft(m_draft);
}

void CAppearancePage::BuildRows(QGridLayout& form, CMnemonics& mnemonics) {
    m_alternateRows =
        MakeCheckBox(LoadText(Text::AppAlternateRows), QStringLiteral("alternateRows"), mnemonics);
    form.addWidget(m_alternateRows, 0, 0, 1, 2);
    AddColour(form, "alternateRowColour", LoadText(Text::AppAlternateColour), mnemonics);
    connect(m_alternateRows, &QCheckBox::toggled, this, &CAppearancePage::Preview);
}

void CAppearancePage::BuildLines(QGridLayout& form, CMnemonics& mnemonics) {
    m_gridLines = MakeCheckBox(LoadText(Text::AppGridLines), QStringLiteral("gridLines"), mnemonics);
    form.addWidget(m_gridLines, form.rowCount(), 0, 1, 2);
    connect(m_gridLines, &QCheckBox::toggled, this, &CAppearancePage::Preview);
    AddColour(form, "gridLineColour", LoadText(Text::AppGridColour), mnemonics);

    m_style = new QComboBox;
    for (const ValueChoice& choice : ValueChoices::kPenStyles)
        m_style->addItem(LoadText(choice.text), choice.value);
    int place = form.rowCount();
    AddLabel(form, place, LoadText(Text::AppGridStyle), *m_style, QStringLiteral("gridLineStyle"), mnemonics);
    form.addWidget(m_style, place, 1);
    connect(m_style, &QComboBox::currentIndexChanged, this, &CAppearancePage::Preview);

    m_width = new QSpinBox;
    m_width->setRange(0, kMostWidth);
    m_width->setSpecialValueText(LoadText(Text::GridWidthThinnest));
    place = form.rowCount();
    AddLabel(form, place, LoadText(Text::AppGridWidth), *m_width, QStringLiteral("gridLineWidth"), mnemonics);
    form.addWidget(m_width, place, 1);
    connect(m_width, &QSpinBox::valueChanged, this, &CAppearancePage::Preview);
}

void CAppearancePage::BuildTexts(QGridLayout& form, CMnemonics& mnemonics) {
    static constexpr const char* kLines[] = {"lineColour1", "lineColour2", "lineColour3", "lineColour4"};
    int line = 0;
    for (const char* setting : kLines)
        AddColour(form, setting, FormatText<Text::AppLineColour>(++line), mnemonics);
}

void CAppearancePage::AddColour(QGridLayout& form, const char* setting, const QString& caption,
                                CMnemonics& mnemonics) {
    auto* picker = new CColourPicker;
    const int place = form.rowCount();
    AddLabel(form, place, caption, *picker, QString::fromLatin1(setting), mnemonics);
    picker->SetPurpose(caption);
    form.addWidget(picker, place, 1);
    connect(picker, &CColourPicker::ColourChanged, this, &CAppearancePage::Preview);
    m_pickers.push_back({setting, picker});
}

CColourPicker* CAppearancePage::PickerOf(const char* setting) const {
    for (const Picker& picker : m_pickers)
        if (QLatin1String(picker.setting) == QLatin1String(setting)) return picker.button;
    return nullptr;
}

void CAppearancePage::ShowDefaults() {
    const ListColours colours = MakeListColours(Settings(), palette());
    for (const LookRow& row : kLooks)
        PickerOf(row.setting)
            ->SetAutomatic(LoadText(Text::ColourDefault),
                           static_cast<std::uint32_t>(RowOf(row.setting).preset), row.look(colours));
}

void CAppearancePage::SetDraft(const Settings& settings) {
    m_draft = settings;
    const QSignalBlocker blocked[] = {QSignalBlocker(m_alternateRows), QSignalBlocker(m_gridLines),
                                      QSignalBlocker(m_style), QSignalBlocker(m_width)};
    m_alternateRows->setChecked(settings.alternateRows != 0);
    m_gridLines->setChecked(settings.gridLines != 0);
    // A stored style that isn't one selects no row and stays.
    m_style->setCurrentIndex(m_style->findData(settings.gridLineStyle));
    m_width->setValue(settings.gridLineWidth);
    for (const Picker& picker : m_pickers)
        picker.button->SetColour(static_cast<std::uint32_t>(SettingValue(settings, RowOf(picker.setting))));
    Preview();
}

std::vector<int> CAppearancePage::GetDraft(Settings& settings) const {
    const Settings before = settings;
    settings.alternateRows = m_alternateRows->isChecked() ? 1 : 0;
    settings.gridLines = m_gridLines->isChecked() ? 1 : 0;
    if (m_style->currentIndex() >= 0) settings.gridLineStyle = m_style->currentData().toInt();
    settings.gridLineWidth = m_width->value();
    PutColours(settings);
    std::vector<int> changed;
    for (const SettingRow& row : SettingsTable())
        if (SettingValue(before, row) != SettingValue(settings, row)) changed.push_back(row.index);
    return changed;
}

void CAppearancePage::PutColours(Settings& settings) const {
    for (const Picker& picker : m_pickers) {
        const SettingRow& row = RowOf(picker.setting);
        const std::uint32_t colour = picker.button->Colour();
        PutSetting(settings, row, colour == kAutomaticColour ? row.preset : colour);
    }
}

void CAppearancePage::Preview() {
    ShowUse();
    Settings shown = m_draft;
    GetDraft(shown);
    m_preview->SetDraft(shown);
}

/// What a switch turns off can't be changed.
void CAppearancePage::ShowUse() {
    PickerOf("alternateRowColour")->setEnabled(m_alternateRows->isChecked());
    for (QWidget* widget : {static_cast<QWidget*>(PickerOf("gridLineColour")), static_cast<QWidget*>(m_style),
                            static_cast<QWidget*>(m_width)})
        widget->setEnabled(m_gridLines->isChecked());
}

void CAppearancePage::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::PaletteChange && !m_pickers.empty()) ShowDefaults();
}
