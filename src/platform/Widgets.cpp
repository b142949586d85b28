// SPDX-License-Identifier: MIT
#include "Widgets.h"

#include "System.h"

#include <algorithm>
#include <cmath>

namespace platform {

int PictureBox::ScaleWidth() const
{
    return static_cast<int>(std::lround(Width() / System().screen->TwipsPerPixelX()));
}

int PictureBox::ScaleHeight() const
{
    return static_cast<int>(std::lround(Height() / System().screen->TwipsPerPixelY()));
}

long NativeProgressBar::Message(unsigned nMessage, long wParam, long lParam)
{
    if (nMessage != PBM_SETPOS) {
        return NativeWindow::Message(nMessage, wParam, lParam);
    }
    const int nBefore = m_nPosition;
    Change(m_nPosition, static_cast<int>(std::clamp<long>(wParam, 0, kFull)));
    return nBefore;
}

} // namespace platform
