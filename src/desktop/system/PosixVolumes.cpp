// SPDX-License-Identifier: MIT
#include "PosixVolumes.h"

#include <algorithm>
#include <fcntl.h>
#include <fstream>
#include <poll.h>

namespace desktop {

std::string PosixVolumes::FileSystemOf(const std::string& sFolder)
{
    ReadIfChanged();
    // The deepest mount point above the folder counts, and the last one of several at the same point.
    const tMount* pHolder = nullptr;
    for (const tMount& mount : m_mounts) {
        if (IsIn(sFolder, mount.sPoint) &&
            (pHolder == nullptr || mount.sPoint.size() >= pHolder->sPoint.size())) {
            pHolder = &mount;
        }
    }
    if (pHolder != nullptr) {
        return pHolder->sDevice;
    }
    // After chroot the root may not be a mount point, so the table may not contain the mount of the rest.
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
