// SPDX-License-Identifier: MIT
#pragma once

#include "Descriptor.h"

#include <string>

namespace desktop {

/// Opens folder `sPath` as a mere place (O_PATH), following no link anywhere on the way: ELOOP where one is.
/// Not open if that failed; `nError` then is the system's error number, otherwise 0.
Descriptor OpenFolder(const std::string& sPath, int& nError);

} // namespace desktop
