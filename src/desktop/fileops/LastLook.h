// SPDX-License-Identifier: MIT
#pragma once

#include "Ending.h"

namespace desktop {

/// A final check on a file that goes to the trash.
class LastLook
{
public:
    virtual ~LastLook() = default;

    /// Called right before: Done, or the reason why it has to stay. `hFile` is the held file (O_PATH).
    virtual tEnding Before(int hFile) = 0;

    /// Called right after: Done, or the reason why it has to come back.
    virtual tEnding After() = 0;
};

} // namespace desktop
