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
    const support::OwnHome home;
    const QApplication application(nArgs, aArgs);
    QApplication::setQuitOnLastWindowClosed(false);
    return RUN_ALL_TESTS();
}
