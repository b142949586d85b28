// SPDX-License-Identifier: MIT
#include "FileAccess.h"

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

/// A file that has gone must not come into being in a folder that another program has put in the place of one
/// on the way. A kernel that cannot promise that creates nothing.
int OpenThroughNoLink(int hFolder, const char* pPath, int nFlags)
{
    open_how how{};
    how.flags = static_cast<unsigned>(nFlags);
    how.mode = (nFlags & O_CREAT) != 0 ? 0666 : 0;
    how.resolve = RESOLVE_NO_SYMLINKS;
    return Retried([&] { return static_cast<int>(syscall(SYS_openat2, hFolder, pPath, &how, sizeof how)); });
}

/// Opens `sPath` by its folder and its name where it is too long for the system, whose limit only the
/// folder's path then has to keep.
template <class Open>
Descriptor OpenByAnyLength(const std::string& sPath, int nFlags, Open open)
{
    Descriptor file(open(AT_FDCWD, sPath.c_str(), nFlags));
    if (file.IsOpen() || errno != ENAMETOOLONG) {
        return file;
    }
    const Descriptor folder(open(AT_FDCWD, FolderOf(sPath).c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC));
    const char* pName = sPath.c_str() + sPath.rfind(platform::kSeparator) + 1;
    return folder.IsOpen() ? Descriptor(open(folder.Get(), pName, nFlags)) : Descriptor();
}

} // namespace

std::string FolderOf(const std::string& sPath)
{
    const std::size_t nSeparator = sPath.rfind(platform::kSeparator);
    return sPath.substr(0, nSeparator == 0 ? 1 : nSeparator);
}

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
    // Only what is missing is asked to be created: where files of others lie in a shared folder such as the
    // temporary one, the system refuses an open that asks to create even if the file is there.
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
    // What ends where the caller expects is the file that the caller knows. Anything else has to show that it
    // is a regular file. Asking that of every file costs a search of many small ones a twentieth of its time.
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
