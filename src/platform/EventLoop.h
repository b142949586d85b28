// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

namespace platform {

/// Delivers the user's input and updates the screen.
class EventLoop
{
public:
    virtual ~EventLoop() = default;

    /// Yields once for `nSteps` steps of the caller's loop, so that handlers of pending events can run. A
    /// caller that skips steps without effect yields once for all of them.
    virtual void DoEvents(std::int64_t nSteps) = 0;
};

/// Yields for `nSteps` steps.
void DoEvents(std::int64_t nSteps = 1);

} // namespace platform
