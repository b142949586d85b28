// SPDX-License-Identifier: MIT
#pragma once

#include "EventLoop.h"

#include <chrono>
#include <cstdint>
#include <functional>

namespace desktop {

/// Runs an event loop at a bearable pace: a yield runs it if the last run is some time ago, and otherwise
/// only looks at the clock, so that an operation can yield at every step.
class PacedEventLoop final : public platform::EventLoop
{
public:
    /// `runOnce` delivers what is pending and returns.
    explicit PacedEventLoop(std::function<void()> runOnce);

    void DoEvents(std::int64_t nSteps) override;

private:
    std::function<void()> m_runOnce;
    std::chrono::nanoseconds m_lastRun{};
};

} // namespace desktop
