#include "InputGate.h"

#include "Form.h"

#include <QApplication>
#include <QEvent>
#include <QWindow>

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

} // namespace

InputGate::InputGate(const platform::Form& form, const QWidget& window) : m_form(form), m_window(window)
{
    // Input comes to the system's window first and to a widget in it then; both are to miss it.
    qApp->installEventFilter(this);
}

bool InputGate::eventFilter(QObject* pWatched, QEvent* pEvent)
{
    if (m_form.Enabled() || !IsInput(pEvent->type())) {
        return false;
    }
    return pWatched == m_window.windowHandle() ||
           (pWatched->isWidgetType() && static_cast<QWidget*>(pWatched)->window() == &m_window);
}

} // namespace desktop
