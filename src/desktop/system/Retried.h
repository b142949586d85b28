// SPDX-License-Identifier: MIT
#pragma once

#include <cerrno>

namespace desktop {

/// What a system call returns once no signal has interrupted it.
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
