#pragma once

#include "records/CTRecord.h"
#include "support/TestHome.h"
#include "viewmodel/work/Work.h"

#include <QTest>

/// Records of work in a scratch home. The clock stands on Thursday, 19 November 2026, 9:00.
struct WorkRecords {
    TestHome home;

    /// What is left out isn't entered.
    struct Entered {
        QString client = {};
        QString project = {};
        QString activity = {};
        QString notes = {};
        QString start = {};
        QString currency = {};
        std::optional<float> rate = {};
    };
    QString Add(int year, int month, int day, const Entered& entered) {
        CTRecord record;
        record.Reset();
        record.date.Set(month, day, year);
        record.item1 = entered.client;
        record.item2 = entered.project;
        record.item3 = entered.activity;
        record.item5 = entered.currency;
        record.notes = entered.notes;
        DateTimeVal start;
        if (start.ParseTimeText(entered.start, true)) record.SetStart(start);
        if (entered.rate) {
            record.SetBillable(true);
            static_cast<void>(record.SetRate(*entered.rate));
        }
        QString id;
        [&] { QVERIFY(home.document->AddRecord(record, {Notify::Yes, Commit::Now, Identity::New}, &id)); }();
        return id;
    }
    QString Add(int day, const Entered& entered) { return Add(2026, 11, day, entered); }
    void Load() { home.document->LoadCurrentMode(); }
};
