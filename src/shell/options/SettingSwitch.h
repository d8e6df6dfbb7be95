#pragma once

#include <QString>

class CCfgStore;
class CMnemonics;
class CPrompt;
class QCheckBox;

/// A check box that is a setting: it starts from it and writes it back, and saves it, at every click.
[[nodiscard]] QCheckBox* MakeSettingSwitch(const QString& settingName, const QString& text,
                                           CCfgStore& settings, CPrompt& prompt, CMnemonics& mnemonics);

/// Saves a setting at once; the user is told when that fails.
void SaveSetting(const QString& settingName, CCfgStore& settings, CPrompt& prompt);

/// Tells that an option could not be saved.
void TellNotSaved(CPrompt& prompt);
