// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <csignal>
#include <signal.h>

namespace desktop {

/// The signals that ask the program to end. While this lives they only ask for a cancel; whoever sent one
/// gets what he wanted when it ends. There is one at a time.
class EndSignals
{
public:
    EndSignals();
    EndSignals(const EndSignals&) = delete;
    EndSignals& operator=(const EndSignals&) = delete;
    ~EndSignals();

    /// True if one has come.
    static bool Arrived();

    /// While the user is asked, nothing is in the works: with false a signal does at once what it did before.
    static void Wait(bool bWait);

private:
    static constexpr std::array kSignals{SIGTERM, SIGINT, SIGHUP};
    std::array<struct sigaction, kSignals.size()> m_before{};
};

} // namespace desktop
