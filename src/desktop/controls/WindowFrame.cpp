// SPDX-License-Identifier: MIT
#include "WindowFrame.h"

#include <QScreen>
#include <QStyle>
#include <QWindow>
#include <algorithm>

namespace desktop {
namespace {

/// The frame that the window manager has put around a window. Before the window is shown this is unknown; it
/// is assumed to be like the owner's frame, and to have a title bar.
QMargins FrameAround(const QWidget& window, const QWidget* pOwner)
{
    const QWindow* const pHandle = window.windowHandle();
    if (pHandle != nullptr && (pHandle->isExposed() || !pHandle->frameMargins().isNull())) {
        return pHandle->frameMargins();
    }
    return pOwner != nullptr && pOwner->windowHandle() != nullptr
               ? pOwner->windowHandle()->frameMargins()
               : QMargins(0, window.style()->pixelMetric(QStyle::PM_TitleBarHeight), 0, 0);
}

} // namespace

Qt::WindowFlags FrameOf(const platform::tFormDesign& design)
{
    Qt::WindowFlags flags = design.bShowInTaskbar ? Qt::Window : Qt::Dialog;
    flags |= Qt::CustomizeWindowHint | Qt::WindowTitleHint;
    if (design.bControlBox) {
        flags |= Qt::WindowSystemMenuHint | Qt::WindowCloseButtonHint;
    }
    if (design.bSizable) {
        flags |= Qt::WindowMinMaxButtonsHint;
    }
    return flags;
}

void PlaceOnScreen(QWidget& window, const platform::tFormDesign& design, const QWidget* pOwner)
{
    const bool bOnOwner = !design.bCenterOnScreen && pOwner != nullptr;
    const QScreen* const pScreen = bOnOwner ? pOwner->screen() : window.screen();
    const QRect room = pScreen->availableGeometry();
    const QMargins frame = FrameAround(window, pOwner);
    if (design.bSizable) {
        window.resize(window.size().boundedTo(room.marginsRemoved(frame).size()));
    }
    QRect place = QRect(QPoint(), window.size()).marginsAdded(frame);
    place.moveCenter(bOnOwner ? pOwner->frameGeometry().center() : room.center());
    // If the screen is too small, the upper left corner stays visible.
    place.moveLeft(std::max(room.left(), std::min(place.left(), room.right() + 1 - place.width())));
    place.moveTop(std::max(room.top(), std::min(place.top(), room.bottom() + 1 - place.height())));
    if (window.pos() != place.topLeft()) {
        window.move(place.topLeft());
    }
}

platform::WindowState StateOf(const QWidget& window)
{
    if (window.isMinimized()) {
        return platform::WindowState::Minimized;
    }
    return window.isMaximized() || window.isFullScreen() ? platform::WindowState::Maximized
                                                         : platform::WindowState::Normal;
}

} // namespace desktop
