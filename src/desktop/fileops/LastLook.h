// SPDX-License-Identifier: MIT
#pragma once

#include "Ending.h"

namespace desktop {

/// Has the last word on a file that goes to the trash.
class LastLook
{
public:
    virtual ~LastLook() = default;

    /// Right before it goes: done, or why it is to stay. `hFile` is the held file, open as a mere place
    /// (O_PATH).
    virtual tEnding Before(int hFile) = 0;

    /// Right behind that: done, or why it is to come back.
    virtual tEnding After() = 0;
};

} // namespace desktop
