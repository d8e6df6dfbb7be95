// A whole text file, imported into a scratch store. The first byte says which delimiters, kind and form, the
// second the encoding; then follows the file.
#include "Fuzz.h"
#include "FuzzTexts.h"
#include "app/CVelmarchApp.h"
#include "changes/CProgress.h"
#include "changes/CRecordChanges.h"
#include "changes/CTimersOfRecords.h"
#include "entry/CEnteredItems.h"
#include "exchange/import/CRecordImport.h"
#include "platform/host/CClock.h"
#include "platform/host/CMessagePump.h"
#include "platform/host/CPrompt.h"
#include "records/FieldDef.h"
#include "timers/CRecordTimers.h"

#include <QFile>
#include <QTemporaryDir>

namespace {

class CSilentPrompt final : public CPrompt {
 public:
    Answer Ask(const MessageBox& box) override { return box.defaultAnswer; }
    void Tell(const MessageBox&) override { Demand(false, "nothing fails"); }
    std::optional<QString> ChooseFile(const FileChoice&) override { return std::nullopt; }
};

/// A home of its own for the whole run; the records of an input go with the input.
struct Scratch {
    QTemporaryDir folder;
    CSystemClock clock;
    CSilentPrompt prompt;
    CNoPump pump;
    CNoViews views;
    CVelmarchApp app{{clock, prompt, pump, views}};
    ActiveTimerSet set{clock};
    std::optional<CRecordTimers> timers;
    std::optional<COwnTimers> ownTimers;
    CEnteredItems entered;
    CNoProgress progress;

    Scratch() {
        Demand(app.ResolveHome(folder.path()) && app.OpenSettings() && app.OpenStore(), "a home can be made");
        Demand(app.Catalogue().Load(), "its lists can be read");
        timers.emplace(set, app.Document(), app.Settings());
        ownTimers.emplace(*timers);
    }
    [[nodiscard]] CRecordChanges Changes() {
        return CRecordChanges({.document = app.Document(),
                               .timers = *ownTimers,
                               .catalogue = app.Catalogue(),
                               .entered = entered,
                               .settings = app.Settings(),
                               .prompt = prompt,
                               .progress = progress,
                               .partial = CRecordChanges::Partial::Kept});
    }
    void Empty(RecordKind kind) {
        CVOSrcMgr& manager = app.Document().Store().Manager();
        Demand(manager.Query(LoadText(Text::SqlDeleteFrom) + app.Document().Store().TableName(kind), true),
               "the records can be deleted");
    }
};

Delimiters DelimitersOf(int choice) {
    constexpr QStringView kQualifiers[] = {u"\"", u"'", u""}, kSeparators[] = {u",", u";", u"\t", u"\""};
    return {kQualifiers[choice % 3].toString(), kSeparators[choice / 3 % 4].toString(),
            choice / 12 % 2 == 0 ? QStringLiteral("\n") : QStringLiteral("|")};
}

ImportRequest RequestOf(int choice, int encoding) {
    constexpr const char* kEncodings[] = {"", "utf-8", "windows-1252", "utf-16le"};
    return {.kind = choice >= 128 ? RecordKind::Expense : RecordKind::Time,
            .form = {.delimiters = DelimitersOf(choice),
                     .form = choice / 24 % 2 == 0 ? RecordForm::Present : RecordForm::Older,
                     .clock24 = choice / 48 % 2 != 0},
            .encoding = kEncodings[encoding % 4],
            .addListItems = false};
}

ImportPlan LookAt(CRecordImport& import) {
    return import.Look({.goesOn = [](const RefusedLine&) { return true; }, .advance = {}});
}

void Import(Scratch& scratch, CTextFile& file, const ImportRequest& request) {
    CStoredContents stored(request.kind, request.form.form);
    CRecordImport import(file, request, stored);
    const ImportPlan plan = LookAt(import);
    Demand(plan.end == ImportPlan::End::Complete || plan.end == ImportPlan::End::Undecodable,
           "nobody ends it");
    Demand(plan.misread.size() <= static_cast<std::size_t>(plan.misreadCount), "what is named is counted");
    if (plan.end != ImportPlan::End::Complete) return;
    CRecordChanges changes = scratch.Changes();
    int added = 0;
    Demand(static_cast<bool>(import.Run(plan, changes, Hold::No, [&added](const QString&) { ++added; })),
           "what was looked at can be stored");
    Demand(added == plan.records, "what was announced is added");
    Demand(stored.Read(scratch.app.Document().Store()) == CStoredContents::ReadEnd::Complete,
           "what was stored can be read");
    const ImportPlan again = LookAt(import);
    Demand(again.records == plan.records && again.duplicates == plan.records,
           "what was imported is there, equal in every field");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    LoadTexts();
    static Scratch scratch;
    CInput input(data, size);
    const int choice = input.Byte(), encoding = input.Byte();
    const QString path = scratch.folder.filePath(QStringLiteral("import.csv"));
    {
        QFile out(path);
        Demand(out.open(QIODevice::WriteOnly) && out.write(input.Rest()) >= 0, "the input can be written");
    }
    const ImportRequest request = RequestOf(choice, encoding);
    CTextFile file;
    Demand(file.Open(path) == 0, "the input can be read");
    Import(scratch, file, request);
    scratch.Empty(request.kind);
    return 0;
}
