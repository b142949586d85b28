// SPDX-License-Identifier: MIT
#pragma once

#include "cCRC.h"

namespace search {

/// Search Now: by content if mnuOptionsSearchContent is checked, else by name.
void mnuSearchFind_Click();

/// Finds the files of equal names or, with mnuOptionsSearchNameSize checked, of equal names and sizes in the
/// folders of lvFolders, and lists each group of them as adjacent rows of lvFiles. Letter case is ignored.
/// Stops when bStopped is set and keeps what it has listed by then.
void FindDuplicatesByName();

/// The same for files of equal size and equal CRC-32, whatever their names. Each file is read at most once,
/// and only if another one has its size; one that cannot be read counts as having the checksum 0.
void FindDuplicatesByContent();

/// The one checksum engine.
cCRC& oCRC();

} // namespace search
