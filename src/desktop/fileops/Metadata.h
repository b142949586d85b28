// SPDX-License-Identifier: MIT
#pragma once

#include "Ending.h"
#include "FileIdentity.h"

namespace desktop {

/// Copies owner, extended attributes with the access control list, mode and times of `hFrom`, whose initial
/// state is `status`, to the open file `hTo`. What the destination does not support or permit is left out.
/// Nobody gets more rights on the copy than on the original: rights that would cause that are left out as
/// well, and Done then has a reason that says so.
tEnding KeepMetadata(int hFrom, int hTo, const Status& status);

} // namespace desktop
