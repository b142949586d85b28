#pragma once

#include "FolderEntry.h"

#include <string>

namespace desktop {

/// Where a file lies in the trash.
struct tTrashed {
    std::string sPath;     ///< where it was
    std::string sFilePath; ///< where it is
    std::string sInfoPath; ///< the note that tells where it was
};

/// The user's trash: the home trash, or that of the file's own volume.
class TrashCan
{
public:
    /// Puts file `sPath`, which must still be `expected`, into the trash and makes sure that it can be
    /// restored from there; otherwise the file is where it was, or the reason says where. `trashed` is filled
    /// if done.
    static tEnding Put(const std::string& sPath, const tFileIdentity& expected, tTrashed& trashed);

    /// Takes a file out of the trash and back to where it was, replacing nothing. False if that failed: it
    /// then still lies in the trash.
    static bool PutBack(const tTrashed& trashed);
};

} // namespace desktop
