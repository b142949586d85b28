#pragma once

#include <string>

namespace desktop {

/// True if in a trash that file `sPath` could go to, the name that it would get there is borne by a file that
/// has no note. GIO goes by the notes alone (freedesktop.org Trash 1.0, of the home folder and of the
/// volume's top folder), and would put the new file in the place of that one. `sPath` is free of links.
bool WouldReplaceInTrash(const std::string& sPath);

/// True if folder `sPath`, by whatever path, is one of the user's trashes or lies in one.
bool IsInTrash(const std::string& sPath);

} // namespace desktop
