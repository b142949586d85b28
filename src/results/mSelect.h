// SPDX-License-Identifier: MIT
#pragma once

#include "ListView.h"

// The commands that select rows of the result list by rule. They work on the rows alone: a group is known by
// its marks, an empty file by the size shown, a folder by the text of its column. Each does nothing to a list
// without rows, gives any other the focus, and changes nothing besides but which rows are selected.

namespace results {

/// All but the first row of each group, so that one file of each stays. A first row whose file has gone is
/// no such one and is selected too.
void SelectDuplicatedFiles(platform::ListView& lv);

/// Rows of files without content.
void SelectEmptyFiles(platform::ListView& lv);

/// Rows whose folder is on the drive that the current row's folder is on; none without a current row.
void SelectSameDrive(platform::ListView& lv);

/// Rows whose folder is the current row's; none without a current row.
void SelectSamePath(platform::ListView& lv);

void SelectAll(platform::ListView& lv);
void SelectInvert(platform::ListView& lv);
void SelectNone(platform::ListView& lv);

} // namespace results
