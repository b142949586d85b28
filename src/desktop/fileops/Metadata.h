#pragma once

#include "FolderEntry.h"

namespace desktop {

/// Gives the open file `hTo` the owner, the extended attributes with the access control list, the mode and
/// the times of `hFrom`, whose state at the beginning is `status`. What the destination does not know or
/// permit is left out, as copying tools do; without the owner the set-user and set-group bits go as well. 0,
/// or the system's error number if something else went wrong.
int KeepMetadata(int hFrom, int hTo, const Status& status);

} // namespace desktop
