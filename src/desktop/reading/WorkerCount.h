// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>
#include <cstddef>

namespace desktop {

/// The number of processors that this process can keep busy, according to its affinity and the quota of its
/// control group. At least one.
std::size_t UsableProcessors();

/// Measures the duration of a piece of work, and the part of it spent waiting for a disk or a network. Very
/// short pieces are measured only now and then, since measuring costs as much as listing a small folder.
class WorkTime
{
public:
    /// Starts a piece of work on the calling thread.
    void Begin();

    /// Ends it. `nSteps` is the number of times it may have had to wait.
    void End(std::size_t nSteps);

    std::chrono::nanoseconds took{}; ///< 0 if it was not measured
    std::chrono::nanoseconds waited{};

private:
    std::chrono::nanoseconds m_began{}, m_beganBusy{};
    long m_nBeganWaits = 0;
    unsigned m_nToSkip = 0; ///< the number of pieces to skip before the next measurement
    bool m_bMeasured = false;
};

/// Determines the useful number of workers from their work so far: workers that wait leave processors free
/// for others.
class WorkerCount
{
public:
    explicit WorkerCount(std::size_t nAtFirst) : m_nWorkers(nAtFirst) {}

    /// Adds a finished piece of work; returns the current useful number of workers.
    std::size_t Note(const WorkTime& time);

private:
    std::size_t m_nWorkers;
    std::chrono::nanoseconds m_took{}, m_waited{};
};

} // namespace desktop
