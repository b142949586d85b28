#include "PosixFiles.h"

#include "CanonicalPath.h"
#include "ListingOrder.h"
#include "MountTable.h"
#include "Retried.h"

#include <cerrno>
#include <climits>
#include <cstring>
#include <dirent.h>
#include <fcntl.h>
#include <fstream>
#include <set>
#include <sys/stat.h>
#include <sys/sysmacros.h>
#include <sys/uio.h>
#include <unistd.h>

namespace desktop {
namespace {

using Status = struct stat;
using StatusX = struct statx;

/// So many reads without a wait are a sign that all is in memory.
constexpr unsigned kCalm = 256;

constexpr std::size_t kEntriesSize = 65'536;

/// Neither follows a link, nor waits for a FIFO's writer, nor is passed on to a program started later.
constexpr int kOpenFlags = O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_NOCTTY | O_CLOEXEC;

int OpenAt(int hFolder, const char* pPath, int nFlags)
{
    return Retried([&] { return openat(hFolder, pPath, nFlags, 0666); });
}

/// The folder that holds `sPath`, as a place to open or look at names in.
Descriptor OpenFolderOf(const std::string& sPath)
{
    const std::size_t nSeparator = sPath.rfind(platform::kSeparator);
    const std::string sFolder = nSeparator == 0 ? sPath.substr(0, 1) : sPath.substr(0, nSeparator);
    return Descriptor(OpenAt(AT_FDCWD, sFolder.c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC));
}

bool IsDots(const char* pName)
{
    return std::strcmp(pName, ".") == 0 || std::strcmp(pName, "..") == 0;
}

/// True if a file system is mounted in two places or the system does not say: only then can two paths lead to
/// one folder.
bool AnyMountedTwice()
{
    std::ifstream mountInfo(kMountInfo);
    std::set<std::string> devices;
    for (const tMount& mount : ReadMountTable(mountInfo)) {
        if (!devices.insert(mount.sDevice).second) {
            return true;
        }
    }
    return devices.empty();
}

platform::tFolderIdentity IdentityOf(int hFolder)
{
    StatusX status{};
    if (statx(hFolder, "", AT_EMPTY_PATH, STATX_INO | STATX_MNT_ID, &status) != 0) {
        return {};
    }
    const std::uint64_t nDevice = makedev(status.stx_dev_major, status.stx_dev_minor);
    return {nDevice, status.stx_ino, (status.stx_mask & STATX_MNT_ID) != 0 ? status.stx_mnt_id : 0};
}

/// What an entry is, from what the folder says or, where it says nothing, from the entry itself. False for
/// what is neither a regular file nor a folder, or has gone meanwhile.
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

PosixFiles::PosixFiles() : m_entries(std::make_unique_for_overwrite<char[]>(kEntriesSize)) {}

/// Opens `sPath` by its folder and its name, so that only the folder's path has to be within the system's
/// limit.
int PosixFiles::Open(const std::string& sPath, int nFlags)
{
    const std::size_t nName = sPath.rfind(platform::kSeparator) + 1;
    if (nName == 0 || nName == sPath.size()) {
        return OpenAt(AT_FDCWD, sPath.c_str(), nFlags); // no folder, or the root
    }
    const bool bAgain = m_keptFolder.sPath == std::string_view(sPath).substr(0, nName);
    if (!bAgain) {
        m_keptFolder = {sPath.substr(0, nName), Descriptor()};
        const int h = OpenAt(AT_FDCWD, sPath.c_str(), nFlags);
        if (h >= 0 || errno != ENAMETOOLONG) {
            return h;
        }
    }
    if (!m_keptFolder.folder.IsOpen()) {
        m_keptFolder.folder = OpenFolderOf(sPath);
    }
    return m_keptFolder.folder.IsOpen() ? OpenAt(m_keptFolder.folder.Get(), sPath.c_str() + nName, nFlags)
                                        : -1;
}

bool PosixFiles::ListFolder(const std::string& sPath, platform::FolderListing& listing)
{
    listing.Clear();
    // With a separator at its end a path would be followed through a link, and be one byte too long too
    // early.
    const bool bSeparator = sPath.size() > 1 && sPath.ends_with(platform::kSeparator);
    const std::string sFolder = sPath.substr(0, sPath.size() - (bSeparator ? 1 : 0));
    if (sFolder.size() >= PATH_MAX) {
        return false;
    }
    const Descriptor folder(Open(sFolder, kOpenFlags | O_DIRECTORY));
    if (!folder.IsOpen()) {
        return false;
    }
    if (!m_bMountedTwice) {
        m_bMountedTwice = AnyMountedTwice();
    }
    listing.SetIdentity(*m_bMountedTwice ? IdentityOf(folder.Get()) : platform::tFolderIdentity());
    ListOpenFolder(folder.Get(), listing);
    platform::SortListing(listing);
    return true;
}

void PosixFiles::ListOpenFolder(int hFolder, platform::FolderListing& listing)
{
    for (;;) {
        const ssize_t nRead = getdents64(hFolder, m_entries.get(), kEntriesSize);
        if (nRead <= 0) {
            return; // the end, or a folder that stops giving entries: what it gave counts
        }
        for (ssize_t n = 0; n < nRead;) {
            const auto* pEntry = reinterpret_cast<const dirent64*>(m_entries.get() + n);
            n += pEntry->d_reclen;
            const std::size_t nField = pEntry->d_reclen - offsetof(dirent64, d_name);
            platform::tFindData data;
            data.cFileName = {pEntry->d_name, nField};
            if (!IsDots(pEntry->d_name) && FillEntry(hFolder, *pEntry, data)) {
                listing.Add(data);
            }
        }
    }
}

bool PosixFiles::PathFound(const std::string& sPath)
{
    Status status{};
    if (lstat(sPath.c_str(), &status) == 0) {
        return true;
    }
    if (errno != ENAMETOOLONG) {
        return false;
    }
    const Descriptor folder = OpenFolderOf(sPath);
    const char* pName = sPath.c_str() + sPath.rfind(platform::kSeparator) + 1;
    return folder.IsOpen() && fstatat(folder.Get(), pName, &status, AT_SYMLINK_NOFOLLOW) == 0;
}

std::optional<std::string> PosixFiles::CanonicalFolder(const std::string& sPath)
{
    std::string sCanonical = CanonicalPath(sPath);
    const Descriptor folder(OpenAt(AT_FDCWD, sCanonical.c_str(), kOpenFlags | O_DIRECTORY));
    return folder.IsOpen() ? std::optional(std::move(sCanonical)) : std::nullopt;
}

platform::FileHandle PosixFiles::CreateFileA(const std::string& sPath)
{
    // Asking to create only what is missing: where files of others lie in a shared folder such as the
    // temporary one, the system refuses an open that asks to create even if the file is there.
    const int h = Open(sPath, kOpenFlags);
    if (h >= 0 || errno != ENOENT) {
        return h;
    }
    // The folder kept open may be one that has been replaced meanwhile.
    m_keptFolder = {};
    return Open(sPath, kOpenFlags | O_CREAT);
}

std::int64_t PosixFiles::FileLength(platform::FileHandle hFile)
{
    Status status{};
    return fstat(hFile, &status) == 0 && S_ISREG(status.st_mode) ? status.st_size : -1;
}

platform::tReadResult PosixFiles::ReadFile(platform::FileHandle hFile, void* pBuffer, std::size_t nBytes)
{
    // What ends where the caller expects is the file that the caller knows. Anything else has to show that it
    // is a regular file. Asking that of every file costs a search of many small ones a twentieth of its time.
    if (lseek(hFile, 0, SEEK_END) != static_cast<off_t>(nBytes) && FileLength(hFile) < 0) {
        return {};
    }
    // Asking whether a read would have to wait costs as well: where none had to for long, one in eight is
    // asked.
    const bool bAsk = m_nReadsSinceWait < kCalm || m_nReadsSinceWait % 8 == 0;
    platform::tReadResult result{true, 0, false};
    while (result.nBytes < nBytes) {
        const iovec rest{static_cast<char*>(pBuffer) + result.nBytes, nBytes - result.nBytes};
        const auto nOffset = static_cast<off_t>(result.nBytes);
        // First what is in memory. A file system that cannot tell counts as having waited.
        ssize_t nRead = bAsk && !result.bWaited ? preadv2(hFile, &rest, 1, nOffset, RWF_NOWAIT) : -1;
        if (nRead <= 0) {
            result.bWaited = result.bWaited || (bAsk && nRead < 0);
            nRead = Retried([&] { return pread(hFile, rest.iov_base, rest.iov_len, nOffset); });
        }
        if (nRead < 0) {
            return {};
        }
        if (nRead == 0) {
            break;
        }
        result.nBytes += static_cast<std::size_t>(nRead);
    }
    m_nReadsSinceWait = result.bWaited ? 0 : m_nReadsSinceWait + 1;
    return result;
}

void PosixFiles::SearchEnded()
{
    m_keptFolder = {};
    m_bMountedTwice.reset();
    m_nReadsSinceWait = 0;
}

void PosixFiles::CloseHandle(platform::FileHandle hFile)
{
    close(hFile);
}

bool PosixFiles::AnnounceRead(const std::string& sPath, std::int64_t nBytes)
{
    const Descriptor file(Open(sPath, kOpenFlags));
    char c = 0;
    const iovec first{&c, 1};
    const bool bNeeded = file.IsOpen() && preadv2(file.Get(), &first, 1, 0, RWF_NOWAIT) < 0;
    return bNeeded && posix_fadvise(file.Get(), 0, nBytes, POSIX_FADV_WILLNEED) == 0;
}

} // namespace desktop
