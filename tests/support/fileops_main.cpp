// A home of its own, so that no test comes near anybody's trash.

#include "TempTree.h"

#include <unistd.h>

int main(int argc, char* argv[])
{
    ::testing::InitGoogleTest(&argc, argv);
    // In memory if possible: then the temporary folder is another volume, and syncing costs nothing.
    const bool bMemory = access("/dev/shm", W_OK | X_OK) == 0;
    const support::TempTree home(bMemory ? "/dev/shm" : std::filesystem::temp_directory_path());
    std::filesystem::permissions(home.sRoot, std::filesystem::perms::all);
    setenv("HOME", home.sRoot.c_str(), 1);
    setenv("XDG_DATA_HOME", (home.sRoot + "/share").c_str(), 1);
    setenv("GIO_USE_VFS", "local", 1);
    for (const char* pName : {"DBUS_SESSION_BUS_ADDRESS", "DISPLAY", "WAYLAND_DISPLAY"}) {
        unsetenv(pName);
    }
    return RUN_ALL_TESTS();
}
