#pragma once

#include "torture/CFaultInjector.h"
#include "torture/FaultHome.h"

#include <QStringList>
#include <functional>
#include <utility>

/// Makes each call to the system of one change fail, in each of the ways that there are, each time from the
/// same home; in the short form some of the calls.
class CFaultWalk {
 public:
    /// Makes the change. It calls begin where its calls are to fail from on.
    using Change = std::function<void(const std::function<void()>& begin)>;
    /// What is wrong with that which came of it, once nothing fails any more.
    using Judge = std::function<QStringList()>;

    /// sample: about how many of the calls in the short form.
    CFaultWalk(CFaultInjector& disk, const FaultHome& home, int sample)
        : m_disk(disk), m_home(home), m_sample(sample) {}

    /// What the change is called.
    void Name(const QString& name) { m_name = name; }
    /// Each call fails once, and all from it on.
    void FailCalls(const Change& change, const Judge& judge);
    /// The files may grow by no page, by one, by two, up to as many as the change needs.
    void FillDisk(const Change& change, const Judge& judge);

    /// Counts a change that was made to fail in another way, and what is wrong with what came of it.
    void Look(const Judge& judge, const QString& what);

    [[nodiscard]] QStringList TakeComplaints() { return std::exchange(m_complaints, {}); }
    [[nodiscard]] int Runs() const { return m_runs; }
    [[nodiscard]] int FailedRuns() const { return m_failedRuns; }

 private:
    /// What a change asked of the disk.
    struct Met {
        int calls;
        qint64 growth;
    };
    [[nodiscard]] Met Make(const Change& change, const std::function<void()>& arm);
    [[nodiscard]] static bool IsLong();
    [[nodiscard]] bool IsSampled(int call, int calls) const;

    CFaultInjector& m_disk;
    const FaultHome& m_home;
    int m_sample;
    QString m_name;
    int m_runs = 0, m_failedRuns = 0;
    QStringList m_complaints;
};
