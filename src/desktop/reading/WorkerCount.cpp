// SPDX-License-Identifier: MIT
#include "WorkerCount.h"

#include "BufferPool.h"

#include <algorithm>
#include <cmath>
#include <ctime>
#include <fstream>
#include <optional>
#include <sched.h>
#include <string>
#include <sys/resource.h>

namespace desktop {
namespace {

/// The amount of work by each worker after which the number of workers is reviewed.
constexpr std::chrono::milliseconds kEnough{2};

/// After a piece of work shorter than kShort, the next kSkipped ones are not measured.
constexpr std::chrono::microseconds kShort{200};
constexpr unsigned kSkipped = 15;

std::chrono::nanoseconds Clock(clockid_t clock)
{
    timespec now{};
    clock_gettime(clock, &now);
    return std::chrono::seconds(now.tv_sec) + std::chrono::nanoseconds(now.tv_nsec);
}

/// How often the calling thread has given up its processor to wait (voluntary context switches).
long Waits()
{
    rusage usage{};
    getrusage(RUSAGE_THREAD, &usage);
    return usage.ru_nvcsw;
}

std::size_t ProcessorsOfAffinity()
{
    cpu_set_t set;
    CPU_ZERO(&set);
    if (sched_getaffinity(0, sizeof set, &set) != 0) {
        return 1; // more processors than fit in the set, or an error
    }
    return static_cast<std::size_t>(CPU_COUNT(&set));
}

/// The processor quota of the control group `sGroup`, as a number of processors. The file contains "max", or
/// microseconds per period.
std::optional<double> QuotaOf(const std::string& sGroup)
{
    double dQuota = 0;
    double dPeriod = 0;
    if (std::ifstream(sGroup + "/cpu.max") >> dQuota >> dPeriod && dQuota > 0 && dPeriod > 0) {
        return dQuota / dPeriod;
    }
    return std::nullopt;
}

/// The smallest quota of this process's control group and its parents.
std::optional<double> Quota()
{
    std::ifstream groups("/proc/self/cgroup");
    std::optional<double> least;
    for (std::string sLine; std::getline(groups, sLine);) {
        if (!sLine.starts_with("0::/")) {
            continue;
        }
        for (std::string sGroup = sLine.substr(3); !sGroup.empty();
             sGroup.resize(std::min(sGroup.size() - 1, sGroup.rfind('/')))) {
            const auto quota = QuotaOf("/sys/fs/cgroup" + sGroup);
            if (quota && (!least || *quota < *least)) {
                least = quota;
            }
        }
    }
    return least;
}

} // namespace

std::size_t UsableProcessors()
{
    std::size_t nProcessors = ProcessorsOfAffinity();
    if (const auto quota = Quota()) {
        nProcessors = std::min(nProcessors, static_cast<std::size_t>(std::ceil(*quota)));
    }
    return std::clamp<std::size_t>(nProcessors, 1, kMaxWorkers);
}

void WorkTime::Begin()
{
    took = waited = {};
    m_bMeasured = m_nToSkip == 0;
    if (!m_bMeasured) {
        --m_nToSkip;
        return;
    }
    m_began = Clock(CLOCK_MONOTONIC);
    m_beganBusy = Clock(CLOCK_THREAD_CPUTIME_ID);
    m_nBeganWaits = Waits();
}

void WorkTime::End(std::size_t nSteps)
{
    if (!m_bMeasured) {
        return;
    }
    took = Clock(CLOCK_MONOTONIC) - m_began;
    constexpr std::size_t kStepsPerWait = 4;
    // A thread that merely shares its processor is preempted and does not give it up voluntarily.
    if (static_cast<std::size_t>(Waits() - m_nBeganWaits) * kStepsPerWait >= nSteps) {
        waited = took - (Clock(CLOCK_THREAD_CPUTIME_ID) - m_beganBusy);
    }
    m_nToSkip = took < kShort ? kSkipped : 0;
}

std::size_t WorkerCount::Note(const WorkTime& time)
{
    m_took += time.took;
    m_waited += time.waited;
    if (m_took > kEnough * m_nWorkers) {
        if (m_waited > m_took / 2) {
            m_nWorkers = std::min(2 * m_nWorkers, kMaxWorkers);
        }
        m_took = m_waited = {};
    }
    return m_nWorkers;
}

} // namespace desktop
