// SPDX-License-Identifier: MIT
#pragma once

#include "Descriptor.h"
#include "MountTable.h"
#include "Volumes.h"

#include <string>

namespace desktop {

/// The mounted file systems according to the kernel's mount table, which is read again only after it has
/// changed. Labels come from sources that an ordinary user may read: the file system itself, then the labels
/// that the system has found on the disks.
class PosixVolumes final : public platform::Volumes
{
public:
    PosixVolumes();

    std::string FileSystemOf(const std::string& sFolder) override;
    platform::tVolumeLabel VolumeLabel(const std::string& sFolder) override;

private:
    Descriptor m_changes; ///< reports changes of the table
    MountTable m_mounts;
};

} // namespace desktop
