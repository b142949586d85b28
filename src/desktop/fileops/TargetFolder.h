#pragma once

#include "Descriptor.h"
#include "Ending.h"

#include <string>

namespace desktop {

/// The folder that files are brought to, held open while file after file goes there.
class TargetFolder
{
public:
    /// Opens `sPath`, unless it is open already. Not done if it is no folder that files can be brought to.
    tEnding Open(const std::string& sPath);

    [[nodiscard]] int Get() const { return m_folder.Get(); }

    /// Brings the folder's entries to the disk; `hFile` is an open file in it. 0, or the system's error
    /// number.
    [[nodiscard]] int Sync(int hFile) const;

private:
    std::string m_sPath;
    Descriptor m_folder;
};

} // namespace desktop
