#pragma once

#include "cli/doctor/Finding.h"

#include <vector>

class CClock;
struct ReadOnlyHome;

/// Looks at a home from the language library to what lies in the records. It changes nothing in it, but that
/// the settings note a damaged store. What can't be looked at, because the file that it lies in can't be
/// read, is named as not checked.
class CDoctor {
 public:
    explicit CDoctor(const CClock& clock) : m_clock(clock) {}

    [[nodiscard]] const std::vector<Finding>& Examine(const QString& homeOption);
    /// Whether the store's file is damaged: another trouble with it ("read-only") is none of that.
    [[nodiscard]] bool IsStoreDamaged() const { return m_isStoreDamaged; }

 private:
    enum class Store { Absent, Readable, Unreadable };

    void Note(const Finding& finding);
    [[nodiscard]] bool ExamineHome(const QString& homeOption);
    /// Whether the settings can be read.
    [[nodiscard]] bool ExamineSettings(const QString& path);
    [[nodiscard]] Store ExamineStore(ReadOnlyHome& reader);
    void ExamineHistory(const QString& path);
    void NoteDamage(ReadOnlyHome& reader);
    void ExamineData(ReadOnlyHome& reader, bool canReadSettings, Store store);

    const CClock& m_clock;
    QString m_home;
    bool m_isStoreDamaged = false;
    std::vector<Finding> m_findings;
};
