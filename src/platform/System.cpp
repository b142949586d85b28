// SPDX-License-Identifier: MIT
#include "System.h"

namespace platform {
namespace {

tSystem g_system;

} // namespace

void UseSystem(const tSystem& system)
{
    g_system = system;
}

const tSystem& System()
{
    return g_system;
}

void DoEvents(std::int64_t nSteps)
{
    g_system.events->DoEvents(nSteps);
}

} // namespace platform
