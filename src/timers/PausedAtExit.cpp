#include "timers/PausedAtExit.h"

#include "app/CVelmarchDoc.h"
#include "lang/FormatText.h"
#include "platform/host/CPrompt.h"
#include "records/CTRecord.h"
#include "timers/CRecordTimers.h"
#include "timers/TimerTexts.h"

namespace {

constexpr qsizetype kMostNamed = 8;

constexpr qsizetype kLongestNote = 60;

/// Client and project, as far as they are there, or else how the notes begin.
QString WorkOf(const CVORec* record) {
    if (!record) return LoadText(Text::PausedAtExitNoName);
    const auto& time = static_cast<const CTRecord&>(*record);
    if (time.item1.isEmpty() && time.item2.isEmpty()) {
        const QString note = time.notes.trimmed().section(u'\n', 0, 0).left(kLongestNote);
        return note.isEmpty() ? LoadText(Text::PausedAtExitNoName) : note;
    }
    if (time.item1.isEmpty() || time.item2.isEmpty()) return time.item1 + time.item2;
    return FormatText<Text::PausedAtExitWork>(time.item1, time.item2);
}

QString LinesOf(const QStringList& ids, CRecordTimers& timers, CVelmarchDoc& document) {
    QStringList lines;
    for (const QString& id : ids.first(qMin(ids.size(), kMostNamed)))
        lines.append(FormatText<Text::PausedAtExitLine>(LiveDurationText(timers.Set().Find(id), {}),
                                                        WorkOf(document.FetchRecord(RecordKind::Time, id))));
    if (ids.size() > kMostNamed)
        lines.append(FormatText<Text::PausedAtExitMore>(static_cast<int>(ids.size() - kMostNamed)));
    return lines.join(u'\n');
}

}  // namespace

void OfferPausedTimers(CRecordTimers& timers, CVelmarchDoc& document, CPrompt& prompt) {
    const QStringList ids = timers.TakePausedAtExit();
    if (ids.isEmpty()) return;
    const QString lines = LinesOf(ids, timers, document);
    const bool isOne = ids.size() == 1;
    const Answer answer =
        prompt.Ask({.textId = static_cast<int>(isOne ? Text::PausedAtExitOne : Text::PausedAtExitMany),
                    .title = LoadText(Text::PausedAtExitTitle),
                    .text = isOne ? FormatText<Text::PausedAtExitOne>(lines)
                                  : FormatText<Text::PausedAtExitMany>(static_cast<int>(ids.size()), lines),
                    .icon = BoxIcon::Question,
                    .buttons = Buttons::YesNo,
                    .defaultAnswer = Answer::No,
                    .actionLabel = LoadText(Text::PausedAtExitGoOn),
                    .otherLabel = LoadText(Text::PausedAtExitLeave)});
    if (answer != Answer::Yes) return;
    TellIfUnsaved(timers.GoOn(ids), timers.SaveError(), prompt);
}
