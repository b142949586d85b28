// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

namespace platform {

/// The loop that delivers the user's input and brings changes to the screen.
class EventLoop
{
public:
    virtual ~EventLoop() = default;

    /// Yields once for `nSteps` steps of the caller's loop, so that handlers of pending events can run.
    /// A caller that passes over steps which do nothing yields for all of them at once.
    virtual void DoEvents(std::int64_t nSteps) = 0;
};

/// Yields for one step.
void DoEvents();

/// Yields for `nSteps` steps.
void DoEvents(std::int64_t nSteps);

} // namespace platform
