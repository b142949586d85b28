// SPDX-License-Identifier: MIT
#include "EndSignals.h"

#include <atomic>

namespace desktop {
namespace {

std::atomic<int> g_nArrived{0};
std::atomic<bool> g_bWait{false};
static_assert(std::atomic<int>::is_always_lock_free && std::atomic<bool>::is_always_lock_free);

extern "C" void OnEndSignal(int nSignal)
{
    g_nArrived = nSignal;
    if (!g_bWait) {
        struct sigaction plain = {};
        plain.sa_handler = SIG_DFL;
        sigaction(nSignal, &plain, nullptr);
        raise(nSignal);
    }
}

} // namespace

EndSignals::EndSignals()
{
    g_nArrived = 0;
    g_bWait = true;
    for (std::size_t n = 0; n < kSignals.size(); ++n) {
        struct sigaction waits = {};
        waits.sa_handler = OnEndSignal;
        waits.sa_flags = SA_RESTART;
        sigaction(kSignals[n], nullptr, &m_before[n]);
        // Signals that were ignored when the program started stay ignored.
        if (m_before[n].sa_handler != SIG_IGN) {
            sigaction(kSignals[n], &waits, nullptr);
        }
    }
}

EndSignals::~EndSignals()
{
    for (std::size_t n = 0; n < kSignals.size(); ++n) {
        sigaction(kSignals[n], &m_before[n], nullptr);
    }
    if (g_nArrived != 0) {
        raise(g_nArrived);
    }
}

bool EndSignals::Arrived()
{
    return g_nArrived != 0;
}

void EndSignals::Wait(bool bWait)
{
    g_bWait = bWait;
}

} // namespace desktop
