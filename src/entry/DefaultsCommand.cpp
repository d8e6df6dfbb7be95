#include "entry/DefaultsCommand.h"

#include "config/CCfgStore.h"
#include "config/ColumnCommand.h"
#include "config/SettingCommand.h"
#include "entry/NamedDefaults.h"
#include "lang/FormatText.h"
#include "records/RecordFactory.h"

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int kFailed = 1;
constexpr int kUsage = 2;
constexpr int kNotFound = 4;

QJsonObject Refusal(int exitCode, const QString& words) {
    return {{u"ok"_s, false}, {u"exit"_s, exitCode}, {u"error"_s, words}};
}

QJsonObject Outcome(bool isDone, CCfgStore& settings) {
    if (isDone) return {{u"ok"_s, true}};
    return Refusal(kFailed, FormatText<Text::DefaultNotSaved>(settings.Tree().Error()));
}

QJsonObject Write(const QJsonObject& command, RecordMode mode, NamedDefaults& defaults, CCfgStore& settings) {
    const QByteArray bytes = QByteArray::fromBase64(command[u"record"].toString().toLatin1());
    const std::unique_ptr<CVORec> record = NewRecord(KindOf(mode));
    if (!record->FromBytes(bytes, false)) return Refusal(kUsage, LoadText(Text::RequestUnknown));
    // Said here, as a window would say it in a box of its own.
    if (bytes.size() > CCfgStore::kMostOfValue)
        return Refusal(kFailed, FormatText<Text::DefaultTooLarge>(static_cast<int>(bytes.size()),
                                                                  CCfgStore::kMostOfValue));
    return Outcome(defaults.Write(command[u"name"].toString(), *record), settings);
}

}  // namespace

QJsonObject RunDefaultsCommand(const QJsonObject& command, CCfgStore& settings, const CClock& clock) {
    const QString kind = command[u"defaults"].toString(), action = command[u"action"].toString();
    const QString name = command[u"name"].toString();
    if ((kind != u"time" && kind != u"expense") || name.isEmpty() || NamedDefaults::LooksReserved(name))
        return Refusal(kUsage, LoadText(Text::RequestUnknown));
    const RecordMode mode = kind == u"time" ? RecordMode::Time : RecordMode::Expense;
    NamedDefaults defaults(settings, clock, mode);
    if (action == u"write") return Write(command, mode, defaults, settings);
    if (action != u"delete" && action != u"rename") return Refusal(kUsage, LoadText(Text::RequestUnknown));
    const auto stored = defaults.FindName(name);
    if (!stored) return Refusal(kNotFound, FormatText<Text::CliNoSuchDefault>(name));
    return Outcome(settings.Profile().Change([&] {
        return action == u"delete" ? defaults.Delete(*stored)
                                   : defaults.Rename(*stored, command[u"to"].toString());
    }),
                   settings);
}

QJsonObject RunSettingsRequest(const QJsonObject& command, CCfgStore& settings, const CClock& clock) {
    if (command.contains(u"defaults"_s)) return RunDefaultsCommand(command, settings, clock);
    if (command.contains(u"columns"_s)) return RunColumnCommand(command, settings);
    return RunSettingCommand(command, settings);
}
