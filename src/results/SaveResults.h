// SPDX-License-Identifier: MIT
#pragma once

namespace results {

/// Writes the rows of lvFiles to a text file chosen by the user, and opens the file. Does nothing without
/// rows or if the user cancels. A failed write is not reported here: opening the file then shows what was
/// written, or an error message.
void SaveResults();

} // namespace results
