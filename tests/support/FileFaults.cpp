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

long Sync(int h, long nCall)
{
    const int nError = Judge("fsync", NameOf(h));
    errno = nError;
    return nError > 0 ? -1 : g_bArmed && !g_settings.bSyncForReal ? 0 : syscall(nCall, h);
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

#define OPEN(name, hFolder, ...)                                                                             \
    int name(__VA_ARGS__ const char* pPath, int nFlags, ...)                                                 \
    {                                                                                                        \
        va_list rest;                                                                                        \
        va_start(rest, nFlags);                                                                              \
        const unsigned mode = (nFlags & (O_CREAT | O_TMPFILE)) != 0 ? va_arg(rest, unsigned) : 0;            \
        va_end(rest);                                                                                        \
        return static_cast<int>(Open(hFolder, pPath, nFlags, mode));                                         \
    }
#define COMMA ,
OPEN(open, AT_FDCWD)
OPEN(open64, AT_FDCWD)
OPEN(openat, hFrom, int hFrom COMMA)
OPEN(openat64, hFrom, int hFrom COMMA)

// A name with its parameters, and what is done instead.
#define CALL(name, parameters, ...)                                                                          \
    int name parameters                                                                                      \
    {                                                                                                        \
        return static_cast<int>(__VA_ARGS__);                                                                \
    }
CALL(mkdir, (const char* pPath, mode_t mode) noexcept,
     Pass("mkdir", pPath, SYS_mkdirat, AT_FDCWD, pPath, mode))
CALL(unlink, (const char* pPath) noexcept, Pass("unlink", pPath, SYS_unlinkat, AT_FDCWD, pPath, 0))
CALL(unlinkat, (int hAt, const char* pPath, int nFlags) noexcept,
     Pass("unlink", pPath, SYS_unlinkat, hAt, pPath, nFlags))
CALL(rename, (const char* pFrom, const char* pTo) noexcept, Rename(AT_FDCWD, pFrom, AT_FDCWD, pTo, 0))
CALL(renameat, (int hFrom, const char* pFrom, int hTo, const char* pTo) noexcept,
     Rename(hFrom, pFrom, hTo, pTo, 0))
CALL(renameat2, (int hFrom, const char* pFrom, int hTo, const char* pTo, unsigned nFlags) noexcept,
     Rename(hFrom, pFrom, hTo, pTo, nFlags))
CALL(link, (const char* pFrom, const char* pTo) noexcept,
     Pass("link", pTo, SYS_linkat, AT_FDCWD, pFrom, AT_FDCWD, pTo, 0))
CALL(linkat, (int hFrom, const char* pFrom, int hTo, const char* pTo, int nFlags) noexcept,
     Pass("link", pTo, SYS_linkat, hFrom, pFrom, hTo, pTo, nFlags))
CALL(fsync, (int h), Sync(h, SYS_fsync))
CALL(fdatasync, (int h), Sync(h, SYS_fdatasync))
CALL(ftruncate, (int h, off_t nSize) noexcept, Pass("truncate", h, SYS_ftruncate, h, nSize))
CALL(ftruncate64, (int h, off64_t nSize) noexcept, Pass("truncate", h, SYS_ftruncate, h, nSize))
CALL(fallocate64, (int h, int nMode, off64_t nOffset, off64_t nSize),
     Pass("allocate", h, SYS_fallocate, h, nMode, nOffset, nSize))
CALL(fchmod, (int h, mode_t mode) noexcept, Pass("chmod", h, SYS_fchmod, h, mode))
CALL(fchown, (int h, uid_t user, gid_t group) noexcept, Pass("chown", h, SYS_fchown, h, user, group))
CALL(futimens, (int h, const timespec times[2]) noexcept,
     Pass("utime", h, SYS_utimensat, h, nullptr, times, 0))
CALL(fsetxattr, (int h, const char* pName, const void* pValue, size_t nBytes, int nFlags) noexcept,
     Pass("xattr", h, SYS_fsetxattr, h, pName, pValue, nBytes, nFlags))
CALL(fremovexattr, (int h, const char* pName) noexcept, Pass("xattr", h, SYS_fremovexattr, h, pName))

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

} // extern "C"
