// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>
#include <cstddef>

namespace desktop {

/// So many processors this process may keep busy: those it may run on, within what its control group is
/// given. At least one.
std::size_t UsableProcessors();

/// What a piece of a worker's work took, and how much of it went by in waiting for a disk or a network.
class WorkTime
{
public:
    WorkTime(); ///< begins now, for the calling thread

    /// Ends now. `nSteps`: how many times it may have had to wait.
    void End(std::size_t nSteps);

    std::chrono::nanoseconds took{};
    std::chrono::nanoseconds waited{};

private:
    std::chrono::nanoseconds m_began, m_beganBusy;
    long m_nBeganWaits;
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
