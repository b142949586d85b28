#include "TargetFolder.h"

#include "Reasons.h"
#include "Retried.h"
#include "TrashFolders.h"

#include <fcntl.h>
#include <unistd.h>

namespace desktop {

tEnding TargetFolder::Open(const std::string& sPath)
{
    if (m_folder.IsOpen() && m_sPath == sPath) {
        return {};
    }
    m_folder = Descriptor(Retried([&] { return open(sPath.c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC); }));
    m_sPath = sPath;
    if (!m_folder.IsOpen()) {
        return tEnding::NotDone(Reason(errno, Step::Write));
    }
    // What is brought into a trash directly has no note there, and is lost when the trash is emptied.
    if (IsInTrash(sPath)) {
        m_folder = Descriptor();
        return tEnding::NotDone("The destination is inside the trash.");
    }
    return {};
}

int TargetFolder::Sync(int hFile) const
{
    const Descriptor folder(
        Retried([&] { return openat(m_folder.Get(), ".", O_RDONLY | O_DIRECTORY | O_CLOEXEC); }));
    if (!folder.IsOpen()) {
        // A folder that takes files but shows none cannot be opened: then all of the volume goes to the disk.
        return errno == EACCES && syncfs(hFile) == 0 ? 0 : errno;
    }
    // Some file systems have no such thing for folders and say so.
    const bool bSynced = Retried([&] { return fsync(folder.Get()); }) == 0 || errno == EINVAL;
    return bSynced ? 0 : errno;
}

} // namespace desktop
