// SPDX-License-Identifier: MIT
#include "Main.h"

#include "WindowManager.h"
#include "frmMain.h"

namespace mainwindow {

void Main()
{
    platform::InitCommonControls();
    theMainForm().form.Show();
}

} // namespace mainwindow
