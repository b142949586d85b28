// SPDX-License-Identifier: MIT
#pragma once

#include <cstdio>
#include <cstdlib>

/// Aborts if a required condition is false, so that the fuzzer saves the input.
inline void Require(bool bHolds, const char* pProperty)
{
    if (!bHolds) {
        std::fprintf(stderr, "does not hold: %s\n", pProperty);
        std::abort();
    }
}
