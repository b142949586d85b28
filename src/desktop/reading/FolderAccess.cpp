// SPDX-License-Identifier: MIT
#include "FolderAccess.h"

#include "FileAccess.h"
#include "ListingOrder.h"
#include "Retried.h"

#include <climits>
#include <sys/stat.h>
#include <sys/sysmacros.h>

namespace desktop {
namespace {

using StatusX = struct statx;

platform::tFolderIdentity IdentityOf(int hFolder)
{
    StatusX status{};
    if (statx(hFolder, "", AT_EMPTY_PATH, STATX_INO | STATX_MNT_ID, &status) != 0) {
        return {};
    }
    const std::uint64_t nDevice = makedev(status.stx_dev_major, status.stx_dev_minor);
    return {nDevice, status.stx_ino, (status.stx_mask & STATX_MNT_ID) != 0 ? status.stx_mnt_id : 0};
}

/// Determines the type of an entry from the folder or, if that does not say, from the entry itself. False if
/// it is neither a regular file nor a folder, or has gone meanwhile.
bool FillEntry(int hFolder, const dirent64& entry, platform::tFindData& data)
{
    data.bHidden = entry.d_name[0] == '.';
    data.bDirectory = entry.d_type == DT_DIR;
    if (data.bDirectory) {
        return true;
    }
    if (entry.d_type != DT_REG && entry.d_type != DT_UNKNOWN) {
        return false;
    }
    StatusX status{};
    constexpr int nFlags = AT_SYMLINK_NOFOLLOW | AT_NO_AUTOMOUNT;
    if (statx(hFolder, entry.d_name, nFlags, STATX_TYPE | STATX_SIZE | STATX_MTIME, &status) != 0) {
        return false;
    }
    data.bDirectory = S_ISDIR(status.stx_mode);
    if (!data.bDirectory) {
        data.nFileSize = static_cast<std::int64_t>(status.stx_size);
        data.ftLastWriteTime = {status.stx_mtime.tv_sec};
    }
    return data.bDirectory || S_ISREG(status.stx_mode);
}

} // namespace

bool FolderAccess::List(const std::string& sPath, bool bIdentity, const std::atomic<bool>& bEnded,
                        platform::FolderListing& listing)
{
    listing.Clear();
    // With a trailing separator a link would be followed, and the path would exceed the limit one byte too
    // early.
    const std::string sFolder = sPath.substr(0, sPath.size() - (sPath.size() > 1 ? 1 : 0));
    if (sFolder.size() >= PATH_MAX) {
        return false;
    }
    const Descriptor folder(Retried([&] { return open(sFolder.c_str(), kOpenFlags | O_DIRECTORY); }));
    if (!folder.IsOpen()) {
        return false;
    }
    listing.SetIdentity(bIdentity ? IdentityOf(folder.Get()) : platform::tFolderIdentity());
    // Until the end, or until reading fails; the entries read so far are kept.
    m_reader.Start(folder.Get());
    while (const dirent64* const pEntry = m_reader.Next()) {
        if (bEnded) {
            return true;
        }
        platform::tFindData data;
        data.cFileName = {pEntry->d_name, FolderReader::NameField(*pEntry)};
        if (FillEntry(folder.Get(), *pEntry, data)) {
            listing.Add(data);
        }
    }
    platform::SortListing(listing);
    return true;
}

} // namespace desktop
