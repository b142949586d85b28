#pragma once

#include <string>

namespace desktop {

/// True if the trash's note at `sInfoPath` is whole: it names the place `sPath` to restore to, in full or
/// relative to the top folder of the volume, and the time of deletion.
bool IsWholeTrashInfo(const std::string& sInfoPath, const std::string& sPath);

} // namespace desktop
