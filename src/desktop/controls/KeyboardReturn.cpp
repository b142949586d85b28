// SPDX-License-Identifier: MIT
#include "KeyboardReturn.h"

#include <QApplication>
#include <QEvent>
#include <QWidget>
#include <QWindow>

#include <algorithm>

namespace desktop {

KeyboardReturn::KeyboardReturn()
{
    qApp->installEventFilter(this);
}

bool KeyboardReturn::eventFilter(QObject* pWatched, QEvent* pEvent)
{
    if (pEvent->type() != QEvent::Hide || !pWatched->isWidgetType()) {
        return false;
    }
    const auto* const pHidden = static_cast<QWidget*>(pWatched);
    const bool bWindow = pHidden->windowType() == Qt::Window || pHidden->windowType() == Qt::Dialog;
    // Does not take the focus if the user has switched to another program.
    const QWindow* const pHandle = pHidden->windowHandle();
    if (!bWindow || pHandle == nullptr || pHandle != QGuiApplication::focusWindow()) {
        return false;
    }
    const QWindow* const pOwner = pHandle->transientParent();
    const auto windows = QApplication::topLevelWidgets();
    const auto found = std::find_if(windows.begin(), windows.end(), [&](const QWidget* pEach) {
        return pOwner != nullptr && pEach->windowHandle() == pOwner && pEach->isVisible();
    });
    if (found != windows.end()) {
        (*found)->activateWindow();
    }
    return false;
}

} // namespace desktop
