#include "TrashCan.h"

#include "FileSystem.h"
#include "Reasons.h"
#include "Renaming.h"
#include "Retried.h"
#include "TrashFolders.h"
#include "TrashInfo.h"

#include <array>
#include <climits>
#include <fcntl.h>
#include <gio/gio.h>
#include <memory>

namespace desktop {
namespace {

/// The system writes the note of a longer name under a temporary name that is too long, and says nothing of
/// its failure.
constexpr std::size_t kLongestName = 238;

struct Unref {
    void operator()(void* pObject) const { g_object_unref(pObject); }
};

/// The path by which the kernel now knows the open file; empty if it does not tell.
std::string PathOf(const Descriptor& file)
{
    const std::string sLink = "/proc/self/fd/" + std::to_string(file.Get());
    std::array<char, PATH_MAX> aPath{};
    const ssize_t nLength = readlink(sLink.c_str(), aPath.data(), aPath.size());
    return nLength > 0 && static_cast<std::size_t>(nLength) < aPath.size()
               ? std::string(aPath.data(), static_cast<std::size_t>(nLength))
               : std::string();
}

/// `.../files/NAME` and its note `.../info/NAME.trashinfo`.
tTrashed Trashed(const std::string& sPath, const std::string& sFilePath)
{
    const std::size_t nName = sFilePath.rfind(platform::kSeparator) + 1;
    const std::string sFolder = sFilePath.substr(0, nName);
    return {sPath, sFilePath, sFolder + "../info/" + sFilePath.substr(nName) + ".trashinfo"};
}

/// The system's error number behind a message of GIO, which ends in the words for it; 0 if there is none.
int ErrorIn(const std::string& sMessage)
{
    constexpr int kLastError = EHWPOISON;
    for (int nError = 1; nError <= kLastError; ++nError) {
        if (sMessage.ends_with(std::string(": ") + g_strerror(nError))) {
            return nError;
        }
    }
    return 0;
}

std::string WhyNotTrashed(const std::string& sPath, const GError* pError)
{
    // The folder first: of a file that may not be taken out of it, GIO may say that it has no trash.
    const std::string sFolder = sPath.substr(0, sPath.rfind(platform::kSeparator) + 1);
    if (faccessat(AT_FDCWD, sFolder.c_str(), W_OK | X_OK, AT_EACCESS) != 0) {
        return Reason(errno, Step::Trash);
    }
    if (pError != nullptr && pError->domain == G_IO_ERROR) {
        switch (pError->code) {
        case G_IO_ERROR_NO_SPACE:
            return Reason(ENOSPC, Step::Trash);
        case G_IO_ERROR_PERMISSION_DENIED:
            return "You are not permitted to put it into the trash.";
        case G_IO_ERROR_READ_ONLY:
            return Reason(EROFS, Step::Trash);
        case G_IO_ERROR_NOT_FOUND:
            return Reason(ENOENT, Step::Trash);
        case G_IO_ERROR_FILENAME_TOO_LONG:
            return Reason(ENAMETOOLONG, Step::Trash);
        case G_IO_ERROR_NOT_SUPPORTED:
            return Reason(EOPNOTSUPP, Step::Trash);
        default:
            break;
        }
    }
    const int nError = pError != nullptr ? ErrorIn(pError->message) : 0;
    return nError != 0 ? Reason(nError, Step::Trash) : "The trash did not take it.";
}

} // namespace

tEnding TrashCan::Put(const std::string& sPath, const tFileIdentity& expected, tTrashed& trashed)
{
    // 1. What could not be restored does not go.
    if (sPath.size() - (sPath.rfind(platform::kSeparator) + 1) > kLongestName) {
        return tEnding::NotDone("Its name is too long for the trash.");
    }
    // 2. The file is held, so that it can be found wherever it ends up.
    const Descriptor file(Retried([&] { return open(sPath.c_str(), O_PATH | O_NOFOLLOW | O_CLOEXEC); }));
    if (!file.IsOpen()) {
        return tEnding::NotDone(Reason(errno, Step::Trash));
    }
    tEnding ending = IsStill(LookAt(file.Get()), expected);
    if (!ending.IsDone()) {
        return ending;
    }
    const std::string sBefore = PathOf(file);
    if (sBefore.empty()) {
        return tEnding::NotDone("The system does not tell whether it would reach the trash.");
    }
    // 3. GIO tidies the path up by its letters alone: it must still lead to this file.
    const std::unique_ptr<GFile, Unref> pFile(g_file_new_for_path(sPath.c_str()));
    const std::string sTidyPath = g_file_peek_path(pFile.get());
    ending = IsStill(LookAt(sTidyPath), expected);
    if (!ending.IsDone()) {
        return ending;
    }
    // 4. What is in the trash already stays there.
    if (WouldReplaceInTrash(sBefore)) {
        return tEnding::NotDone(
            "The trash has another file of its name and has lost where that one came from.");
    }
    // 5. Into the trash.
    GError* pError = nullptr;
    const bool bTaken = g_file_trash(pFile.get(), nullptr, &pError) != FALSE;
    const std::unique_ptr<GError, decltype(&g_error_free)> pOwned(pError, &g_error_free);
    const std::string sAfter = PathOf(file);
    if (!bTaken || sAfter == sBefore) {
        return tEnding::NotDone(WhyNotTrashed(sTidyPath, pError));
    }
    // 6. Without a whole note there is no way back: then it goes back now.
    trashed = Trashed(sTidyPath, sAfter);
    const bool bFound = IsStill(LookAt(sAfter), expected).IsDone();
    if (bFound &&
        (IsWholeTrashInfo(trashed.sInfoPath, sTidyPath) || IsWholeTrashInfo(trashed.sInfoPath, sBefore))) {
        return {};
    }
    if (bFound && PutBack(trashed)) {
        return tEnding::NotDone("The trash could not note where it came from. It has been put back.");
    }
    return tEnding::NotDone(
        "It went to the trash, but it is not certain that it can be restored from there.");
}

bool TrashCan::PutBack(const tTrashed& trashed)
{
    if (RenameWithoutReplacing({AT_FDCWD, trashed.sFilePath}, {AT_FDCWD, trashed.sPath}) != 0) {
        return false;
    }
    // A note without its file is only litter.
    Retried([&] { return unlink(trashed.sInfoPath.c_str()); });
    return true;
}

} // namespace desktop
