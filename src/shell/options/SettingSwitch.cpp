#include "shell/options/SettingSwitch.h"

#include "config/CCfgStore.h"
#include "config/SettingsTable.h"
#include "lang/LoadText.h"
#include "platform/host/CPrompt.h"
#include "shell/look/FormRows.h"

#include <QCheckBox>

QCheckBox* MakeSettingSwitch(const QString& settingName, const QString& text, CCfgStore& settings,
                             CPrompt& prompt, CMnemonics& mnemonics) {
    const SettingRow* row = FindSetting(settingName);
    Q_ASSERT(row);
    QCheckBox* box = MakeCheckBox(text, settingName + QStringLiteral("Box"), mnemonics);
    box->setChecked(SettingValue(settings, *row) != 0);
    QObject::connect(box, &QCheckBox::clicked, box, [row, &settings, &prompt](bool isOn) {
        PutSetting(settings, *row, isOn ? 1 : 0);
        SaveSetting(QString::fromLatin1(row->name), settings, prompt);
    });
    return box;
}

void SaveSetting(const QString& settingName, CCfgStore& settings, CPrompt& prompt) {
    const SettingRow* row = FindSetting(settingName);
    Q_ASSERT(row);
    if (!settings.SaveValue(row->index)) TellNotSaved(prompt);
}

void TellNotSaved(CPrompt& prompt) {
    MessageBox box;
    box.textId = static_cast<int>(Text::OptionsNotSaved);
    box.title = LoadText(Text::OptionsTitle);
    box.text = LoadText(Text::OptionsNotSaved);
    box.icon = BoxIcon::Warning;
    prompt.Tell(box);
}
