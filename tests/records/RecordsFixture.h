#pragma once

#include "lang/LoadText.h"
#include "platform/host/CRegionalInfo.h"
#include "records/CRecordStore.h"
#include "records/CTRecord.h"
#include "records/CVOSrcMgr.h"
#include "records/RecordFactory.h"
#include "support/CScriptedPrompt.h"

#include <QDir>
#include <QFileInfo>
#include <QTemporaryDir>
#include <QTest>

/// Region values as tests want them: dots, day order and separator given, 24 hours.
[[nodiscard]] inline CRegionalInfo Region24() {
    CRegionalInfo region;
    region.is24Hour = true;
    return region;
}

/// Where scratch stores lie: in memory where the machine offers that, since each commit waits for its disk.
[[nodiscard]] inline QString ScratchTemplate() {
    const QString memory = QStringLiteral("/dev/shm");
    return QDir(QFileInfo(memory).isWritable() ? memory : QDir::tempPath())
        .filePath(QStringLiteral("velmarch-test-XXXXXX"));
}

/// A scratch store with its four tables.
class RecordsFixture {
 public:
    RecordsFixture() : store(manager, prompt, QStringLiteral("velmarch")) {
        if (!Open(manager)) QTest::qFail(qPrintable(manager.m_error), __FILE__, __LINE__);
    }

    [[nodiscard]] QString Path() const {
        return QDir(folder.path()).filePath(QStringLiteral("velmarch.store"));
    }

    /// Opens a manager on the store, making the tables of a new one.
    [[nodiscard]] bool Open(CVOSrcMgr& which) {
        which.m_directory = folder.path();
        which.m_fileName = QStringLiteral("velmarch.store");
        which.m_busySeconds = 0;
        eActionDisposition source{};
        eActionDisposition second{};
        if (!which.InitDataSrc(source, second)) return false;
        if (source == eActionDisposition::Existed) return true;
        for (const RecordKind kind :
             {RecordKind::Time, RecordKind::Expense, RecordKind::PulldownItem, RecordKind::Dependency})
            if (!which.InitDataSrcTable(
                    CRecordStore(which, prompt, QStringLiteral("velmarch")).TableName(kind),
                    *NewRecord(kind)))
                return false;
        return true;
    }

    /// Number of rows that a statement gives, read through a connection of its own; -1 when it fails.
    [[nodiscard]] int Rows(const QString& statement) {
        CVOSrcMgr other;
        if (!Open(other) || !other.Query(statement, false)) return -1;
        RowTable rows;
        return other.m_recordset->GetRows(rows) ? static_cast<int>(rows.RowCount()) : -1;
    }
    [[nodiscard]] int TimeRows() { return Rows(QStringLiteral("SELECT * FROM time_velmarch")); }

    QTemporaryDir folder{ScratchTemplate()};
    CScriptedPrompt prompt;
    CVOSrcMgr manager;
    CRecordStore store;
};

/// A time record with an identity of its own.
[[nodiscard]] inline CTRecord NewTime(const QString& item = {}) {
    CTRecord record;
    record.GenUnique();
    record.date.Set(11, 19, 2026);
    record.item1 = item;
    return record;
}
