// SPDX-License-Identifier: MIT
#pragma once

#include <cstdio>
#include <cstdlib>

/// Ends the run, so that the fuzzer keeps the input, if something that must hold does not.
inline void Require(bool bHolds, const char* pProperty)
{
    if (!bHolds) {
        std::fprintf(stderr, "does not hold: %s\n", pProperty);
        std::abort();
    }
}
