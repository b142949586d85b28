#include "FileFaults.h"

#include <cerrno>
#include <cstdarg>
#include <fcntl.h>
#include <filesystem>
#include <sys/syscall.h>
#include <unistd.h>

namespace support::faults {
namespace {

bool g_bArmed = false;
bool g_bPlainRenameOnly = false;
Judge g_judge;
std::vector<tChange> g_changes;

std::string NameOf(const char* pPath)
{
    return std::filesystem::path(pPath).filename().string();
}

std::string NameOf(int h)
{
    std::error_code error;
    return std::filesystem::read_symlink("/proc/self/fd/" + std::to_string(h), error).filename().string();
}

/// What the judge says of a call on `name`, a path or an open file.
template <class Name>
int Verdict(const char* pCall, Name name)
{
    if (!g_bArmed) {
        return 0;
    }
    g_bArmed = false;
    g_changes.push_back({pCall, NameOf(name)});
    const int nError = g_judge ? g_judge(g_changes.back(), g_changes.size()) : 0;
    g_bArmed = true;
    return nError;
}

int Result(int nError)
{
    errno = nError;
    return nError > 0 ? -1 : 0;
}

template <class Name, class... Arguments>
int Pass(const char* pCall, Name name, long nCall, Arguments... arguments)
{
    const int nError = Verdict(pCall, name);
    return nError > 0 ? Result(nError) : static_cast<int>(syscall(nCall, arguments...));
}

/// `write(nBytes)` writes so many.
template <class Write>
ssize_t Writing(const char* pCall, int h, std::size_t nBytes, const Write& write)
{
    const bool bFile = g_bArmed && std::filesystem::is_regular_file("/proc/self/fd/" + std::to_string(h));
    const int nError = bFile ? Verdict(pCall, h) : 0;
    return nError > 0 ? Result(nError) : write(nError == kShort ? (nBytes + 1) / 2 : nBytes);
}

} // namespace

void Arm(const Judge& judge, bool bPlainRenameOnly)
{
    g_judge = judge;
    g_bPlainRenameOnly = bPlainRenameOnly;
    g_changes.clear();
    g_bArmed = true;
}

std::vector<tChange> Disarm()
{
    g_bArmed = false;
    return std::move(g_changes);
}

} // namespace support::faults

using namespace support::faults;

// The C library's names. They take precedence over those of the C library for every library of the process.
extern "C" {

#define OPEN(name, hFolder, ...)                                                                             \
    int name(__VA_ARGS__)                                                                                    \
    {                                                                                                        \
        va_list rest;                                                                                        \
        va_start(rest, nFlags);                                                                              \
        const unsigned mode = (nFlags & (O_CREAT | O_TMPFILE)) != 0 ? va_arg(rest, unsigned) : 0;            \
        va_end(rest);                                                                                        \
        return (nFlags & O_CREAT) != 0                                                                       \
                   ? Pass("open", pPath, SYS_openat, hFolder, pPath, nFlags, mode)                           \
                   : static_cast<int>(syscall(SYS_openat, hFolder, pPath, nFlags, mode));                    \
    }
OPEN(open, AT_FDCWD, const char* pPath, int nFlags, ...)
OPEN(open64, AT_FDCWD, const char* pPath, int nFlags, ...)
OPEN(openat, hFrom, int hFrom, const char* pPath, int nFlags, ...)
OPEN(openat64, hFrom, int hFrom, const char* pPath, int nFlags, ...)

// A name with its parameters, and what is done instead.
#define CALL(name, parameters, ...)                                                                          \
    int name parameters                                                                                      \
    {                                                                                                        \
        return __VA_ARGS__;                                                                                  \
    }
CALL(mkdir, (const char* pPath, mode_t mode) noexcept,
     Pass("mkdir", pPath, SYS_mkdirat, AT_FDCWD, pPath, mode))
CALL(unlink, (const char* pPath) noexcept, unlinkat(AT_FDCWD, pPath, 0))
CALL(unlinkat, (int hAt, const char* pPath, int nFlags) noexcept,
     Pass("unlink", pPath, SYS_unlinkat, hAt, pPath, nFlags))
CALL(rename, (const char* pFrom, const char* pTo) noexcept, renameat2(AT_FDCWD, pFrom, AT_FDCWD, pTo, 0))
CALL(renameat2, (int hFrom, const char* pFrom, int hTo, const char* pTo, unsigned nFlags) noexcept,
     nFlags != 0 && g_bArmed && g_bPlainRenameOnly
         ? Result(EINVAL)
         : Pass("rename", pTo, SYS_renameat2, hFrom, pFrom, hTo, pTo, nFlags))
CALL(linkat, (int hFrom, const char* pFrom, int hTo, const char* pTo, int nFlags) noexcept,
     Pass("link", pTo, SYS_linkat, hFrom, pFrom, hTo, pTo, nFlags))
CALL(fsync, (int h), g_bArmed ? Result(Verdict("fsync", h)) : static_cast<int>(syscall(SYS_fsync, h)))
CALL(sync_file_range, (int h, off64_t nOffset, off64_t nBytes, unsigned nFlags),
     Pass((nFlags & SYNC_FILE_RANGE_WAIT_AFTER) != 0 ? "wait" : "begin", h, SYS_sync_file_range, h, nOffset,
          nBytes, nFlags))
CALL(ftruncate, (int h, off_t nSize) noexcept, Pass("truncate", h, SYS_ftruncate, h, nSize))
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

} // extern "C"
