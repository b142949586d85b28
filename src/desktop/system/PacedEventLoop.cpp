// SPDX-License-Identifier: MIT
#include "PacedEventLoop.h"

#include <ctime>
#include <utility>

namespace desktop {
namespace {

/// About one frame at a usual refresh rate: more runs would not be visible, fewer would be noticeable.
constexpr std::chrono::milliseconds kPace{20};

/// The time at the last tick of the system, at most 10 ms old: accurate enough here, and a sixth of the cost
/// of the exact time, which a search of many small files queries a million times.
std::chrono::nanoseconds Now()
{
    timespec now{};
    clock_gettime(CLOCK_MONOTONIC_COARSE, &now);
    return std::chrono::seconds(now.tv_sec) + std::chrono::nanoseconds(now.tv_nsec);
}

} // namespace

PacedEventLoop::PacedEventLoop(std::function<void()> runOnce) : m_runOnce(std::move(runOnce)) {}

void PacedEventLoop::DoEvents(std::int64_t /*nSteps*/)
{
    if (Now() - m_lastRun < kPace) {
        return;
    }
    m_runOnce();
    m_lastRun = Now();
}

} // namespace desktop
