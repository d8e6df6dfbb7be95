#pragma once

#include <QString>
#include <vector>

class CClock;
class CVelmarchDoc;

/// What one examination found.
struct Finding {
    const char* name;
    bool isOk = true;
    QString detail;
    QString advice;  ///< what can be done; empty when all is well
};

/// Looks at a home from the language library to the timers and changes nothing in it. Each examination stands
/// on those before it: without a sound settings file the store isn't looked at, without a store no record.
class CDoctor {
 public:
    explicit CDoctor(const CClock& clock) : m_clock(clock) {}

    [[nodiscard]] const std::vector<Finding>& Examine(const QString& homeOption);

 private:
    [[nodiscard]] bool Note(const char* name, bool isOk, const QString& detail, const QString& advice = {});
    [[nodiscard]] bool ExamineHome(const QString& homeOption);
    [[nodiscard]] bool ExamineSettings(const QString& path);
    void ExamineData(const QString& settingsPath);

    const CClock& m_clock;
    QString m_home;
    std::vector<Finding> m_findings;
};
