// SPDX-License-Identifier: MIT
#include "FreeRoom.h"

#include "Retried.h"

#include <sys/statvfs.h>

namespace desktop {

std::optional<tRoom> MissingRoom(const tOperationPlan& plan, HeldFolders& folders)
{
    if (plan.files.empty()) {
        return std::nullopt;
    }
    const FolderPtr pFolder = folders.Of(plan.files.front().sTarget);
    struct statvfs volume = {};
    const Descriptor folder = Reopened(pFolder->Get());
    if (!folder.IsOpen() || Retried([&] { return fstatvfs(folder.Get(), &volume); }) != 0) {
        return std::nullopt; // each file will report the reason
    }
    tRoom room;
    room.cyFree = static_cast<std::int64_t>(volume.f_bavail) * static_cast<std::int64_t>(volume.f_frsize);
    for (const tPlannedFile& file : plan.files) {
        // A move within a volume needs no space.
        const bool bRenames = plan.operation.operation == FileOperation::Move &&
                              file.identity.nDevice == pFolder->Look().status.st_dev;
        if (!bRenames && file.sPath != file.sTarget) {
            ++room.nFiles;
            room.cyNeeded += file.identity.cySize;
        }
    }
    return room.cyNeeded > room.cyFree ? std::optional(room) : std::nullopt;
}

} // namespace desktop
