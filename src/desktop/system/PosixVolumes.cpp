// SPDX-License-Identifier: MIT
#include "PosixVolumes.h"

#include "Escaped.h"
#include "FolderReader.h"

#include <array>
#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <linux/fs.h>
#include <optional>
#include <poll.h>
#include <sys/ioctl.h>
#include <sys/stat.h>

namespace desktop {
namespace {

/// Empty if the file system does not report one.
std::optional<std::string> OwnLabel(int hFolder)
{
    std::array<char, FSLABEL_MAX + 1> aLabel{};
    if (ioctl(hFolder, FS_IOC_GETFSLABEL, aLabel.data()) != 0) {
        return std::nullopt;
    }
    return std::string(aLabel.data());
}

/// The label found on the disk `device`; empty if it has none or the device is not a disk.
std::string FoundLabel(dev_t device)
{
    const Descriptor links(open("/dev/disk/by-label", O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    FolderReader reader;
    reader.Start(links.Get());
    while (const dirent64* const pLink = reader.Next()) {
        struct stat status = {};
        if (fstatat(links.Get(), pLink->d_name, &status, 0) == 0 && S_ISBLK(status.st_mode) &&
            status.st_rdev == device) {
            return Unescaped(pLink->d_name);
        }
    }
    return {};
}

} // namespace

// Opened before the table is read, so that no change in between is missed.
PosixVolumes::PosixVolumes() : m_changes(open(MountTable::kPath, O_RDONLY | O_CLOEXEC)) {}

std::string PosixVolumes::FileSystemOf(const std::string& sFolder)
{
    // The kernel reports a change of the table as an error condition on a descriptor opened earlier.
    pollfd changed{m_changes.Get(), POLLPRI, 0};
    if (!m_changes.IsOpen() || poll(&changed, 1, 0) != 0) {
        m_mounts = MountTable();
    }
    if (const tMount* const pHolder = m_mounts.HolderOf(sFolder)) {
        return pHolder->sDevice;
    }
    // After chroot the root may not be a mount point, so the table may not contain the mount of the rest.
    return sFolder.starts_with('/') ? "/" : "";
}

platform::tVolumeLabel PosixVolumes::VolumeLabel(const std::string& sFolder)
{
    const Descriptor folder(open(sFolder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    struct stat status = {};
    if (!folder.IsOpen() || fstat(folder.Get(), &status) != 0) {
        const int nError = errno;
        return {{}, "Cannot read " + platform::Escaped(sFolder) + ": " + std::strerror(nError)};
    }
    const auto sOwn = OwnLabel(folder.Get());
    return {sOwn ? *sOwn : FoundLabel(status.st_dev), {}};
}

} // namespace desktop
