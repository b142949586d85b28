#include "PosixFiles.h"

#include <cerrno>
#include <climits>
#include <cstdlib>
#include <cstring>
#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <sys/uio.h>
#include <unistd.h>
#include <utility>

namespace desktop {
namespace {

constexpr std::size_t kEntriesSize = 65'536;

/// Neither follows a link, nor waits for a FIFO's writer, nor is passed on to a program started later.
constexpr int kOpenFlags = O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC;

/// An open descriptor that is closed with its owner.
class Descriptor
{
public:
    explicit Descriptor(int h) : m_h(h) {}
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;
    ~Descriptor()
    {
        if (m_h >= 0) {
            close(m_h);
        }
    }

    [[nodiscard]] int Get() const { return m_h; }
    [[nodiscard]] bool IsOpen() const { return m_h >= 0; }
    int Release() { return std::exchange(m_h, -1); }

private:
    int m_h;
};

int OpenAt(int hFolder, const char* pPath, int nFlags)
{
    int h = -1;
    do {
        h = openat(hFolder, pPath, nFlags, 0666);
    } while (h < 0 && errno == EINTR);
    return h;
}

/// Opens `sPath`, also where its folder's path and its name are within the limits but not both together.
int Open(const std::string& sPath, int nFlags)
{
    const int h = OpenAt(AT_FDCWD, sPath.c_str(), nFlags);
    if (h >= 0 || errno != ENAMETOOLONG) {
        return h;
    }
    const std::size_t nName = sPath.rfind(platform::kSeparator) + 1;
    const Descriptor folder(
        OpenAt(AT_FDCWD, sPath.substr(0, nName).c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC));
    return folder.IsOpen() ? OpenAt(folder.Get(), sPath.c_str() + nName, nFlags) : -1;
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
    struct statx status {
    };
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

bool PosixFiles::ListFolder(const std::string& sPath, platform::FolderListing& listing)
{
    listing.Clear();
    const Descriptor folder(OpenAt(AT_FDCWD, sPath.c_str(), kOpenFlags | O_DIRECTORY));
    return folder.IsOpen() && ListOpenFolder(folder.Get(), listing);
}

bool PosixFiles::ListOpenFolder(int hFolder, platform::FolderListing& listing)
{
    for (;;) {
        const ssize_t nRead = getdents64(hFolder, m_entries.get(), kEntriesSize);
        if (nRead <= 0) {
            return true; // the end, or a folder that stops giving entries: what it gave counts
        }
        for (ssize_t n = 0; n < nRead;) {
            const auto* pEntry = reinterpret_cast<const dirent64*>(m_entries.get() + n);
            n += pEntry->d_reclen;
            const std::size_t nField = pEntry->d_reclen - offsetof(dirent64, d_name);
            platform::tFindData data;
            data.cFileName = {pEntry->d_name, nField};
            const bool bDots =
                std::strcmp(pEntry->d_name, ".") == 0 || std::strcmp(pEntry->d_name, "..") == 0;
            if (!bDots && FillEntry(hFolder, *pEntry, data)) {
                listing.Add(data);
            }
        }
    }
}

bool PosixFiles::PathFound(const std::string& sPath)
{
    struct stat status {
    };
    return lstat(sPath.c_str(), &status) == 0;
}

std::optional<std::string> PosixFiles::CanonicalFolder(const std::string& sPath)
{
    const std::unique_ptr<char, decltype(&std::free)> pCanonical(realpath(sPath.c_str(), nullptr),
                                                                 &std::free);
    if (!pCanonical) {
        return std::nullopt;
    }
    const Descriptor folder(OpenAt(AT_FDCWD, pCanonical.get(), kOpenFlags | O_DIRECTORY));
    if (!folder.IsOpen()) {
        return std::nullopt;
    }
    return pCanonical.get();
}

platform::FileHandle PosixFiles::CreateFileA(const std::string& sPath)
{
    // Asking to create only what is missing: where files of others lie in a shared folder such as the
    // temporary one, the system refuses an open that asks to create even if the file is there.
    int h = Open(sPath, kOpenFlags);
    if (h < 0 && errno == ENOENT) {
        h = Open(sPath, kOpenFlags | O_CREAT);
    }
    Descriptor file(h);
    struct stat status {
    };
    if (!file.IsOpen() || fstat(file.Get(), &status) != 0 || !S_ISREG(status.st_mode)) {
        return platform::INVALID_HANDLE_VALUE;
    }
    return file.Release();
}

std::int64_t PosixFiles::FileLength(platform::FileHandle hFile)
{
    struct stat status {
    };
    return fstat(hFile, &status) == 0 ? status.st_size : -1;
}

platform::tReadResult PosixFiles::ReadFile(platform::FileHandle hFile, void* pBuffer, std::size_t nBytes)
{
    platform::tReadResult result{true, 0, false};
    while (result.nBytes < nBytes) {
        const iovec rest{static_cast<char*>(pBuffer) + result.nBytes, nBytes - result.nBytes};
        // First what is in memory. A file system that cannot tell counts as having waited.
        ssize_t nRead = result.bWaited ? -1 : preadv2(hFile, &rest, 1, -1, RWF_NOWAIT);
        if (nRead < 0) {
            result.bWaited = true;
            nRead = readv(hFile, &rest, 1);
        }
        if (nRead < 0 && errno == EINTR) {
            continue;
        }
        if (nRead < 0) {
            return {};
        }
        if (nRead == 0) {
            break;
        }
        result.nBytes += static_cast<std::size_t>(nRead);
    }
    return result;
}

void PosixFiles::CloseHandle(platform::FileHandle hFile)
{
    close(hFile);
}

void PosixFiles::AnnounceRead(const std::string& sPath)
{
    const Descriptor file(Open(sPath, kOpenFlags));
    if (file.IsOpen()) {
        posix_fadvise(file.Get(), 0, 0, POSIX_FADV_WILLNEED);
    }
}

} // namespace desktop
