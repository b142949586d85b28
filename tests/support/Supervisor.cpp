// SPDX-License-Identifier: MIT
#include "Supervisor.h"

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstddef>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <linux/filter.h>
#include <linux/seccomp.h>
#include <poll.h>
#include <sched.h>
#include <sys/ioctl.h>
#include <sys/prctl.h>
#include <sys/socket.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

namespace support {
namespace {

constexpr int kPatience = 5000;                   // milliseconds without any call
constexpr unsigned long kWakeAtOnce = 0x40082104; // SECCOMP_IOCTL_NOTIF_SET_FLAGS, unknown to older headers
constexpr std::size_t kLongestReport = 1 << 17;

/// Which arguments of a call say what it acts on: a folder and a name in it, one of them, or an open file.
struct tTraced {
    int nNumber;
    const char* pName;
    int nFolder;
    int nName;
    bool bChanges;
};

#define AT(name, nFolder, nName, bChanges) {SYS_##name, #name, nFolder, nName, bChanges}
#define PATH(name, nName, bChanges) {SYS_##name, #name, -1, nName, bChanges}
#define OPEN(name, h, bChanges) {SYS_##name, #name, h, -1, bChanges}
const std::vector<tTraced> kTraced{
    AT(openat, 0, 1, false),     AT(openat2, 0, 1, false),    AT(newfstatat, 0, 1, false),
    AT(statx, 0, 1, false),      AT(readlinkat, 0, 1, false), AT(faccessat, 0, 1, false),
    AT(faccessat2, 0, 1, false), OPEN(fstat, 0, false),       OPEN(lseek, 0, false),
    OPEN(read, 0, false),        OPEN(pread64, 0, false),     OPEN(getdents64, 0, false),
    OPEN(fgetxattr, 0, false),   OPEN(flistxattr, 0, false),  OPEN(fstatfs, 0, false),
    PATH(statfs, 0, false),      PATH(getxattr, 0, false),    PATH(lgetxattr, 0, false),
    OPEN(fcntl, 0, false),       OPEN(flock, 0, false),       OPEN(close, 0, false),
    AT(mkdirat, 0, 1, true),     AT(unlinkat, 0, 1, true),    AT(renameat, 2, 3, true),
    AT(renameat2, 2, 3, true),   AT(linkat, 2, 3, true),      AT(symlinkat, 1, 2, true),
    OPEN(fchmod, 0, true),       AT(fchmodat, 0, 1, true),    OPEN(fchown, 0, true),
    AT(fchownat, 0, 1, true),    AT(utimensat, 0, 1, true),   OPEN(fsetxattr, 0, true),
    OPEN(fremovexattr, 0, true), PATH(setxattr, 0, true),     PATH(lsetxattr, 0, true),
    OPEN(ftruncate, 0, true),    OPEN(fallocate, 0, true),    OPEN(write, 0, true),
    OPEN(pwrite64, 0, true),     OPEN(writev, 0, true),       OPEN(copy_file_range, 2, true),
    OPEN(sendfile, 0, true),     OPEN(ioctl, 0, true),        OPEN(fsync, 0, true),
    OPEN(fdatasync, 0, true),    OPEN(syncfs, 0, true),       OPEN(sync_file_range, 0, true),
#ifdef SYS_open // the calls without a folder, of older machines
    PATH(open, 0, false),        PATH(stat, 0, false),        PATH(lstat, 0, false),
    PATH(access, 0, false),      PATH(readlink, 0, false),    PATH(creat, 0, true),
    PATH(mkdir, 0, true),        PATH(rmdir, 0, true),        PATH(unlink, 0, true),
    PATH(rename, 1, true),       PATH(link, 1, true),         PATH(symlink, 1, true),
    PATH(chmod, 0, true),
#endif
};

std::string LinkOf(pid_t nProcess, std::uint64_t h)
{
    const std::string sLink =
        "/proc/" + std::to_string(nProcess) + "/fd/" + std::to_string(static_cast<int>(h));
    std::array<char, 4096> aPath{};
    const ssize_t nLength = readlink(sLink.c_str(), aPath.data(), aPath.size());
    return {aPath.data(), nLength > 0 ? static_cast<std::size_t>(nLength) : 0};
}

template <class Value>
Value Memory(int hMemory, std::uint64_t nAddress)
{
    Value value{};
    return pread(hMemory, &value, sizeof value, static_cast<off_t>(nAddress)) > 0 ? value : Value{};
}

/// The call as `judge` sees it.
tCall Described(const seccomp_notif& notice, int hMemory)
{
    const auto& row = *std::find_if(kTraced.begin(), kTraced.end(),
                                    [&](const auto& each) { return each.nNumber == notice.data.nr; });
    tCall call{row.pName, "", row.bChanges, {}, static_cast<pid_t>(notice.pid)};
    std::copy_n(notice.data.args, call.arguments.size(), call.arguments.begin());
    std::string sName;
    if (row.nName >= 0 && notice.data.args[row.nName] != 0) {
        sName = Memory<std::array<char, 4096>>(hMemory, notice.data.args[row.nName]).data();
    }
    if (sName.starts_with("/proc/self/fd/")) {
        sName = LinkOf(call.nProcess, std::stoul(sName.substr(14)));
    }
    if (row.nFolder >= 0 && !sName.starts_with('/')) {
        call.sPath = LinkOf(call.nProcess, notice.data.args[row.nFolder]) + (sName.empty() ? "" : "/");
    }
    call.sPath += sName;
    if (call.sCall.starts_with("open")) {
        const auto nFlags = call.sCall == "openat2" ? Memory<std::uint64_t>(hMemory, call.arguments[2])
                                                    : call.arguments[static_cast<std::size_t>(row.nName) + 1];
        call.bChanges = (nFlags & O_CREAT) != 0 || (nFlags & O_TMPFILE) == O_TMPFILE;
    }
    return call;
}

/// Of the calls that set something about an open file only those with which programs agree on it.
bool Counts(const tCall& call, const std::vector<std::string>& places)
{
    const std::uint64_t nCommand = call.arguments[1];
    return (call.sCall != "fcntl" || nCommand == F_SETLEASE || nCommand == F_OFD_SETLK ||
            nCommand == F_SETLK) &&
           std::any_of(places.begin(), places.end(),
                       [&](const auto& each) { return call.sPath.starts_with(each); });
}

/// Carries out half of a write; what it returns.
std::int64_t Half(const tCall& call, int hMemory)
{
    const auto process = static_cast<int>(syscall(SYS_pidfd_open, call.nProcess, 0));
    const auto hTo = static_cast<int>(syscall(SYS_pidfd_getfd, process, call.arguments[0], 0));
    std::string sBytes((call.arguments[2] + 1) / 2, '\0');
    const ssize_t nRead = pread(hMemory, sBytes.data(), sBytes.size(), static_cast<off_t>(call.arguments[1]));
    sBytes.resize(nRead < 0 ? 0 : static_cast<std::size_t>(nRead));
    const ssize_t nDone = call.sCall == "write" ? write(hTo, sBytes.data(), sBytes.size())
                                                : pwrite(hTo, sBytes.data(), sBytes.size(),
                                                         static_cast<off_t>(call.arguments[3]));
    close(hTo);
    close(process);
    return nDone;
}

/// Puts the calling process under watch; the descriptor by which its calls are told, -1 if that is denied.
int Watch()
{
    std::vector<sock_filter> program{BPF_STMT(BPF_LD | BPF_W | BPF_ABS, offsetof(seccomp_data, nr))};
    for (const tTraced& each : kTraced) {
        program.push_back(BPF_JUMP(BPF_JMP | BPF_JEQ | BPF_K, static_cast<unsigned>(each.nNumber), 0, 1));
        program.push_back(BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_USER_NOTIF));
    }
    program.push_back(BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ALLOW));
    const sock_fprog filter{static_cast<unsigned short>(program.size()), program.data()};
    prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0);
    return static_cast<int>(
        syscall(SYS_seccomp, SECCOMP_SET_MODE_FILTER, SECCOMP_FILTER_FLAG_NEW_LISTENER, &filter));
}

[[noreturn]] void Work(int hTo, const std::function<std::string()>& work)
{
    prctl(PR_SET_PDEATHSIG, SIGKILL);
    int h = Watch();
    h = unshare(CLONE_FILES) == 0 ? h : -1;
    if (send(hTo, &h, sizeof h, 0) < 0 || h < 0) {
        _exit(1);
    }
    close(h);
    const std::string sSaid = work();
    send(hTo, sSaid.data(), std::min(sSaid.size(), kLongestReport), 0);
    _exit(0);
}

/// One call: `judge` is asked, the kernel told. False: the process has gone.
bool Answer(int hListener, int hMemory, const std::vector<std::string>& places, const Judge& judge,
            tSupervised& result)
{
    seccomp_notif notice{};
    if (ioctl(hListener, SECCOMP_IOCTL_NOTIF_RECV, &notice) != 0) {
        return errno == ENOENT || errno == EINTR;
    }
    seccomp_notif_resp answer{notice.id, 0, 0, SECCOMP_USER_NOTIF_FLAG_CONTINUE};
    tCall call = Described(notice, hMemory);
    if (Counts(call, places)) {
        result.calls.push_back(call);
        const int nError = judge(call, result.calls.size());
        if (nError != 0) {
            answer.flags = 0;
            answer.error = nError > 0 ? -nError : 0;
            answer.val = nError == kShort ? Half(call, hMemory) : 0;
        }
    }
    ioctl(hListener, SECCOMP_IOCTL_NOTIF_SEND, &answer); // fails if it has been killed
    return true;
}

} // namespace

tSupervised Supervise(const std::vector<std::string>& places, const std::function<std::string()>& work,
                      const Judge& judge)
{
    tSupervised result;
    std::array<int, 2> aSockets{};
    EXPECT_EQ(socketpair(AF_UNIX, SOCK_SEQPACKET | SOCK_CLOEXEC, 0, aSockets.data()), 0);
    // Until it parts with them the child has the same descriptors, so the one that it gets is here, too.
    const auto child = static_cast<pid_t>(syscall(SYS_clone, CLONE_FILES | SIGCHLD, 0, 0, 0, 0));
    if (child == 0) {
        Work(aSockets[1], work);
    }
    int hListener = -1;
    const bool bWatched = recv(aSockets[0], &hListener, sizeof hListener, 0) > 0 && hListener >= 0;
    EXPECT_TRUE(bWatched) << "nobody may watch a process here";
    close(aSockets[1]); // not before: until now the child had it only as ours
    if (bWatched) {
        ioctl(hListener, kWakeAtOnce, 1);
        const int hMemory = open(("/proc/" + std::to_string(child) + "/mem").c_str(), O_RDONLY | O_CLOEXEC);
        for (bool bGoesOn = true; bGoesOn;) {
            pollfd waiting{hListener, POLLIN, 0};
            const int nReady = poll(&waiting, 1, kPatience);
            if (nReady == 0) {
                result.bHung = true;
                kill(child, SIGKILL);
            }
            bGoesOn = nReady == 0 ||
                      ((waiting.revents & POLLHUP) == 0 && Answer(hListener, hMemory, places, judge, result));
        }
        close(hMemory);
        close(hListener);
        result.sSaid.resize(kLongestReport);
        const ssize_t nSaid = recv(aSockets[0], result.sSaid.data(), result.sSaid.size(), MSG_DONTWAIT);
        result.sSaid.resize(nSaid > 0 ? static_cast<std::size_t>(nSaid) : 0);
    }
    close(aSockets[0]);
    waitpid(child, &result.nStatus, 0);
    return result;
}

} // namespace support
