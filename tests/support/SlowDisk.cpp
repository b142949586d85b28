// SPDX-License-Identifier: MIT
// Checked calls would be calls of these functions in themselves.
#undef _FORTIFY_SOURCE

#include "SlowDisk.h"

#include <chrono>
#include <climits>
#include <cstdarg>
#include <cstdlib>
#include <cstring>
#include <dirent.h>
#include <fcntl.h>
#include <mutex>
#include <string_view>
#include <sys/syscall.h>
#include <thread>
#include <unistd.h>

namespace support::disk {
namespace {

std::mutex g_mutex;
Call g_call = Call::Open;
std::string g_sName;
std::function<void()> g_act;
thread_local bool g_bActing = false;

std::string_view NameOf(std::string_view sPath)
{
    sPath = sPath.substr(0, sPath.find_last_not_of('/') + 1);
    return sPath.substr(sPath.rfind('/') + 1);
}

/// What the environment asks for.
void Wait(Call call, std::string_view sName)
{
    static const char* const pDelay = std::getenv("SLOWDISK_MS");
    static const char* const pStuck = std::getenv("SLOWDISK_STUCK");
    if (pDelay != nullptr && call != Call::Read) {
        std::this_thread::sleep_for(std::chrono::milliseconds(std::atoi(pDelay)));
    }
    while (pStuck != nullptr && call != Call::Open && sName == pStuck) {
        pause();
    }
}

void Before(Call call, std::string_view sName)
{
    Wait(call, sName);
    std::unique_lock lock(g_mutex);
    if (g_bActing || call != g_call || sName != g_sName || !g_act) {
        return;
    }
    const auto act = g_act;
    lock.unlock();
    g_bActing = true;
    act();
    g_bActing = false;
}

void Before(Call call, int h)
{
    // A thread may have descriptors of its own.
    const std::string sLink = "/proc/thread-self/fd/" + std::to_string(h);
    char aPath[PATH_MAX];
    const ssize_t nPath = readlink(sLink.c_str(), aPath, sizeof aPath);
    Before(call, NameOf({aPath, nPath < 0 ? 0 : static_cast<std::size_t>(nPath)}));
}

} // namespace

void Arm(Call call, const std::string& sName, std::function<void()> act)
{
    const std::lock_guard lock(g_mutex);
    g_call = call;
    g_sName = sName;
    g_act = std::move(act);
}

void Disarm()
{
    Arm(Call::Open, "", {});
}

} // namespace support::disk

using namespace support::disk;

// The C library's names. They take precedence over those of the C library for every library of the process.
extern "C" {

#define OPEN(name, hFolder, ...)                                                                             \
    int name(__VA_ARGS__)                                                                                    \
    {                                                                                                        \
        va_list rest;                                                                                        \
        va_start(rest, nFlags);                                                                              \
        const unsigned mode = (nFlags & (O_CREAT | O_TMPFILE)) != 0 ? va_arg(rest, unsigned) : 0;            \
        va_end(rest);                                                                                        \
        Before(Call::Open, NameOf(pPath));                                                                   \
        return static_cast<int>(syscall(SYS_openat, hFolder, pPath, nFlags, mode));                          \
    }
OPEN(open, AT_FDCWD, const char* pPath, int nFlags, ...)
OPEN(open64, AT_FDCWD, const char* pPath, int nFlags, ...)
OPEN(openat, hFrom, int hFrom, const char* pPath, int nFlags, ...)
OPEN(openat64, hFrom, int hFrom, const char* pPath, int nFlags, ...)

// Where the compiler checks calls:
int __open_2(const char* pPath, int nFlags)
{
    return open(pPath, nFlags);
}
int __openat_2(int hFrom, const char* pPath, int nFlags)
{
    return openat(hFrom, pPath, nFlags);
}

#define PREAD(name)                                                                                          \
    ssize_t name(int h, void* pBuffer, size_t nBytes, off_t nOffset)                                         \
    {                                                                                                        \
        Before(Call::Read, h);                                                                               \
        return syscall(SYS_pread64, h, pBuffer, nBytes, nOffset);                                            \
    }
PREAD(pread)
PREAD(pread64)

ssize_t getdents64(int h, void* pEntries, size_t nBytes) noexcept
{
    Before(Call::List, h);
    return syscall(SYS_getdents64, h, pEntries, nBytes);
}

} // extern "C"
