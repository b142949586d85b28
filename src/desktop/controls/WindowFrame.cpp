#include "WindowFrame.h"

#include <QScreen>
#include <algorithm>

namespace desktop {

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
    QRect place(QPoint(), window.size());
    place.moveCenter(bOnOwner ? pOwner->frameGeometry().center() : room.center());
    // The upper left corner counts most where the screen is too small.
    place.moveLeft(std::max(room.left(), std::min(place.left(), room.right() + 1 - place.width())));
    place.moveTop(std::max(room.top(), std::min(place.top(), room.bottom() + 1 - place.height())));
    window.move(place.topLeft());
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
