// SPDX-License-Identifier: MIT
#include "WriteLease.h"

#include "Retried.h"

#include <csignal>
#include <fcntl.h>

namespace desktop {

bool IsOpenForWriting(int h)
{
    // Whoever opens the file while the lease lasts has the system send this signal, which would end the
    // program.
    static const auto before = std::signal(SIGIO, SIG_IGN);
    static_cast<void>(before);
    if (Retried([&] { return fcntl(h, F_SETLEASE, F_RDLCK); }) != 0) {
        return errno == EAGAIN;
    }
    Retried([&] { return fcntl(h, F_SETLEASE, F_UNLCK); });
    return false;
}

} // namespace desktop
