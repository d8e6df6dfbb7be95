#pragma once

#include "cli/doctor/Finding.h"

#include <vector>

class CClock;
struct ReadOnlyHome;

/// Looks at a home from the language library to what lies in the records and changes nothing in it. What
/// can't be looked at, because the file that it lies in can't be read, is named as not checked.
class CDoctor {
 public:
    explicit CDoctor(const CClock& clock) : m_clock(clock) {}

    [[nodiscard]] const std::vector<Finding>& Examine(const QString& homeOption);

 private:
    enum class Store { Absent, Readable, Unreadable };

    void Note(const Finding& finding);
    [[nodiscard]] bool ExamineHome(const QString& homeOption);
    /// Whether the settings can be read.
    [[nodiscard]] bool ExamineSettings(const QString& path);
    [[nodiscard]] Store ExamineStore(ReadOnlyHome& reader);
    void ExamineData(ReadOnlyHome& reader, bool canReadSettings, Store store);

    const CClock& m_clock;
    QString m_home;
    std::vector<Finding> m_findings;
};
