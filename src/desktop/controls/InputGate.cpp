// SPDX-License-Identifier: MIT
#include "InputGate.h"

#include "Form.h"

#include <QApplication>
#include <QEvent>
#include <QScopedValueRollback>
#include <QWindow>

#include <utility>

namespace desktop {
namespace {

bool IsInput(QEvent::Type type)
{
    switch (type) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
    case QEvent::MouseMove:
    case QEvent::HoverEnter:
    case QEvent::HoverMove:
    case QEvent::Wheel:
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
    case QEvent::ShortcutOverride:
    case QEvent::Shortcut:
    case QEvent::InputMethod:
    case QEvent::ContextMenu:
    case QEvent::TouchBegin:
    case QEvent::TouchUpdate:
    case QEvent::TouchEnd:
    case QEvent::TabletPress:
    case QEvent::TabletMove:
    case QEvent::TabletRelease:
    case QEvent::DragEnter:
    case QEvent::DragMove:
    case QEvent::Drop:
        return true;
    default:
        return false;
    }
}

/// The frontmost of the windows that `window` owns, or the window itself.
QWidget& FrontOf(QWidget& window)
{
    for (QWidget* pEach : QApplication::topLevelWidgets()) {
        const bool bOwned = pEach->isVisible() && pEach->windowHandle() != nullptr &&
                            pEach->windowHandle()->transientParent() == window.windowHandle();
        if (bOwned && (pEach->windowType() == Qt::Dialog || pEach->windowType() == Qt::Window)) {
            return FrontOf(*pEach);
        }
    }
    return window;
}

} // namespace

InputGate::InputGate(const platform::Form& form, QWidget& window) : m_form(form), m_window(window)
{
    // Input goes to the native window first and then to a widget in it; both have to be filtered.
    qApp->installEventFilter(this);
}

void InputGate::FormChanged()
{
    if (!m_form.Enabled()) {
        EndPress();
    }
}

bool InputGate::eventFilter(QObject* pWatched, QEvent* pEvent)
{
    const bool bWidget = pWatched->isWidgetType() && static_cast<QWidget*>(pWatched)->window() == &m_window;
    if (!bWidget && pWatched != m_window.windowHandle()) {
        return false;
    }
    if (pEvent->type() == QEvent::WindowBlocked) {
        EndPress(); // a modal window takes over the input
    }
    // The second press of a double click has a type of its own.
    const bool bPress =
        pEvent->type() == QEvent::MouseButtonPress || pEvent->type() == QEvent::MouseButtonDblClick;
    if (m_form.Enabled() || m_bEndsPress) {
        if (bWidget && bPress) {
            NotePress(*static_cast<QWidget*>(pWatched), *static_cast<QMouseEvent*>(pEvent));
        } else if (bWidget && pEvent->type() == QEvent::MouseButtonRelease) {
            m_pressed = nullptr;
        }
        return false;
    }
    if (pEvent->type() == QEvent::WindowActivate || (bPress && !bWidget)) {
        QMetaObject::invokeMethod(this, &InputGate::ShowOwned, Qt::QueuedConnection);
    }
    // The toolkit must get the release of a button, but no widget may.
    return IsInput(pEvent->type()) && (bWidget || pEvent->type() != QEvent::MouseButtonRelease);
}

void InputGate::NotePress(QWidget& widget, const QMouseEvent& event)
{
    // An event that a widget ignores is passed on to its parent.
    const bool bGoesOn = m_pressed != nullptr && widget.isAncestorOf(m_pressed);
    if (event.buttons() == event.button() && !bGoesOn) {
        m_pressed = &widget;
        m_button = event.button();
    }
}

/// Ends the current press as if the button had been released over nothing.
void InputGate::EndPress()
{
    const QPointer<QWidget> pressed = std::exchange(m_pressed, nullptr);
    // The right button drags nothing, and its release would open a menu.
    if (pressed == nullptr || m_button == Qt::RightButton) {
        return;
    }
    const QScopedValueRollback endsPress(m_bEndsPress, true);
    const QPointF nowhere(-1, -1);
    QMouseEvent release(QEvent::MouseButtonRelease, nowhere, pressed->mapToGlobal(nowhere), m_button,
                        Qt::NoButton, Qt::NoModifier);
    QApplication::sendEvent(pressed, &release);
}

/// Brings the window that the form is waiting for to the front, with the keyboard focus.
void InputGate::ShowOwned() const
{
    QWidget& front = FrontOf(m_window);
    if (!m_form.Enabled() && &front != &m_window) {
        front.raise();
        front.activateWindow();
    }
}

} // namespace desktop
