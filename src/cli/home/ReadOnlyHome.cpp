#include "cli/home/ReadOnlyHome.h"

#include "app/HomeFiles.h"
#include "cli/output/CConsolePrompt.h"
#include "lang/LoadText.h"
#include "platform/host/CRegionalInfo.h"

using namespace Qt::Literals::StringLiterals;

void CRecordingPrompt::Hear(const MessageBox& box) {
    const QString words = WordsOf(box).simplified();
    if (!m_heard.contains(words)) m_heard.append(words);
}

Answer CRecordingPrompt::Ask(const MessageBox& box) {
    Hear(box);
    const bool isYesNo = box.buttons == Buttons::YesNo || box.buttons == Buttons::YesNoCancel;
    return isYesNo ? Answer::No : box.defaultAnswer;
}

void CRecordingPrompt::Tell(const MessageBox& box) {
    Hear(box);
}

QString CRecordingPrompt::TakeHeard() {
    return std::exchange(m_heard, {}).join(u' ');
}

ReadOnlyHome::ReadOnlyHome(const CClock& clock, const QString& home, const QString& settingsPath)
    : profile(tree, LoadText(Text::ProfileKeyName)),
      areSettingsOpen(tree.Open(settingsPath.isEmpty() ? u":memory:"_s : settingsPath)),
      settings(tree, profile, prompt, TheRegion(), LoadText(Text::BaseKeyPath)),
      precisions(settings),
      store(manager, prompt, DataSourceName()),
      document({store, views, pump, clock, settings}),
      timers(clock),
      recordTimers(timers, document, settings) {
    settings.KeepStoreUntouched();
    manager.m_directory = home;
    manager.m_fileName = LoadText(Text::StoreFileName);
    manager.m_mayCreate = false;
    manager.LeaveWithoutChecks();
}
