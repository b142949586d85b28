// SPDX-License-Identifier: MIT
#include "FuseFolder.h"

#define FUSE_USE_VERSION 31
#include <cerrno>
#include <csignal>
#include <dirent.h>
#include <fcntl.h>
#include <fuse.h>
#include <sys/mount.h>
#include <sys/prctl.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

namespace support {
namespace {

std::string g_sBehind;
Quirk g_quirk = Quirk::None;

std::string Behind(const char* pPath)
{
    return g_sBehind + pPath;
}

/// What the file system answers to a call that the system answered with `nResult`.
int Result(ssize_t nResult)
{
    return nResult < 0 ? -errno : static_cast<int>(nResult);
}

int File(const fuse_file_info* pInfo)
{
    return static_cast<int>(pInfo->fh);
}

int Open(const char* pPath, fuse_file_info* pInfo, mode_t mode)
{
    const int h = open(Behind(pPath).c_str(), pInfo->flags & ~O_NOFOLLOW, mode);
    pInfo->fh = static_cast<std::uint64_t>(h);
    pInfo->direct_io = g_quirk == Quirk::SaysSizeZero;
    return h < 0 ? -errno : 0;
}

fuse_operations Operations()
{
    fuse_operations o{};
    o.getattr = [](const char* pPath, struct stat* pStatus, fuse_file_info*) {
        const int nResult = Result(lstat(Behind(pPath).c_str(), pStatus));
        if (g_quirk == Quirk::SaysSizeZero && S_ISREG(pStatus->st_mode)) {
            pStatus->st_size = 0;
        }
        return nResult;
    };
    o.readdir = [](const char* pPath, void* pBuffer, fuse_fill_dir_t fill, off_t, fuse_file_info*,
                   fuse_readdir_flags) {
        DIR* pFolder = opendir(Behind(pPath).c_str());
        while (const dirent* pEntry = pFolder != nullptr ? readdir(pFolder) : nullptr) {
            fill(pBuffer, pEntry->d_name, nullptr, 0, fuse_fill_dir_flags{});
        }
        return Result(closedir(pFolder));
    };
    o.mkdir = [](const char* pPath, mode_t mode) { return Result(mkdir(Behind(pPath).c_str(), mode)); };
    o.unlink = [](const char* pPath) { return Result(unlink(Behind(pPath).c_str())); };
    o.rename = [](const char* pFrom, const char* pTo, unsigned nFlags) {
        return nFlags != 0 && g_quirk == Quirk::RenamesPlainly
                   ? -EINVAL
                   : Result(
                         renameat2(AT_FDCWD, Behind(pFrom).c_str(), AT_FDCWD, Behind(pTo).c_str(), nFlags));
    };
    o.link = [](const char* pFrom, const char* pTo) {
        return g_quirk == Quirk::RenamesPlainly ? -EPERM
                                                : Result(link(Behind(pFrom).c_str(), Behind(pTo).c_str()));
    };
    o.chmod = [](const char* pPath, mode_t mode, fuse_file_info*) {
        return Result(chmod(Behind(pPath).c_str(), mode));
    };
    o.chown = [](const char* pPath, uid_t user, gid_t group, fuse_file_info*) {
        return Result(lchown(Behind(pPath).c_str(), user, group));
    };
    o.truncate = [](const char* pPath, off_t nSize, fuse_file_info*) {
        return Result(truncate(Behind(pPath).c_str(), nSize));
    };
    o.utimens = [](const char* pPath, const timespec times[2], fuse_file_info*) {
        return Result(utimensat(AT_FDCWD, Behind(pPath).c_str(), times, AT_SYMLINK_NOFOLLOW));
    };
    o.open = [](const char* pPath, fuse_file_info* pInfo) { return Open(pPath, pInfo, 0); };
    o.create = [](const char* pPath, mode_t mode, fuse_file_info* pInfo) { return Open(pPath, pInfo, mode); };
    o.read = [](const char*, char* pBytes, std::size_t nBytes, off_t nOffset, fuse_file_info* pInfo) {
        while (g_quirk == Quirk::HangsAtRead) {
            pause();
        }
        return Result(pread(File(pInfo), pBytes, nBytes, nOffset));
    };
    o.write = [](const char*, const char* pBytes, std::size_t nBytes, off_t nOffset, fuse_file_info* pInfo) {
        const std::vector<char> zeros(nBytes);
        return Result(
            pwrite(File(pInfo), g_quirk == Quirk::FailsAtClose ? zeros.data() : pBytes, nBytes, nOffset));
    };
    o.flush = [](const char*, fuse_file_info* pInfo) {
        const bool bWritten = (fcntl(File(pInfo), F_GETFL) & O_ACCMODE) != O_RDONLY;
        return g_quirk == Quirk::FailsAtClose && bWritten ? -EIO : 0;
    };
    o.fsync = [](const char*, int, fuse_file_info*) { return 0; };
    o.release = [](const char*, fuse_file_info* pInfo) { return Result(close(File(pInfo))); };
    return o;
}

dev_t DeviceOf(const std::string& sPath)
{
    struct stat status{};
    return stat(sPath.c_str(), &status) == 0 ? status.st_dev : 0;
}

} // namespace

FuseFolder::FuseFolder(const std::string& sBehind, std::string sMountPoint, Quirk quirk)
    : m_sMountPoint(std::move(sMountPoint)), m_nDeviceBefore(DeviceOf(m_sMountPoint)), m_process(fork())
{
    if (m_process == 0) {
        prctl(PR_SET_PDEATHSIG, SIGKILL);
        g_sBehind = sBehind;
        g_quirk = quirk;
        std::string arguments[] = {"fuse", "-f", "-s", m_sMountPoint};
        char* aArguments[] = {arguments[0].data(), arguments[1].data(), arguments[2].data(),
                              arguments[3].data(), nullptr};
        const fuse_operations operations = Operations();
        _exit(fuse_main(4, aArguments, &operations, nullptr));
    }
    for (int n = 0; n < 200 && !IsMounted() && waitpid(m_process, nullptr, WNOHANG) == 0; ++n) {
        usleep(10'000);
    }
}

FuseFolder::~FuseFolder()
{
    kill(m_process, SIGKILL);
    waitpid(m_process, nullptr, 0);
    umount2(m_sMountPoint.c_str(), MNT_DETACH);
}

bool FuseFolder::IsMounted() const
{
    return DeviceOf(m_sMountPoint) != m_nDeviceBefore;
}

} // namespace support
