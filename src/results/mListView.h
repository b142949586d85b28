// SPDX-License-Identifier: MIT
#pragma once

#include "ListView.h"

// What the program's lists have in common beyond what a list does by itself.

namespace results {

/// Lets a click anywhere in a row select it, with a selection bar that spans all columns, or turns that off.
void SetFullRowSelect(platform::ListView& lv, bool bOn);

/// Selects every row. In a list of one selected row at a time this leaves the last one selected. The current
/// row stays.
void SelectAllItems(platform::ListView& lv);

/// Removes every selected row. If rows are left, the current one is then selected and in sight.
void RemoveSelectedItems(platform::ListView& lv);

} // namespace results
