// SPDX-License-Identifier: MIT
#include "TrashFolders.h"

#include "CanonicalPath.h"
#include "Paths.h"
#include "Reasons.h"
#include "Retried.h"
#include "TrashLocations.h"

#include <algorithm>
#include <array>
#include <fcntl.h>
#include <string_view>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace desktop {
namespace {

constexpr const char* kNoTrash = "The volume that it is on has no trash.";
constexpr const char* kNoHome = "You have no home folder that could hold a trash.";

/// System folders: what is mounted there is not a volume of the user, and desktops do not show a trash on it.
constexpr std::array<std::string_view, 15> kSystemPoints{
    "/",    "/boot", "/etc", "/home", "/media",   "/mnt",     "/opt",      "/root",
    "/srv", "/tmp",  "/usr", "/var",  "/var/log", "/var/tmp", "/usr/local"};
constexpr std::array<std::string_view, 3> kSystemFolders{"/dev", "/proc", "/sys"};
constexpr std::array<std::string_view, 9> kSystemTypes{"autofs", "devtmpfs", "overlay", "proc", "ramfs",
                                                       "rootfs", "squashfs", "sysfs",   "tmpfs"};

template <class List>
bool Has(const List& list, std::string_view sText)
{
    return std::find(list.begin(), list.end(), sText) != list.end();
}

/// Creates a folder and its missing parents, accessible only to the user. Returns 0 or the error number.
int MakeFolders(const std::string& sPath)
{
    for (std::size_t n = sPath.find('/', 1); n != std::string::npos; n = sPath.find('/', n + 1)) {
        mkdir(sPath.substr(0, n).c_str(), S_IRWXU);
    }
    // Only the last one counts: the parents may exist without being writable.
    return mkdir(sPath.c_str(), S_IRWXU) == 0 || errno == EEXIST ? 0 : errno;
}

std::string WhyNoHomeTrash(int nError)
{
    switch (nError) {
    case ENOENT:
    case ENOTDIR:
        return "The folder in your home that holds the trash is not there and cannot be made.";
    case ELOOP:
        return "Your trash has links or files in the places of its folders.";
    case EACCES:
    case EPERM:
        return "You are not permitted to use the trash in your home folder.";
    default:
        return Reason(nError, Step::Trash);
    }
}

/// Done if no other user can change the contents of this folder.
bool IsOwn(const HeldFolder& folder)
{
    return folder.Error() == 0 && folder.Look().status.st_uid == geteuid();
}

/// The device of the deepest existing part of a path.
dev_t DeviceOf(std::string sPath)
{
    struct stat status = {};
    while (stat(sPath.c_str(), &status) != 0 && sPath.size() > 1) {
        sPath = platform::FolderOf(sPath);
    }
    return status.st_dev;
}

} // namespace

TrashPtr TrashFolders::For(const HeldFolder& folder, bool bVolume, std::string& sReason)
{
    FindHome();
    if (!bVolume && folder.Look().status.st_dev == m_homeDevice) {
        sReason = m_home.sReason;
        return m_home.pTrash;
    }
    const tMount* const pMount = MountOf(folder.Path());
    if (pMount == nullptr) {
        sReason = kNoTrash;
        return nullptr;
    }
    const auto known = m_volumes.find(pMount->sPoint);
    const tTrash& trash =
        known != m_volumes.end() ? known->second : m_volumes[pMount->sPoint] = OfVolume(pMount->sPoint);
    sReason = trash.sReason;
    return trash.pTrash;
}

void TrashFolders::FindHome()
{
    if (std::exchange(m_bHomeKnown, true)) {
        return;
    }
    const std::string sData = DataHome();
    if (sData.empty()) {
        m_home.sReason = kNoHome;
        m_homeDevice = DeviceOf("/");
        return;
    }
    const std::string sTrash = sData + "/Trash";
    m_homeDevice = DeviceOf(sTrash);
    const int nError = MakeFolders(sTrash);
    const std::string sCanonical = CanonicalPath(sTrash);
    if (nError != 0 || sCanonical.empty()) {
        const bool bLink = nError == 0 && S_ISLNK(LookAt(sTrash).status.st_mode);
        m_home.sReason = bLink ? "Your trash folder is a link that leads nowhere."
                               : WhyNoHomeTrash(nError != 0 ? nError : ENOENT);
        return;
    }
    auto pTrash = std::make_shared<TrashFolder>(std::make_shared<HeldFolder>(sCanonical), "");
    if (pTrash->Error() != 0) {
        m_home.sReason = WhyNoHomeTrash(pTrash->Error() == ENOTDIR ? ELOOP : pTrash->Error());
        return;
    }
    m_homeDevice = pTrash->Device();
    m_home.pTrash = std::move(pTrash);
}

TrashFolders::tTrash TrashFolders::OfVolume(const std::string& sTop) const
{
    const std::string sUser = std::to_string(geteuid());
    const std::string sStart = sTop == "/" ? "" : sTop;
    // A folder that the administrator has created for all users, if no user can tamper with the files of
    // another.
    const HeldFolder all(sStart + "/.Trash");
    FolderPtr pRoot;
    if (all.Error() == 0 && (all.Look().status.st_mode & S_ISVTX) != 0) {
        Retried([&] { return mkdirat(all.Get(), sUser.c_str(), S_IRWXU); });
        pRoot = std::make_shared<HeldFolder>(all.Path() + '/' + sUser);
    }
    if (!pRoot || !IsOwn(*pRoot)) {
        const HeldFolder top(sTop);
        const std::string sName = ".Trash-" + sUser;
        const bool bMade = Retried([&] { return mkdirat(top.Get(), sName.c_str(), S_IRWXU); }) == 0;
        const int nError = bMade || errno == EEXIST ? 0 : errno;
        if (nError != 0) {
            const bool bOwnReason = nError == EROFS || nError == ENOSPC || nError == EDQUOT || nError == EIO;
            return {nullptr, bOwnReason ? Reason(nError, Step::Trash) : kNoTrash};
        }
        pRoot = std::make_shared<HeldFolder>(sStart + '/' + sName);
    }
    if (!IsOwn(*pRoot)) {
        return {nullptr, "The trash of the volume that it is on is not yours alone."};
    }
    auto pTrash = std::make_shared<TrashFolder>(std::move(pRoot), sTop);
    if (pTrash->Error() == ELOOP || pTrash->Error() == ENOTDIR) {
        return {nullptr,
                "The trash of the volume that it is on has links or files in the places of its folders."};
    }
    return pTrash->Error() != 0 ? tTrash{nullptr, Reason(pTrash->Error(), Step::Trash)} : tTrash{pTrash, {}};
}

std::string TrashFolders::WhyNone(const HeldFolder& folder)
{
    const std::string sData = DataHome();
    if (folder.Look().status.st_dev == DeviceOf(sData.empty() ? "/" : sData + "/Trash")) {
        return sData.empty() ? kNoHome : "";
    }
    const tMount* const pMount = MountOf(folder.Path());
    if (pMount == nullptr) {
        return kNoTrash;
    }
    const std::string sStart = pMount->sPoint == "/" ? "" : pMount->sPoint;
    const bool bThere = LookAt(sStart + "/.Trash-" + std::to_string(geteuid())).nError == 0 ||
                        LookAt(sStart + "/.Trash").nError == 0;
    const bool bMayMake = faccessat(AT_FDCWD, pMount->sPoint.c_str(), W_OK | X_OK, AT_EACCESS) == 0;
    return bThere || bMayMake ? "" : errno == EROFS ? Reason(EROFS, Step::Trash) : kNoTrash;
}

std::string TrashFolders::VolumeOf(const std::string& sFolder)
{
    const tMount* const pHolder = HolderOf(sFolder);
    return pHolder != nullptr ? pHolder->sPoint : sFolder;
}

/// The mount that contains a folder.
const tMount* TrashFolders::HolderOf(const std::string& sFolder)
{
    return (m_mounts ? *m_mounts : m_mounts.emplace()).HolderOf(sFolder);
}

/// The same, but only if the mount may have a trash.
const tMount* TrashFolders::MountOf(const std::string& sFolder)
{
    const tMount* const pHolder = HolderOf(sFolder);
    if (pHolder == nullptr || Has(kSystemPoints, pHolder->sPoint) || Has(kSystemTypes, pHolder->sType) ||
        std::any_of(kSystemFolders.begin(), kSystemFolders.end(),
                    [&](std::string_view sSystem) { return platform::IsIn(pHolder->sPoint, sSystem); })) {
        return nullptr;
    }
    // If a folder of a volume is mounted in a second place, it is not a volume of its own; a subvolume is.
    constexpr ino_t kSubvolume = 256;
    const bool bWhole = pHolder->sFolder == "/" ||
                        (pHolder->sType == "btrfs" && LookAt(pHolder->sPoint).status.st_ino == kSubvolume);
    return bWhole ? pHolder : nullptr;
}

} // namespace desktop
