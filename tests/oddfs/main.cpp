// SPDX-License-Identifier: MIT
// Shows a folder at another place, until it ends, as a file system with a quirk would.

#define FUSE_USE_VERSION 31
#include <cerrno>
#include <cstdint>
#include <cstdio>
#include <dirent.h>
#include <fcntl.h>
#include <fuse.h>
#include <set>
#include <string>
#include <sys/stat.h>
#include <unistd.h>
#include <vector>

namespace {

const std::set<std::string> kQuirks{
    "none",
    "says-size-0",    // of every file, also of those with contents
    "fails-at-close", // what is written becomes zeros, and only the close says so
    "follows-links",  // and gives each name a number of its own
    "hangs-at-read",  // for as long as it is mounted
    "keeps-no-change-times",
    "numbers-all-alike",
    "numbers-each-name", // and has no rename without replacing
    "resolves-links",    // gives the numbers of what they lead to, and has no rename without replacing
    "renames-plainly"    // knows neither a rename without replacing nor a second name for a file
};
const std::set<std::string> kPlainRenames{"renames-plainly", "numbers-each-name", "resolves-links"};

std::string g_sBehind, g_sQuirk;

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
    pInfo->direct_io = g_sQuirk == "says-size-0";
    return h < 0 ? -errno : 0;
}

fuse_operations Operations()
{
    fuse_operations o{};
    o.getattr = [](const char* pPath, struct stat* pStatus, fuse_file_info*) {
        const bool bFollow = g_sQuirk == "follows-links" || g_sQuirk == "resolves-links";
        const int nResult = Result((bFollow ? stat : lstat)(Behind(pPath).c_str(), pStatus));
        if (g_sQuirk == "says-size-0" && S_ISREG(pStatus->st_mode)) {
            pStatus->st_size = 0;
        }
        if (g_sQuirk == "numbers-all-alike" && S_ISREG(pStatus->st_mode)) {
            pStatus->st_ino = 1 << 20;
        }
        if (g_sQuirk == "keeps-no-change-times") {
            pStatus->st_ctim = pStatus->st_mtim = {pStatus->st_mtim.tv_sec, 0};
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
        const bool bPlainly = kPlainRenames.contains(g_sQuirk);
        return nFlags != 0 && bPlainly ? -EINVAL
                                       : Result(renameat2(AT_FDCWD, Behind(pFrom).c_str(), AT_FDCWD,
                                                          Behind(pTo).c_str(), nFlags));
    };
    o.link = [](const char* pFrom, const char* pTo) {
        return g_sQuirk == "renames-plainly" ? -EPERM
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
        while (g_sQuirk == "hangs-at-read") {
            pause();
        }
        return Result(pread(File(pInfo), pBytes, nBytes, nOffset));
    };
    o.write = [](const char*, const char* pBytes, std::size_t nBytes, off_t nOffset, fuse_file_info* pInfo) {
        const std::vector<char> zeros(nBytes);
        return Result(
            pwrite(File(pInfo), g_sQuirk == "fails-at-close" ? zeros.data() : pBytes, nBytes, nOffset));
    };
    o.flush = [](const char*, fuse_file_info* pInfo) {
        const bool bWritten = (fcntl(File(pInfo), F_GETFL) & O_ACCMODE) != O_RDONLY;
        return g_sQuirk == "fails-at-close" && bWritten ? -EIO : 0;
    };
    o.fsync = [](const char*, int, fuse_file_info*) { return 0; };
    o.release = [](const char*, fuse_file_info* pInfo) { return Result(close(File(pInfo))); };
    return o;
}

} // namespace

int main(int argc, char* argv[])
{
    if (argc != 4 || !kQuirks.contains(argv[1])) {
        std::fputs("usage: oddfs QUIRK FOLDER MOUNTPOINT\n", stderr);
        return 64;
    }
    g_sQuirk = argv[1];
    g_sBehind = argv[2];
    std::string arguments[] = {"oddfs", "-f", "-s", "-ofsname=/dev/odd", argv[3]}; // like a disk
    char* aArguments[] = {arguments[0].data(), arguments[1].data(), arguments[2].data(),
                          arguments[3].data(), arguments[4].data(), nullptr};
    fuse_operations operations = Operations();
    operations.init = [](fuse_conn_info*, fuse_config* pConfig) -> void* {
        // No hidden files in place of those that are removed while open, which a second name needs.
        pConfig->hard_remove = g_sQuirk == "resolves-links" ? 0 : 1;
        pConfig->use_ino = g_sQuirk == "numbers-all-alike" || g_sQuirk == "resolves-links";
        return nullptr;
    };
    return fuse_main(5, aArguments, &operations, nullptr);
}
