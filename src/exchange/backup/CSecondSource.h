#pragma once

#include "records/CRecordStore.h"
#include "records/CVOSrcMgr.h"

#include <QString>

/// A second connection to the records of a home, which stay open in the first one: for what reads or writes
/// all of them. Makes nothing.
class CSecondSource {
 public:
    CSecondSource(const QString& home, CPrompt& prompt);

    /// False when there is no store or it can't be opened; Manager().m_error says why.
    [[nodiscard]] bool Open();
    [[nodiscard]] CVOSrcMgr& Manager() { return m_manager; }
    [[nodiscard]] CRecordStore& Store() { return m_store; }

    /// What is wrong with the file, or with single records, in words; empty when it is sound.
    [[nodiscard]] QString FindDamage();
    /// The number of records in all tables; nothing when they can't be counted.
    [[nodiscard]] std::optional<int> CountRecords();

 private:
    [[nodiscard]] std::optional<int> CountOf(RecordKind kind);

    CVOSrcMgr m_manager;
    CRecordStore m_store;
};

/// While it lives, everything that a source reads is of one moment: no other program changes the store.
class [[nodiscard]] ReadMoment {
 public:
    explicit ReadMoment(CVOSrcMgr& source);
    ~ReadMoment();
    ReadMoment(const ReadMoment&) = delete;
    ReadMoment& operator=(const ReadMoment&) = delete;
    [[nodiscard]] bool IsOpen() const { return m_isOpen; }

 private:
    CVOSrcMgr& m_source;
    bool m_isOwn;  ///< not within a change, which is of one moment anyway
    bool m_isOpen;
};
