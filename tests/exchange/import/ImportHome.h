#pragma once

#include "changes/CProgress.h"
#include "changes/CRecordChanges.h"
#include "changes/CTimersOfRecords.h"
#include "entry/CEnteredItems.h"
#include "exchange/import/CRecordImport.h"
#include "fields/ListId.h"
#include "records/CERecord.h"
#include "records/CTRecord.h"
#include "support/TestHome.h"
#include "timers/CRecordTimers.h"

#include <QFile>

/// A home with a file to import, and the changes by which that is done.
struct ImportHome {
    explicit ImportHome(const CRegionalInfo& region = {}) : home(region) {}

    TestHome home;
    ActiveTimerSet set{home.clock};
    CRecordTimers timers{set, *home.document, *home.settings};
    COwnTimers ownTimers{timers};
    CNoProgress progress;
    CEnteredItems entered;
    CRecordChanges changes{{.document = *home.document,
                            .timers = ownTimers,
                            .catalogue = *home.catalogue,
                            .entered = entered,
                            .settings = *home.settings,
                            .prompt = home.prompt,
                            .progress = progress,
                            .partial = CRecordChanges::Partial::Kept}};
    CTextFile file;
    CStoredContents stored{RecordKind::Time, RecordForm::Present};

    [[nodiscard]] QString Path() const { return home.Path() + QStringLiteral("/import.csv"); }
    void Write(const QByteArray& content) const {
        QFile out(Path());
        [&] { QVERIFY(out.open(QIODevice::WriteOnly) && out.write(content) == content.size()); }();
    }
    void Open(const QByteArray& content) {
        Write(content);
        [&] { QCOMPARE(file.Open(Path()), 0); }();
    }
    [[nodiscard]] static ImportRequest Request(RecordKind kind = RecordKind::Time) {
        return {.kind = kind, .form = {.delimiters = PresetDelimiters()}};
    }
    /// Beside what is stored now.
    [[nodiscard]] CRecordImport Importing(const ImportRequest& request) {
        ReadStored(request);
        return {file, request, stored};
    }
    void ReadStored(const ImportRequest& request) {
        stored = CStoredContents(request.kind, request.form.form);
        [&] { QVERIFY(stored.Read(*home.store) == CStoredContents::ReadEnd::Complete); }();
    }
    /// With the lines that were asked about.
    [[nodiscard]] ImportPlan Look(CRecordImport& import,
                                  const std::function<bool(const RefusedLine&)>& goesOn = {}) {
        return import.Look(
            {.goesOn = goesOn ? goesOn : [](const RefusedLine&) { return true; }, .advance = {}});
    }
    [[nodiscard]] std::size_t Stored(RecordKind kind = RecordKind::Time) {
        home.document->LoadRecords(kind);
        return home.document->RecordCount();
    }
    /// The first items of what is stored, in their order.
    [[nodiscard]] QStringList Items(RecordKind kind = RecordKind::Time) {
        home.document->LoadRecords(kind);
        home.document->BuildVisible();
        QStringList items;
        home.document->ForEachVisible([&](const CVORec& record) {
            items.append(kind == RecordKind::Time ? static_cast<const CTRecord&>(record).item1
                                                  : static_cast<const CERecord&>(record).item1);
        });
        items.sort();
        return items;
    }
};
