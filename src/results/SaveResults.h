// SPDX-License-Identifier: MIT
#pragma once

namespace results {

/// Writes the rows of lvFiles to a text file that the user names, and opens it. Does nothing without rows or
/// without a name. A file that cannot be written is not spoken of here: opening it then shows what is there,
/// or says why not.
void SaveResults();

} // namespace results
