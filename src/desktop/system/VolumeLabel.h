// SPDX-License-Identifier: MIT
#pragma once

#include "ShellDialogs.h"

#include <string>

namespace desktop {

/// The label of the file system that contains folder `sFolder`, from sources that an ordinary user may read:
/// the file system itself, then the labels that the system has found on the disks.
platform::tVolumeLabel VolumeLabel(const std::string& sFolder);

} // namespace desktop
