// SPDX-License-Identifier: MIT
#include "Widgets.h"

#include "System.h"

#include <algorithm>
#include <cmath>

namespace platform {

int PictureBox::ScaleWidth() const
{
    return static_cast<int>(std::lround(Width() / TheScreen().TwipsPerPixelX()));
}

int PictureBox::ScaleHeight() const
{
    return static_cast<int>(std::lround(Height() / TheScreen().TwipsPerPixelY()));
}

long ProgressWindow::Message(unsigned nMessage, long wParam, long lParam)
{
    if (nMessage != PBM_SETPOS) {
        return Control::Message(nMessage, wParam, lParam);
    }
    const int nBefore = m_nPosition;
    Change(m_nPosition, static_cast<int>(std::clamp<long>(wParam, 0, kFull)));
    return nBefore;
}

} // namespace platform
