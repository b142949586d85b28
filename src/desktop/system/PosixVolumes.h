// SPDX-License-Identifier: MIT
#pragma once

#include "Descriptor.h"
#include "MountTable.h"
#include "Volumes.h"

#include <string>
#include <vector>

namespace desktop {

/// The mounted file systems according to the kernel's mount table, which is read again only after it has
/// changed.
class PosixVolumes final : public platform::Volumes
{
public:
    std::string FileSystemOf(const std::string& sFolder) override;

private:
    void ReadIfChanged();

    Descriptor m_table;
    std::vector<tMount> m_mounts;
};

} // namespace desktop
