// SPDX-License-Identifier: MIT
#pragma once

#include "EventLoop.h"

#include <chrono>
#include <cstdint>
#include <functional>

namespace desktop {

/// Limits how often an event loop runs: a yield runs it if the last run is long enough ago and otherwise only
/// checks the clock, so that an operation can yield at every step.
class PacedEventLoop final : public platform::EventLoop
{
public:
    /// `runOnce` processes the pending events and returns.
    explicit PacedEventLoop(std::function<void()> runOnce);

    void DoEvents(std::int64_t nSteps) override;

private:
    std::function<void()> m_runOnce;
    std::chrono::nanoseconds m_lastRun{};
};

} // namespace desktop
