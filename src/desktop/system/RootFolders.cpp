// SPDX-License-Identifier: MIT
#include "RootFolders.h"

#include "Escaped.h"
#include "MountTable.h"
#include "Paths.h"
#include "System.h"

#include <cstdlib>
#include <pwd.h>
#include <unistd.h>

namespace desktop {
namespace {

std::string HomeFolder()
{
    const char* pHome = std::getenv("HOME");
    if (pHome == nullptr) {
        const passwd* pUser = getpwuid(getuid());
        pHome = pUser == nullptr ? "" : pUser->pw_dir;
    }
    return platform::System().files->CanonicalFolder(pHome).value_or(std::string());
}

} // namespace

std::vector<tRootFolder> RootFolders()
{
    std::vector<tRootFolder> folders;
    const std::string sHome = HomeFolder();
    if (!sHome.empty() && sHome != "/") {
        folders.push_back({sHome, "Home (" + platform::Escaped(sHome) + ")"});
    }
    folders.push_back({"/", "File System (/)"});
    for (const std::string& sVolume : MountTable().Volumes()) {
        if (sVolume != sHome) {
            folders.push_back({sVolume, platform::Escaped(platform::NameIn(sVolume)) + " (" +
                                            platform::Escaped(sVolume) + ")"});
        }
    }
    return folders;
}

} // namespace desktop
