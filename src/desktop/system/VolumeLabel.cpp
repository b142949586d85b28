// SPDX-License-Identifier: MIT
#include "VolumeLabel.h"

#include "Descriptor.h"
#include "Escaped.h"
#include "Unescaped.h"

#include <array>
#include <cerrno>
#include <cstring>
#include <dirent.h>
#include <fcntl.h>
#include <linux/fs.h>
#include <memory>
#include <optional>
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

struct CloseFolder {
    void operator()(DIR* pFolder) const { closedir(pFolder); }
};

/// The label found on the disk `device`; empty if it has none or the device is not a disk.
std::string FoundLabel(dev_t device)
{
    const std::unique_ptr<DIR, CloseFolder> links(opendir("/dev/disk/by-label"));
    while (const dirent64* pLink = links ? readdir64(links.get()) : nullptr) {
        struct stat status = {};
        if (fstatat(dirfd(links.get()), pLink->d_name, &status, 0) == 0 && S_ISBLK(status.st_mode) &&
            status.st_rdev == device) {
            return Unescaped(pLink->d_name);
        }
    }
    return {};
}

} // namespace

platform::tVolumeLabel VolumeLabel(const std::string& sFolder)
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
