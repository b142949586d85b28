// SPDX-License-Identifier: MIT
#include "Toolbar.h"

namespace platform {

long Toolbar::Bar::Message(unsigned nMessage, long wParam, long lParam)
{
    if (nMessage == TB_GETSTYLE) {
        return m_nStyle;
    }
    if (nMessage == TB_SETSTYLE) {
        Change(m_nStyle, lParam);
        return 0;
    }
    return NativeWindow::Message(nMessage, wParam, lParam);
}

} // namespace platform
