// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>
#include <cstddef>

namespace desktop {

/// So many processors this process may keep busy: those it may run on, within what its control group is
/// given. At least one.
std::size_t UsableProcessors();

/// What a piece of a worker's work took, and how much of it went by in waiting for a disk or a network. Of
/// pieces that take next to no time only some are measured, which costs as much as listing a small folder.
class WorkTime
{
public:
    /// A piece begins now, on the calling thread.
    void Begin();

    /// It ends now. `nSteps`: how many times it may have had to wait.
    void End(std::size_t nSteps);

    std::chrono::nanoseconds took{}; ///< 0 if it was not measured
    std::chrono::nanoseconds waited{};

private:
    std::chrono::nanoseconds m_began{}, m_beganBusy{};
    long m_nBeganWaits = 0;
    unsigned m_nToSkip = 0; ///< so many pieces more are not measured
    bool m_bMeasured = false;
};

/// How many workers are worth having, from what their work turns out to be: those that wait leave the
/// processors to others.
class WorkerCount
{
public:
    explicit WorkerCount(std::size_t nAtFirst) : m_nWorkers(nAtFirst) {}

    /// Takes note of a piece of work done; returns how many workers there should be now.
    std::size_t Note(const WorkTime& time);

private:
    std::size_t m_nWorkers;
    std::chrono::nanoseconds m_took{}, m_waited{};
};

} // namespace desktop
