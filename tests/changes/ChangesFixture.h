#pragma once

#include "changes/CProgress.h"
#include "changes/CRecordChanges.h"
#include "changes/CTimersOfRecords.h"
#include "entry/CEnteredItems.h"
#include "platform/sqlite/CSqliteFile.h"
#include "support/TestHome.h"
#include "timers/CRecordTimers.h"

#include <QTest>

/// A scratch home with what changes its records, wired as the programs wire it.
template <class Progress = CNoProgress>
struct ChangesFixture {
    CRecordChanges::Partial partial = CRecordChanges::Partial::Kept;
    TestHome home{};
    ActiveTimerSet set{home.clock};
    CRecordTimers timers{set, *home.document, *home.settings};
    COwnTimers ownTimers{timers};
    CEnteredItems entered{};
    Progress progress{};
    CRecordChanges changes{{.document = *home.document,
                            .timers = ownTimers,
                            .catalogue = *home.catalogue,
                            .entered = entered,
                            .settings = *home.settings,
                            .prompt = home.prompt,
                            .progress = progress,
                            .partial = partial}};

    explicit ChangesFixture(CRecordChanges::Partial whatStays = CRecordChanges::Partial::Kept)
        : partial(whatStays) {}

    void Load() {
        home.document->LoadRecords(RecordKind::Time);
        home.document->BuildVisible();
        home.views.seen.clear();
    }
    void Run(const QByteArray& sql) {
        [&] { QVERIFY2(home.manager.File().Execute(sql), sql.constData()); }();
    }
    /// From here on the commit of such a change of a time record fails.
    void FailCommits(const QByteArray& change) {
        Run("PRAGMA foreign_keys=ON");
        Run("CREATE TABLE parent(id INTEGER PRIMARY KEY)");
        Run("CREATE TABLE child(id INTEGER REFERENCES parent(id) DEFERRABLE INITIALLY DEFERRED)");
        Run("CREATE TRIGGER refuse AFTER " + change +
            " ON time_velmarch BEGIN INSERT INTO child VALUES(1); END");
    }
    void MendCommits() { Run("DROP TRIGGER refuse"); }
};
