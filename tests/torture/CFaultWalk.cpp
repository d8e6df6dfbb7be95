#include "torture/CFaultWalk.h"

#include <algorithm>
#include <limits>

using namespace Qt::Literals::StringLiterals;

namespace {

struct FaultRow {
    const char* name;
    Fault fault;
    Lasting lasting;
};
constexpr FaultRow kFaults[] = {
    {"one call fails", Fault::DiskError, Lasting::OneCall},
    {"all calls fail", Fault::DiskError, Lasting::FromThenOn},
    {"a page can't be read", Fault::Unreadable, Lasting::OneCall},
    {"nothing can be read", Fault::Unreadable, Lasting::FromThenOn},
    {"the disk is full for a moment", Fault::DiskFull, Lasting::OneCall},
    {"the disk is full", Fault::DiskFull, Lasting::FromThenOn},
    {"there is no lock for a moment", Fault::NoLocks, Lasting::OneCall},
    {"there are no locks", Fault::NoLocks, Lasting::FromThenOn},
    {"another program reads", Fault::Reader, Lasting::FromThenOn},
};

constexpr qint64 kPage = 4096;
constexpr qint64 kEndless = std::numeric_limits<qint64>::max() / 2;

}  // namespace

bool CFaultWalk::IsLong() {
    return qEnvironmentVariableIsSet("VELMARCH_LONG_TESTS");
}

/// Others for each change, so that together they come to most of the calls.
bool CFaultWalk::IsSampled(int call, int calls) const {
    const int stride = IsLong() ? 1 : std::max(1, calls / m_sample);
    return (call + m_name.size()) % stride == 0;
}

void CFaultWalk::FailCalls(const Change& change, const Judge& judge) {
    for (const FaultRow& row : kFaults) {
        const int calls = Make(change, [&] { m_disk.Arm(row.fault, row.lasting, 0); }).calls;
        for (int call = 1; call <= calls; ++call) {
            if (!IsSampled(call, calls)) continue;
            (void)Make(change, [&] { m_disk.Arm(row.fault, row.lasting, call); });
            Look(judge, u"%1, call %2 of %3"_s.arg(QLatin1String(row.name)).arg(call).arg(calls));
        }
    }
}

void CFaultWalk::FillDisk(const Change& change, const Judge& judge) {
    const qint64 bytes = Make(change, [&] { m_disk.ArmDisk(kEndless); }).growth;
    const int pages = static_cast<int>(bytes / kPage);
    for (int page = 0; page <= pages; ++page) {
        if (!IsSampled(page, pages)) continue;
        (void)Make(change, [&] { m_disk.ArmDisk(page * kPage); });
        Look(judge, u"a disk with room for %1 of %2 pages"_s.arg(page).arg(pages));
    }
}

CFaultWalk::Met CFaultWalk::Make(const Change& change, const std::function<void()>& arm) {
    if (!m_home.Renew()) m_complaints += u"the home can't be copied"_s;
    change(arm);
    m_disk.Disarm();
    return {m_disk.Calls(), m_disk.MostGrowth()};
}

void CFaultWalk::Look(const Judge& judge, const QString& what) {
    ++m_runs;
    const QStringList wrong = judge();
    if (!wrong.isEmpty()) ++m_failedRuns;
    for (const QString& why : wrong) m_complaints += u"%1: %2: %3"_s.arg(m_name, what, why);
}
