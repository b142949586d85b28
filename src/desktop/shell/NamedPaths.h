// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

class QMimeData;

namespace desktop {

/// The full path, exact bytes, that somebody else's data stand for: the first of the files dragged or copied
/// in a file manager, or the first line of a text, of which there are several readings, the likeliest first.
std::vector<std::string> NamedPaths(const QMimeData& data);

} // namespace desktop
