// SPDX-License-Identifier: MIT
#include "mToolbar.h"

#include "WindowFunctions.h"

namespace mainwindow {

void FlatToolbar(platform::Toolbar& toolbar)
{
    using Native = platform::Toolbar::Bar;
    // The control is only a frame; the style belongs to the window inside it.
    const auto hToolbar = platform::FindWindowExA(toolbar.hWnd(), nullptr, Native::kClass);
    const long nStyle = platform::SendMessageA(hToolbar, Native::TB_GETSTYLE, 0, 0);
    platform::SendMessageA(hToolbar, Native::TB_SETSTYLE, 0, nStyle ^ Native::TBSTYLE_FLAT);
}

} // namespace mainwindow
