#include "TrashFolders.h"

#include "CanonicalPath.h"
#include "FileSystem.h"
#include "FolderEntry.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <glib.h>
#include <unistd.h>
#include <unordered_set>

namespace desktop {
namespace {

namespace fs = std::filesystem;

/// After so many notes of one name, listing them all costs less than a look at each that may follow.
constexpr int kLooks = 16;

/// The top folder of the volume that folder `sFolder` is on, without a trailing separator.
std::string TopFolder(std::string sFolder)
{
    const auto nDevice = LookAt(sFolder).status.st_dev;
    while (!sFolder.empty()) {
        const std::string sAbove = sFolder.substr(0, sFolder.rfind(platform::kSeparator));
        if (LookAt(sAbove.empty() ? "/" : sAbove).status.st_dev != nDevice) {
            break;
        }
        sFolder = sAbove;
    }
    return sFolder;
}

/// The name that GIO tries as the `nTry`th, counted from 1: a number before the first dot.
std::string NameInTrash(const std::string& sName, int nTry)
{
    if (nTry == 1) {
        return sName;
    }
    const std::size_t nDot = std::min(sName.find('.'), sName.size());
    return sName.substr(0, nDot) + '.' + std::to_string(nTry) + sName.substr(nDot);
}

bool Exists(const std::string& sPath)
{
    return LookAt(sPath).nError == 0;
}

/// The number of the first name that has no note in folder `sInfo`.
int FirstWithoutNote(const std::string& sInfo, const std::string& sName)
{
    const auto note = [&](int nTry) { return NameInTrash(sName, nTry) + ".trashinfo"; };
    int nTry = 1;
    while (nTry <= kLooks && Exists(sInfo + '/' + note(nTry))) {
        ++nTry;
    }
    if (nTry <= kLooks) {
        return nTry;
    }
    std::unordered_set<std::string> notes;
    std::error_code error;
    for (fs::directory_iterator it(sInfo, error), end; !error && it != end; it.increment(error)) {
        notes.insert(it->path().filename());
    }
    while (notes.contains(note(nTry)) || Exists(sInfo + '/' + note(nTry))) {
        ++nTry;
    }
    return nTry;
}

} // namespace

bool WouldReplaceInTrash(const std::string& sPath)
{
    const std::size_t nName = sPath.rfind(platform::kSeparator) + 1;
    const std::string sName = sPath.substr(nName);
    const std::string sTop = TopFolder(sPath.substr(0, nName - 1));
    const std::string sUser = std::to_string(geteuid());
    const std::array trashes{std::string(g_get_user_data_dir()) + "/Trash", sTop + "/.Trash/" + sUser,
                             sTop + "/.Trash-" + sUser};
    return std::any_of(trashes.begin(), trashes.end(), [&](const std::string& sTrash) {
        const int nTry = FirstWithoutNote(sTrash + "/info", sName);
        return Exists(sTrash + "/files/" + NameInTrash(sName, nTry));
    });
}

bool IsInTrash(const std::string& sPath)
{
    const std::string sFolder = CanonicalPath(sPath) + platform::kSeparator;
    const std::string sHome = CanonicalPath(g_get_user_data_dir());
    const std::string sUser = std::to_string(geteuid());
    return (!sHome.empty() && sFolder.starts_with(sHome + "/Trash/")) ||
           sFolder.find("/.Trash-" + sUser + "/") != std::string::npos ||
           sFolder.find("/.Trash/" + sUser + "/") != std::string::npos;
}

} // namespace desktop
