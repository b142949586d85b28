#include "TrashFolders.h"

#include "CanonicalPath.h"
#include "FileSystem.h"
#include "FolderEntry.h"

#include <algorithm>
#include <array>
#include <glib.h>
#include <unistd.h>

namespace desktop {
namespace {

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

} // namespace

bool WouldReplaceInTrash(const std::string& sPath)
{
    const std::size_t nName = sPath.rfind(platform::kSeparator) + 1;
    const std::string sName = sPath.substr(nName);
    const std::string sTop = TopFolder(sPath.substr(0, nName - 1));
    const std::string sUser = std::to_string(getuid());
    std::array<std::string, 3> trashes{g_get_user_data_dir(), sTop, sTop};
    trashes[0].append("/Trash");
    trashes[1].append("/.Trash/").append(sUser);
    trashes[2].append("/.Trash-").append(sUser);
    for (const std::string& sTrash : trashes) {
        // The first name without a note is the one.
        int nTry = 1;
        while (Exists(sTrash + "/info/" + NameInTrash(sName, nTry) + ".trashinfo")) {
            ++nTry;
        }
        if (Exists(sTrash + "/files/" + NameInTrash(sName, nTry))) {
            return true;
        }
    }
    return false;
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
