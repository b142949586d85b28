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
    // The deepest mount on the way to the folder holds it; of two at one point, the one that came last.
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
    // In a root that is no mount of its own, as a changed one is, the table does not have what holds the
    // rest.
    return sFolder.starts_with('/') ? "/" : "";
}

void PosixVolumes::ReadIfChanged()
{
    // The kernel reports a change of the table as an error on a descriptor that was open before.
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
