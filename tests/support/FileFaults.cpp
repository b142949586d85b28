#include "FileFaults.h"

#include <algorithm>
#include <cerrno>
#include <cstdarg>
#include <cstdint>
#include <fcntl.h>
#include <filesystem>
#include <linux/fs.h>
#include <map>
#include <sys/ioctl.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace support::faults {
namespace {

bool g_bArmed = false;
bool g_bCancelled = false;
tSettings g_settings;
std::vector<tChange> g_changes;

const std::map<std::string, std::vector<int>>& Table()
{
    static const std::vector<int> naming{ENOSPC, EIO, EACCES, EPERM, ENOENT, EXDEV, EROFS, EINTR};
    static const std::vector<int> making{ENOSPC, EIO, EACCES, EPERM, ENOENT, EROFS, EINTR};
    static const std::vector<int> setting{ENOSPC, EIO, EPERM, EROFS, EOPNOTSUPP};
    static const std::map<std::string, std::vector<int>> table{
        {"open", making},
        {"mkdir", making},
        {"unlink", {EIO, EACCES, EPERM, ENOENT, EROFS, EINTR}},
        {"rename", naming},
        {"link", naming},
        {"write", {ENOSPC, EIO, EINTR, kShort}},
        {"copy_file_range", {ENOSPC, EIO, EXDEV, EINTR, EOPNOTSUPP, kShort}},
        {"clone", {ENOSPC, EIO, EXDEV, EPERM, EINTR}},
        {"fsync", {EIO, ENOSPC, EROFS, EINTR}},
        {"truncate", {EIO, ENOSPC, EFBIG, EINTR}},
        {"allocate", {EIO, ENOSPC, EINTR}},
        {"chmod", setting},
        {"chown", setting},
        {"utime", setting},
        {"xattr", setting}};
    return table;
}

/// Called with what is about to happen; the error to give instead, or 0, or kShort.
int Judge(const char* pCall, const std::string& sName)
{
    if (!g_bArmed) {
        return 0;
    }
    g_changes.push_back({pCall, sName});
    if (g_settings.before) {
        g_bArmed = false;
        g_settings.before(g_changes.back());
        g_bArmed = true;
    }
    const tFault& fault = g_settings.fault;
    const bool bNow = g_changes.size() == fault.nAt;
    if (bNow && fault.nError == kKill) {
        _exit(kKilled);
    }
    g_bCancelled = g_bCancelled || (bNow && fault.nError == kCancel);
    if (fault.nError == kCancel ||
        (!bNow && (!fault.bStays || g_changes.size() < fault.nAt || fault.nAt == 0))) {
        return 0;
    }
    const std::vector<int> possible = FaultsOf(pCall);
    return std::find(possible.begin(), possible.end(), fault.nError) != possible.end() ? fault.nError : 0;
}

std::string NameOf(const char* pPath)
{
    const std::string sPath = pPath != nullptr ? pPath : "";
    return sPath.substr(sPath.rfind('/') + 1);
}

std::string NameOf(int h)
{
    std::error_code error;
    return g_bArmed ? std::filesystem::read_symlink("/proc/self/fd/" + std::to_string(h), error)
                          .filename()
                          .string()
                    : "";
}

bool IsRegular(int h)
{
    struct stat status {
    };
    return fstat(h, &status) == 0 && S_ISREG(status.st_mode);
}

template <class Name, class... Arguments>
long Pass(const char* pCall, Name name, long nCall, Arguments... arguments)
{
    const int nError = Judge(pCall, NameOf(name));
    if (nError > 0) {
        errno = nError;
        return -1;
    }
    return syscall(nCall, arguments...);
}

long Open(int hFolder, const char* pPath, int nFlags, unsigned mode)
{
    if ((nFlags & O_CREAT) == 0) {
        return syscall(SYS_openat, hFolder, pPath, nFlags, mode);
    }
    return Pass("open", pPath, SYS_openat, hFolder, pPath, nFlags, mode);
}

long Rename(int hFrom, const char* pFrom, int hTo, const char* pTo, unsigned nFlags)
{
    if (nFlags != 0 && g_bArmed && g_settings.bPlainRenameOnly) {
        errno = EINVAL;
        return -1;
    }
    return Pass("rename", pTo, SYS_renameat2, hFrom, pFrom, hTo, pTo, nFlags);
}

/// `write(nBytes)` writes so many.
template <class Write>
ssize_t Writing(const char* pCall, int h, std::size_t nBytes, const Write& write)
{
    const int nError = g_bArmed && IsRegular(h) ? Judge(pCall, NameOf(h)) : 0;
    if (nError > 0) {
        errno = nError;
        return -1;
    }
    return write(nError == kShort ? (nBytes + 1) / 2 : nBytes);
}

int Sync(int h, long nCall)
{
    const int nError = Judge("fsync", NameOf(h));
    errno = nError;
    return nError > 0 ? -1 : g_bArmed && !g_settings.bSyncForReal ? 0 : static_cast<int>(syscall(nCall, h));
}

} // namespace

void Arm(const tSettings& settings)
{
    g_settings = settings;
    g_changes.clear();
    g_bCancelled = false;
    g_bArmed = true;
}

std::vector<tChange> Disarm()
{
    g_bArmed = false;
    g_settings = {};
    return std::move(g_changes);
}

bool Cancelled()
{
    return g_bCancelled;
}

std::vector<int> FaultsOf(const std::string& sCall)
{
    return Table().at(sCall);
}

} // namespace support::faults

using namespace support::faults;

// The C library's names. They take precedence over those of the C library for every library of the process.
extern "C" {

#define OPEN(name)                                                                                           \
    int name(const char* pPath, int nFlags, ...)                                                             \
    {                                                                                                        \
        va_list rest;                                                                                        \
        va_start(rest, nFlags);                                                                              \
        const unsigned mode = (nFlags & (O_CREAT | O_TMPFILE)) != 0 ? va_arg(rest, unsigned) : 0;            \
        va_end(rest);                                                                                        \
        return static_cast<int>(Open(AT_FDCWD, pPath, nFlags, mode));                                        \
    }
#define OPENAT(name)                                                                                         \
    int name(int hFolder, const char* pPath, int nFlags, ...)                                                \
    {                                                                                                        \
        va_list rest;                                                                                        \
        va_start(rest, nFlags);                                                                              \
        const unsigned mode = (nFlags & (O_CREAT | O_TMPFILE)) != 0 ? va_arg(rest, unsigned) : 0;            \
        va_end(rest);                                                                                        \
        return static_cast<int>(Open(hFolder, pPath, nFlags, mode));                                         \
    }
OPEN(open)
OPEN(open64)
OPENAT(openat)
OPENAT(openat64)

int mkdir(const char* pPath, mode_t mode) noexcept
{
    return static_cast<int>(Pass("mkdir", pPath, SYS_mkdirat, AT_FDCWD, pPath, mode));
}

int unlink(const char* pPath) noexcept
{
    return static_cast<int>(Pass("unlink", pPath, SYS_unlinkat, AT_FDCWD, pPath, 0));
}

int unlinkat(int hFolder, const char* pPath, int nFlags) noexcept
{
    return static_cast<int>(Pass("unlink", pPath, SYS_unlinkat, hFolder, pPath, nFlags));
}

int rename(const char* pFrom, const char* pTo) noexcept
{
    return static_cast<int>(Rename(AT_FDCWD, pFrom, AT_FDCWD, pTo, 0));
}

int renameat(int hFrom, const char* pFrom, int hTo, const char* pTo) noexcept
{
    return static_cast<int>(Rename(hFrom, pFrom, hTo, pTo, 0));
}

int renameat2(int hFrom, const char* pFrom, int hTo, const char* pTo, unsigned nFlags) noexcept
{
    return static_cast<int>(Rename(hFrom, pFrom, hTo, pTo, nFlags));
}

int link(const char* pFrom, const char* pTo) noexcept
{
    return static_cast<int>(Pass("link", pTo, SYS_linkat, AT_FDCWD, pFrom, AT_FDCWD, pTo, 0));
}

int linkat(int hFrom, const char* pFrom, int hTo, const char* pTo, int nFlags) noexcept
{
    return static_cast<int>(Pass("link", pTo, SYS_linkat, hFrom, pFrom, hTo, pTo, nFlags));
}

ssize_t write(int h, const void* pBytes, size_t nBytes)
{
    return Writing("write", h, nBytes, [&](size_t n) { return syscall(SYS_write, h, pBytes, n); });
}

ssize_t pwrite(int h, const void* pBytes, size_t nBytes, off_t nOffset)
{
    return Writing("write", h, nBytes,
                   [&](size_t n) { return syscall(SYS_pwrite64, h, pBytes, n, nOffset); });
}

ssize_t copy_file_range(int hFrom, off64_t* pFrom, int hTo, off64_t* pTo, size_t nBytes, unsigned nFlags)
{
    return Writing("copy_file_range", hTo, nBytes,
                   [&](size_t n) { return syscall(SYS_copy_file_range, hFrom, pFrom, hTo, pTo, n, nFlags); });
}

int ioctl(int h, unsigned long nRequest, ...) noexcept
{
    va_list rest;
    va_start(rest, nRequest);
    const std::uintptr_t nArgument = va_arg(rest, std::uintptr_t);
    va_end(rest);
    return static_cast<int>(nRequest == FICLONE ? Pass("clone", h, SYS_ioctl, h, nRequest, nArgument)
                                                : syscall(SYS_ioctl, h, nRequest, nArgument));
}

int fsync(int h)
{
    return Sync(h, SYS_fsync);
}

int fdatasync(int h)
{
    return Sync(h, SYS_fdatasync);
}

int ftruncate(int h, off_t nSize) noexcept
{
    return static_cast<int>(Pass("truncate", h, SYS_ftruncate, h, nSize));
}

int ftruncate64(int h, off64_t nSize) noexcept
{
    return static_cast<int>(Pass("truncate", h, SYS_ftruncate, h, nSize));
}

int fallocate64(int h, int nMode, off64_t nOffset, off64_t nSize)
{
    return static_cast<int>(Pass("allocate", h, SYS_fallocate, h, nMode, nOffset, nSize));
}

int fchmod(int h, mode_t mode) noexcept
{
    return static_cast<int>(Pass("chmod", h, SYS_fchmod, h, mode));
}

int fchown(int h, uid_t user, gid_t group) noexcept
{
    return static_cast<int>(Pass("chown", h, SYS_fchown, h, user, group));
}

int futimens(int h, const timespec times[2]) noexcept
{
    return static_cast<int>(Pass("utime", h, SYS_utimensat, h, nullptr, times, 0));
}

int fsetxattr(int h, const char* pName, const void* pValue, size_t nBytes, int nFlags) noexcept
{
    return static_cast<int>(Pass("xattr", h, SYS_fsetxattr, h, pName, pValue, nBytes, nFlags));
}

int fremovexattr(int h, const char* pName) noexcept
{
    return static_cast<int>(Pass("xattr", h, SYS_fremovexattr, h, pName));
}

} // extern "C"
