// SPDX-License-Identifier: MIT
#pragma once

#include "Descriptor.h"

#include <string>

namespace desktop {

/// Opens folder `sPath` with O_PATH without following links anywhere on the path: ELOOP if there is one. Not
/// open on failure. Sets `nError` to the error number, or to 0.
Descriptor OpenFolder(const std::string& sPath, int& nError);

} // namespace desktop
