// SPDX-License-Identifier: MIT
#include "TempTree.h"

#include <sched.h>
#include <sys/mount.h>

int main(int argc, char* argv[])
{
    ::testing::InitGoogleTest(&argc, argv);
    const support::OwnHome home;
    setenv("GIO_USE_VFS", "local", 1);
    for (const char* pName : {"DBUS_SESSION_BUS_ADDRESS", "DISPLAY", "WAYLAND_DISPLAY"}) {
        unsetenv(pName);
    }
    // Another volume in memory, where that is permitted; nobody else sees it.
    const support::TempTree other;
    const bool bMounted = unshare(CLONE_NEWNS) == 0 &&
                          mount(nullptr, "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0 &&
                          mount("none", other.sRoot.c_str(), "tmpfs", 0, nullptr) == 0;
    setenv("OTHER_VOLUME", other.sRoot.c_str(), 1);
    const int nResult = RUN_ALL_TESTS();
    if (bMounted) {
        umount2(other.sRoot.c_str(), MNT_DETACH);
    }
    return nResult;
}
