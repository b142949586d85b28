// SPDX-License-Identifier: MIT
#include "TempTree.h"

#include <QApplication>
#include <gtest/gtest.h>

int main(int nArgs, char** aArgs)
{
    // The program may be run for its list of tests where there is no display.
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
    }
    ::testing::InitGoogleTest(&nArgs, aArgs);
    // A home of their own, so that no test comes near anybody's trash.
    const support::TempTree home(
        access("/dev/shm", W_OK | X_OK) == 0 ? "/dev/shm" : std::filesystem::temp_directory_path());
    std::filesystem::permissions(home.sRoot, std::filesystem::perms::all);
    qputenv("HOME", home.sRoot.c_str());
    qputenv("XDG_DATA_HOME", (home.sRoot + "/share").c_str());
    const QApplication application(nArgs, aArgs);
    QApplication::setQuitOnLastWindowClosed(false);
    return RUN_ALL_TESTS();
}
