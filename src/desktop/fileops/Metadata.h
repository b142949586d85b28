// SPDX-License-Identifier: MIT
#pragma once

#include "Ending.h"
#include "FileIdentity.h"

namespace desktop {

/// Gives the open file `hTo` the owner, the extended attributes with the access control list, the mode and
/// the times of `hFrom`, whose state at the beginning is `status`. What the destination does not know or
/// permit is left out, but never so that somebody may do more with the copy than with the original: the
/// rights that would do that are left out as well. Done with a reason says what is to be known of that.
tEnding KeepMetadata(int hFrom, int hTo, const Status& status);

} // namespace desktop
