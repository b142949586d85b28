// SPDX-License-Identifier: MIT
#pragma once

#include "ListView.h"

#include <string>

// Functions shared by the lists of the program.

namespace results {

/// Turns full-row selection on or off: a click anywhere in a row selects it, and the highlight spans all
/// columns.
void SetFullRowSelect(platform::ListView& lv, bool bOn);

/// The folder of the current row of a list of files; empty without one.
std::string CurrentFolder(platform::ListView& lv);

/// Selects all rows. In a single-selection list this leaves the last one selected. The current row does not
/// change.
void SelectAllItems(platform::ListView& lv);

/// Removes the selected rows. If rows are left, the current one is then selected and scrolled into view.
void RemoveSelectedItems(platform::ListView& lv);

} // namespace results
