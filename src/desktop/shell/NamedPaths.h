// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

class QMimeData;

namespace desktop {

/// The full path, exact bytes, in data from another program: the first file dragged or copied in a file
/// manager, or the first line of a text. A text can be read in several ways, which are returned with the most
/// likely one first.
std::vector<std::string> NamedPaths(const QMimeData& data);

} // namespace desktop
