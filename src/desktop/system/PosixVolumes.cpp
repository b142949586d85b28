// SPDX-License-Identifier: MIT
#include "PosixVolumes.h"

#include <fcntl.h>
#include <fstream>
#include <poll.h>

namespace desktop {

std::string PosixVolumes::FileSystemOf(const std::string& sFolder)
{
    ReadIfChanged();
    if (const tMount* const pHolder = HolderOf(m_mounts, sFolder)) {
        return pHolder->sDevice;
    }
    return sFolder.starts_with('/') ? "/" : "";
}

void PosixVolumes::ReadIfChanged()
{
    // The kernel reports a change of the table as an error condition on a descriptor opened earlier.
    if (m_table.IsOpen()) {
        pollfd changed{m_table.Get(), POLLPRI, 0};
        if (poll(&changed, 1, 0) == 0) {
            return;
        }
    } else {
        m_table = Descriptor(open(kMountInfo, O_RDONLY | O_CLOEXEC));
    }
    std::ifstream mountInfo(kMountInfo);
    m_mounts = ReadMountTable(mountInfo);
}

} // namespace desktop
