#pragma once

#include "app/CVelmarchDoc.h"
#include "app/PulldownLists.h"
#include "config/CCfgStore.h"
#include "platform/host/CMessagePump.h"
#include "platform/host/CPrompt.h"
#include "platform/settings/CProfile.h"
#include "platform/settings/CSettingsTree.h"
#include "records/CRecordStore.h"
#include "timers/CRecordTimers.h"

#include <QStringList>

/// Keeps what would be told, and agrees to nothing.
class CRecordingPrompt final : public CPrompt {
 public:
    Answer Ask(const MessageBox& box) override;
    void Tell(const MessageBox& box) override;
    [[nodiscard]] std::optional<QString> ChooseFile(const FileChoice&) override { return std::nullopt; }

    [[nodiscard]] bool HasHeard() const { return !m_heard.isEmpty(); }
    /// What was said since the last call, each sentence once.
    [[nodiscard]] QString TakeHeard();

 private:
    void Hear(const MessageBox& box);
    QStringList m_heard;
};

/// Everything that reading the data of a home takes, without a way to make or change any of it.
struct ReadOnlyHome {
    /// settingsPath: empty where the settings can't be read; the defaults serve then.
    ReadOnlyHome(const CClock& clock, const QString& home, const QString& settingsPath);

    CNoPump pump;
    CNoViews views;
    CRecordingPrompt prompt;
    CSettingsTree tree;
    CProfile profile;
    bool areSettingsOpen;
    CCfgStore settings;
    PrecisionScope precisions;
    CVOSrcMgr manager;
    CRecordStore store;
    CVelmarchDoc document;
    ActiveTimerSet timers;
    CRecordTimers recordTimers;
    PulldownLists lists;  ///< filled by the examination of list items
};
