// SPDX-License-Identifier: MIT
#pragma once

#include "ListView.h"

// The commands that select rows of the result list by a rule. They look only at the rows: a group is
// recognised by its marks, an empty file by the size shown, a folder by the text of its column. Each does
// nothing if the list is empty, otherwise gives it the focus and changes nothing but the selection.

namespace results {

/// Selects all but the first row of each group, so that one file of each group stays. A first row whose file
/// has gone does not count as such and is selected, too.
void SelectDuplicatedFiles(platform::ListView& lv);

/// Selects the rows of empty files.
void SelectEmptyFiles(platform::ListView& lv);

/// Selects the rows whose folder is on the same drive as the folder of the current row; none without a
/// current row.
void SelectSameDrive(platform::ListView& lv);

/// Selects the rows in the same folder as the current row; none without a current row.
void SelectSamePath(platform::ListView& lv);

void SelectAll(platform::ListView& lv);
void SelectInvert(platform::ListView& lv);
void SelectNone(platform::ListView& lv);

} // namespace results
