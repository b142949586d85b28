// SPDX-License-Identifier: MIT
#include "HeldFolder.h"

#include "Retried.h"
#include "SystemCalls.h"

#include <fcntl.h>
#include <utility>

namespace desktop {

HeldFolder::HeldFolder(std::string sPath) : m_sPath(std::move(sPath))
{
    m_folder = OpenFolder(m_sPath, m_look.nError);
    if (m_folder.IsOpen()) {
        m_look = LookAt(m_folder.Get());
    }
}

bool HeldFolder::IsWhereItWas() const
{
    int nError = 0;
    const Descriptor now = OpenFolder(m_sPath, nError);
    return now.IsOpen() && LookAt(now.Get()).IsSameFileAs(m_look);
}

Descriptor Reopened(int hFolder)
{
    return Descriptor(Retried([&] { return openat(hFolder, ".", O_RDONLY | O_DIRECTORY | O_CLOEXEC); }));
}

} // namespace desktop
