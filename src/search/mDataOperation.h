// SPDX-License-Identifier: MIT
#pragma once

#include "cCRC.h"

namespace search {

/// Search Now: by content if mnuOptionsSearchContent is checked, otherwise by name.
void mnuSearchFind_Click();

/// Finds the files with equal names or, with mnuOptionsSearchNameSize checked, equal names and sizes in the
/// folders of lvFolders, and lists each group as adjacent rows of lvFiles. Ignores letter case. Stops when
/// bStopped is set and keeps the rows listed by then.
void FindDuplicatesByName();

/// The same for files with equal size and equal CRC-32, whatever their names. Each file is read at most once,
/// and only if another one has the same size. A file that cannot be read counts as having the checksum 0.
void FindDuplicatesByContent();

/// The checksum engine of the program.
cCRC& oCRC();

} // namespace search
