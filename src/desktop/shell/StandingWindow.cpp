// SPDX-License-Identifier: MIT
#include "StandingWindow.h"

#include <QApplication>
#include <QScreen>
#include <algorithm>

namespace desktop {

StandingWindow::StandingWindow(QWidget* pOpenedFrom, const QString& sName, const QString& sTitle)
    : DialogWindow(nullptr, sName, sTitle), m_pOpenedFrom(pOpenedFrom)
{
    setWindowFlags(Qt::Window); // a dialog would stay above all other windows of the program
    setAttribute(Qt::WA_DeleteOnClose);
    if (pOpenedFrom != nullptr) {
        setScreen(pOpenedFrom->screen());
    }
}

void StandingWindow::ShowUp()
{
    if (!isVisible()) {
        m_place = FreePlace();
        move(m_place);
        show();
    } else if (isMinimized()) {
        showNormal();
    }
    raise();
    activateWindow();
}

/// A position not used by another window of this kind: starts centred on the window that it was opened from,
/// moves to the lower right, and wraps to the corner of the screen.
QPoint StandingWindow::FreePlace() const
{
    constexpr QPoint kStep(24, 24);
    const QRect room = screen()->availableGeometry();
    const QRect over = m_pOpenedFrom ? m_pOpenedFrom->frameGeometry() : room;
    const std::vector<StandingWindow*> others = All();
    QPoint place = over.center() - rect().center();
    for (std::size_t n = 0; n <= others.size(); ++n) {
        if (!room.contains(QRect(place, size()))) {
            place = room.topLeft();
        }
        if (std::none_of(others.begin(), others.end(),
                         [&](const StandingWindow* pEach) { return pEach->m_place == place; })) {
            break;
        }
        place += kStep;
    }
    return place;
}

void StandingWindow::done(int nResult)
{
    // Must happen while this window still exists: under Wayland the toolkit requests activation through the
    // window that has the focus, and crashes if that has been destroyed.
    QWidget* const pOpenedFrom = m_pOpenedFrom;
    if (isActiveWindow() && pOpenedFrom != nullptr && pOpenedFrom->isVisible()) {
        pOpenedFrom->activateWindow();
    }
    DialogWindow::done(nResult);
}

std::vector<StandingWindow*> StandingWindow::All()
{
    std::vector<StandingWindow*> windows;
    for (QWidget* const pWindow : QApplication::topLevelWidgets()) {
        if (auto* const pStanding = dynamic_cast<StandingWindow*>(pWindow)) {
            windows.push_back(pStanding);
        }
    }
    std::erase_if(windows, [](const StandingWindow* pEach) { return pEach->isHidden(); });
    return windows;
}

} // namespace desktop
