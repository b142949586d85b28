// SPDX-License-Identifier: MIT
#include "StayingCopies.h"

#include "HiddenName.h"
#include "Paths.h"
#include "Texts.h"

#include <algorithm>
#include <fcntl.h>

namespace desktop {
namespace {

/// A time of change in units of 100 ns: some network file systems round it to that.
std::int64_t ChangeOf(const timespec& time)
{
    constexpr std::int64_t kUnitsPerSecond = 10'000'000;
    constexpr std::int64_t kNanosecondsPerUnit = 100;
    return time.tv_sec * kUnitsPerSecond + time.tv_nsec / kNanosecondsPerUnit;
}

/// True if the file itself is a mount point.
bool IsMountPoint(const FolderEntry& entry)
{
    struct statx status = {};
    return statx(entry.Name().hFolder, entry.Name().sName.c_str(), AT_SYMLINK_NOFOLLOW | AT_NO_AUTOMOUNT, 0,
                 &status) == 0 &&
           (status.stx_attributes & STATX_ATTR_MOUNT_ROOT) != 0;
}

} // namespace

StayingCopies::StayingCopies(platform::tFileGroups groups, const std::vector<tPlannedFile>& files,
                             HeldFolders& folders)
    : m_groups(std::move(groups)), m_files(files), m_folders(folders), m_staying(m_groups.groups.size())
{
}

bool StayingCopies::Look(const std::function<bool(const std::string&)>& goOn)
{
    LookAtGoing();
    for (std::size_t n = 0; n < m_staying.size(); ++n) {
        const auto& rows = m_groups.groups[n];
        for (std::size_t nRow = 0; nRow < rows.size() && !m_staying[n].IsEnough(); ++nRow) {
            if (!goOn(rows[nRow].FullPath())) {
                return false;
            }
            LookAtStaying(rows[nRow], nRow, m_staying[n]);
        }
    }
    return true;
}

void StayingCopies::LookAtGoing()
{
    m_seen.reserve(m_files.size());
    m_byInode.reserve(m_files.size());
    m_byChange.reserve(m_files.size());
    for (std::size_t n = 0; n < m_files.size(); ++n) {
        const RowFile& row = RowOf(n);
        const tFileIdentity& identity = m_files[n].identity;
        m_seen.push_back({identity, row && IsAsShown(identity, row->shown)});
        m_byInode.emplace(identity.nInode, n);
        m_byChange.emplace(ChangeOf(m_files[n].changed), n);
        m_devices.insert(identity.nDevice);
        if (row) {
            m_staying[row->nGroup].Goes(m_seen.back());
        }
    }
}

void StayingCopies::LookAtStaying(const platform::tShownFile& shown, std::size_t nPlace, StayingFiles& group)
{
    const FolderEntry entry(m_folders.Get(std::string(shown.sFolder.View())),
                            std::string(shown.sName.View()));
    const tLook look = entry.Look();
    // A temporary copy that another run has left behind will be removed.
    const bool bTemporary = IsHiddenName(entry.Name().sName, HiddenKind::Copy);
    if (IsRegular(look).IsDone() && !bTemporary && !m_trashes.Contain(entry.Folder().Path()) &&
        !IsGoing(entry, look) && !IsViewOfGoing(entry, look)) {
        group.Add({look.Identity(), IsAsShown(look.Identity(), shown)}, nPlace);
    }
}

/// True if size and time are as shown in the row.
bool StayingCopies::IsAsShown(const tFileIdentity& identity, const platform::tShownFile& shown)
{
    if (platform::FormatNumber(identity.cySize) != shown.sSize.View()) {
        return false;
    }
    // Formatting the time takes most of the time here, and copies often have the same time as their original.
    if (m_sDate.empty() || m_nDateOf != identity.nSeconds) {
        m_nDateOf = identity.nSeconds;
        m_sDate = platform::FormatDateTime(DateOf(identity));
    }
    return m_sDate == shown.sDate.View();
}

/// True if the file is one of those that go, reached through another path: then it goes as well.
bool StayingCopies::IsGoing(const FolderEntry& entry, const tLook& look) const
{
    const auto [first, last] = m_byInode.equal_range(look.status.st_ino);
    if (first == last) {
        return false;
    }
    // Without a second link it cannot be another name: a file is mounted on another one, or the file system
    // gives all files one number. A mount point is no name either.
    const bool bOtherName = look.status.st_nlink >= 2 && !IsMountPoint(entry);
    return std::any_of(first, last, [&](const auto& each) {
        const tPlannedFile& file = m_files[each.second];
        return file.identity.nDevice == look.status.st_dev &&
               (!bOtherName || (platform::NameIn(file.sPath) == entry.Name().sName &&
                                m_folders.Of(file.sPath)->Look().IsSameFileAs(entry.Folder().Look())));
    });
}

/// True if the file looks like one that goes, shown by a file system such as FUSE, a network or an overlay:
/// its device number differs, but not its time of change, which a copy does not have from its original.
bool StayingCopies::IsViewOfGoing(const FolderEntry& entry, const tLook& look)
{
    if (m_devices.empty() || (m_devices.size() == 1 && m_devices.contains(look.status.st_dev))) {
        return false;
    }
    const tFileIdentity seen = look.Identity();
    // Without times of change of their own, files that were copied with their times have the same, too.
    if (look.status.st_ctim.tv_nsec == 0 && look.status.st_ctim.tv_sec == seen.nSeconds) {
        return false;
    }
    const auto [first, last] = m_byChange.equal_range(ChangeOf(look.status.st_ctim));
    return std::any_of(first, last, [&](const auto& each) {
        const tPlannedFile& file = m_files[each.second];
        return file.identity.nDevice != seen.nDevice && file.identity.cySize == seen.cySize &&
               file.identity.nSeconds == seen.nSeconds &&
               (look.status.st_nlink < 2 || platform::NameIn(file.sPath) == entry.Name().sName) &&
               !(StoresFiles(entry.SharedFolder()) && StoresFiles(m_folders.Of(file.sPath)));
    });
}

/// True if the file system of the folder stores its files itself. If those of both do, the files are
/// different ones even if all times are equal: a disk has been cloned, there is a snapshot of it, or both
/// were written at the same moment.
bool StayingCopies::StoresFiles(const FolderPtr& pFolder)
{
    const tMount* const pMount = (m_mounts ? *m_mounts : m_mounts.emplace()).HolderOf(pFolder->Path());
    if (pMount == nullptr) {
        return false;
    }
    // A file system in user space chooses its source, which may be a folder in /dev; one on a disk has a type
    // of its own. Loop devices can show one image, or one disk, more than once.
    const std::string& sType = pMount->sType;
    const std::string& sSource = pMount->sSource;
    const bool bInUserSpace = sType.starts_with("fuse") && sType != "fuseblk";
    return (sSource.starts_with("/dev/") && !sSource.starts_with("/dev/loop") && !bInUserSpace) ||
           sType == "tmpfs" || sType == "ramfs" || sType == "zfs";
}

std::optional<Stays> StayingCopies::Of(std::size_t nFile) const
{
    const RowFile& row = RowOf(nFile);
    return row ? std::optional(m_staying[row->nGroup].Of(m_seen[nFile])) : std::nullopt;
}

std::vector<tStayingCopy> StayingCopies::CopiesOf(std::size_t nFile) const
{
    std::vector<tStayingCopy> copies;
    if (const RowFile& row = RowOf(nFile)) {
        const auto& rows = m_groups.groups[row->nGroup];
        for (const auto& copy : m_staying[row->nGroup].CopiesOf(m_seen[nFile])) {
            copies.push_back({rows[copy.nPlace].FullPath(), copy.identity});
        }
    }
    return copies;
}

} // namespace desktop
