// SPDX-License-Identifier: MIT
#include "FileAccess.h"

#include "Paths.h"
#include "Retried.h"

#include <cerrno>
#include <chrono>
#include <linux/openat2.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <thread>
#include <unistd.h>

namespace desktop {
namespace {

using namespace std::chrono_literals;

int OpenPlainly(int hFolder, const char* pPath, int nFlags)
{
    return Retried([&] { return openat(hFolder, pPath, nFlags); });
}

/// Opens a path without following any link on it: a missing file must not be created in another folder if a
/// program has replaced a folder on the path with a link. Fails on a kernel that cannot guarantee this.
int OpenThroughNoLink(int hFolder, const char* pPath, int nFlags)
{
    constexpr mode_t kNewFile = 0666;
    open_how how{};
    how.flags = static_cast<unsigned>(nFlags);
    how.mode = (nFlags & O_CREAT) != 0 ? kNewFile : 0;
    how.resolve = RESOLVE_NO_SYMLINKS;
    return Retried([&] { return static_cast<int>(syscall(SYS_openat2, hFolder, pPath, &how, sizeof how)); });
}

/// Opens `sPath` relative to its folder if it is too long for the system; then only the folder's path has to
/// stay within the limit.
template <class Open>
Descriptor OpenByAnyLength(const std::string& sPath, int nFlags, Open open)
{
    Descriptor file(open(AT_FDCWD, sPath.c_str(), nFlags));
    if (file.IsOpen() || errno != ENAMETOOLONG) {
        return file;
    }
    const Descriptor folder(
        open(AT_FDCWD, platform::FolderOf(sPath).c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC));
    const char* pName = sPath.c_str() + sPath.rfind(platform::kSeparator) + 1;
    return folder.IsOpen() ? Descriptor(open(folder.Get(), pName, nFlags)) : Descriptor();
}

} // namespace

Descriptor OpenFile(const std::string& sPath)
{
    constexpr auto kPause = 5ms;
    Descriptor file = OpenByAnyLength(sPath, kOpenFlags, OpenPlainly);
    for (auto waited = 0ms; !file.IsOpen() && errno == EWOULDBLOCK && waited < 1s; waited += kPause) {
        std::this_thread::sleep_for(kPause);
        file = OpenByAnyLength(sPath, kOpenFlags, OpenPlainly);
    }
    return file;
}

Descriptor CreateFile(const std::string& sPath)
{
    // O_CREAT is used only if the file is missing: in a shared folder such as the temporary one, the system
    // refuses O_CREAT for files of other users even if they exist.
    Descriptor file = OpenFile(sPath);
    if (file.IsOpen() || errno != ENOENT) {
        return file;
    }
    return OpenByAnyLength(sPath, kOpenFlags | O_CREAT, OpenThroughNoLink);
}

off_t LengthOf(int hFile)
{
    struct stat status{};
    return fstat(hFile, &status) == 0 && S_ISREG(status.st_mode) ? status.st_size : -1;
}

platform::tReadResult ReadBytes(int hFile, void* pBuffer, std::size_t nBytes)
{
    // A file that ends where the caller expects is the known file. Anything else has to be checked for being
    // a regular file. Checking every file would make a search of many small ones five percent slower.
    if (lseek(hFile, 0, SEEK_END) != static_cast<off_t>(nBytes) && LengthOf(hFile) < 0) {
        return {};
    }
    platform::tReadResult result{true, 0};
    while (result.nBytes < nBytes) {
        const auto nRead = Retried([&] {
            return pread(hFile, static_cast<char*>(pBuffer) + result.nBytes, nBytes - result.nBytes,
                         static_cast<off_t>(result.nBytes));
        });
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

} // namespace desktop
