// SPDX-License-Identifier: MIT
#include "Main.h"

#include "FormMembers.h"
#include "WindowFunctions.h"

namespace mainwindow {

void Main()
{
    platform::InitCommonControls();
    search::frmMain().form.Show();
}

} // namespace mainwindow
