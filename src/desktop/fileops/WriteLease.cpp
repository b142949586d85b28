// SPDX-License-Identifier: MIT
#include "WriteLease.h"

#include "Retried.h"

#include <csignal>
#include <fcntl.h>

namespace desktop {

WriteLease::WriteLease(int h) : m_h(h)
{
    // When another process opens the file during the lease, the system sends this signal, which would end the
    // program.
    static const auto before = std::signal(SIGIO, SIG_IGN);
    static_cast<void>(before);
    m_bHeld = Retried([&] { return fcntl(h, F_SETLEASE, F_RDLCK); }) == 0;
    m_bRefused = !m_bHeld && errno == EAGAIN;
}

WriteLease::~WriteLease()
{
    if (m_bHeld) {
        Retried([&] { return fcntl(m_h, F_SETLEASE, F_UNLCK); });
    }
}

bool WriteLease::IsOpenForWriting() const
{
    return m_bRefused || (m_bHeld && fcntl(m_h, F_GETLEASE) != F_RDLCK);
}

} // namespace desktop
