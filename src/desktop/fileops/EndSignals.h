// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <csignal>
#include <signal.h>

namespace desktop {

/// Handles the signals that ask the program to end. During its lifetime they only cancel the operation; a
/// signal received is raised again at the end. There must be only one.
class EndSignals
{
public:
    EndSignals();
    EndSignals(const EndSignals&) = delete;
    EndSignals& operator=(const EndSignals&) = delete;
    ~EndSignals();

    /// True if a signal has arrived.
    static bool Arrived();

    /// Pass false while the user is asked a question: no work is in progress then, so a signal has its
    /// original effect at once.
    static void Wait(bool bWait);

private:
    static constexpr std::array kSignals{SIGTERM, SIGINT, SIGHUP};
    std::array<struct sigaction, kSignals.size()> m_before{};
};

} // namespace desktop
