// SPDX-License-Identifier: MIT
#include "SessionBus.h"

#include <cstdlib>
#include <glib.h>
#include <string>
#include <sys/stat.h>

namespace desktop {

bool HasSessionBus()
{
    if (const char* const pAddress = std::getenv("DBUS_SESSION_BUS_ADDRESS")) {
        const std::string sAddress = pAddress;
        return !sAddress.empty() && !sAddress.starts_with("disabled:") &&
               sAddress.find("autolaunch:") == std::string::npos;
    }
    struct stat status = {};
    const std::string sBus = std::string(g_get_user_runtime_dir()) + "/bus";
    return stat(sBus.c_str(), &status) == 0 && S_ISSOCK(status.st_mode);
}

void StartNoSessionBus()
{
    if (!HasSessionBus()) {
        constexpr int nReplace = 1;
        setenv("DBUS_SESSION_BUS_ADDRESS", "disabled:", nReplace);
    }
}

} // namespace desktop
