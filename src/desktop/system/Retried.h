// SPDX-License-Identifier: MIT
#pragma once

#include <cerrno>

namespace desktop {

/// Repeats a system call while a signal interrupts it, and returns its result.
template <class Call>
auto Retried(const Call& call)
{
    auto result = call();
    while (result < 0 && errno == EINTR) {
        result = call();
    }
    return result;
}

} // namespace desktop
