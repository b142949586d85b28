// SPDX-License-Identifier: MIT
#include "TrashLocations.h"

#include "CanonicalPath.h"
#include "Paths.h"

#include <cstdlib>
#include <pwd.h>
#include <string_view>
#include <unistd.h>
#include <utility>

namespace desktop {
namespace {

/// True if a component of the path has the name of a trash.
bool IsNamedAsTrash(std::string_view sPath)
{
    const auto isNumber = [](std::string_view sText) {
        return !sText.empty() && sText.find_first_not_of("0123456789") == std::string_view::npos;
    };
    std::string_view sBefore;
    std::string_view sBeforeThat;
    for (std::size_t nStart = 1; nStart <= sPath.size();) {
        const std::size_t nEnd = std::min(sPath.find(platform::kSeparator, nStart), sPath.size());
        const std::string_view sName = sPath.substr(nStart, nEnd - nStart);
        constexpr std::string_view kOfUser = ".Trash-";
        if ((sName.starts_with(kOfUser) && isNumber(sName.substr(kOfUser.size()))) ||
            (sBefore == ".Trash" && isNumber(sName)) ||
            (sBeforeThat == ".local" && sBefore == "share" && sName == "Trash")) {
            return true;
        }
        sBeforeThat = std::exchange(sBefore, sName);
        nStart = nEnd + 1;
    }
    return false;
}

} // namespace

std::string DataHome()
{
    const auto variable = [](const char* pName) -> std::string {
        const char* pValue = std::getenv(pName);
        return pValue != nullptr && *pValue == platform::kSeparator ? pValue : "";
    };
    std::string sData = variable("XDG_DATA_HOME");
    if (!sData.empty()) {
        return sData;
    }
    std::string sHome = variable("HOME");
    const passwd* const pUser = sHome.empty() ? getpwuid(geteuid()) : nullptr;
    if (pUser != nullptr && pUser->pw_dir != nullptr) {
        sHome = pUser->pw_dir;
    }
    return sHome.empty() ? "" : sHome + "/.local/share";
}

TrashLocations::TrashLocations()
{
    const std::string sHome = CanonicalPath(DataHome() + "/Trash");
    m_home = LookAt(sHome);
    m_sHomeOnVolume = sHome.empty() ? "" : OnVolume(sHome);
}

bool TrashLocations::Contain(const std::string& sFolder)
{
    const auto [known, bNew] = m_known.try_emplace(sFolder, false);
    if (bNew) {
        known->second = Look(sFolder);
    }
    return known->second;
}

bool TrashLocations::Look(const std::string& sFolder) const
{
    const std::string sOnVolume = OnVolume(sFolder);
    if (IsNamedAsTrash(sFolder) || IsNamedAsTrash(sOnVolume) ||
        (!m_sHomeOnVolume.empty() && platform::IsIn(sOnVolume, m_sHomeOnVolume))) {
        return true;
    }
    for (std::size_t nEnd = sFolder.find(platform::kSeparator, 1);;
         nEnd = sFolder.find(platform::kSeparator, nEnd + 1)) {
        if (LookAt(sFolder.substr(0, nEnd)).IsSameFileAs(m_home)) {
            return true;
        }
        if (nEnd == std::string::npos) {
            return false;
        }
    }
}

/// The path of a folder within its file system, prefixed by the device number: the same for each mount of it.
std::string TrashLocations::OnVolume(const std::string& sFolder) const
{
    const tMount* const pMount = m_mounts.HolderOf(sFolder);
    if (pMount == nullptr) {
        return "";
    }
    const auto withoutRoot = [](const std::string& sPath) { return sPath == "/" ? "" : sPath; };
    return pMount->sDevice + withoutRoot(Unescaped(pMount->sFolder)) +
           sFolder.substr(withoutRoot(pMount->sPoint).size());
}

} // namespace desktop
