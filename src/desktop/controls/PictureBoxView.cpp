// SPDX-License-Identifier: MIT
#include "PictureBoxView.h"

#include "ListColors.h"
#include "SpokenRole.h"
#include "ToolkitValues.h"
#include "Twips.h"

#include <QMouseEvent>
#include <QPainter>

#include <algorithm>

namespace desktop {
namespace {

/// The height at which a splitter is easy to hit, in twips.
constexpr float kBarHeight = 90;

/// The shadow role that is most visible next to a list: in some dark themes the shadow colours are close to
/// the list colour.
QPalette::ColorRole Shadow(const QPalette& palette)
{
    constexpr double kVisible = 1.5;
    const auto contrast = [&](QPalette::ColorRole role) {
        return Contrast(palette.color(role), palette.color(QPalette::Base));
    };
    for (const auto role : {QPalette::Dark, QPalette::Mid, QPalette::Light}) {
        if (contrast(role) >= kVisible) {
            return role;
        }
    }
    return QPalette::Text;
}

QPalette::ColorRole Role(const QPalette& palette, platform::SystemColor color)
{
    switch (color) {
    case platform::SystemColor::WindowBackground:
        return QPalette::Base;
    case platform::SystemColor::ButtonShadow:
        return Shadow(palette);
    case platform::SystemColor::InfoBackground:
        return QPalette::ToolTipBase;
    case platform::SystemColor::ButtonFace:
        break;
    }
    return QPalette::Window; // the background of the surrounding form
}

} // namespace

PictureBoxView::PictureBoxView(const platform::Form& form, platform::PictureBox& box, QWidget* pParent)
    : ViewOf(form, box, pParent)
{
    if (m_control.SizesNorthSouth()) {
        GiveSpokenRole(m_widget, QAccessible::Splitter);
    }
    m_widget.installEventFilter(this);
}

void PictureBoxView::Follow()
{
    m_widget.setBackgroundRole(Role(m_widget.palette(), m_control.BackColor()));
    m_widget.setCursor(m_control.SizesNorthSouth() ? Qt::SplitVCursor : Qt::ArrowCursor);
    ControlView::Follow();
}

bool PictureBoxView::eventFilter(QObject* /*pWatched*/, QEvent* pEvent)
{
    switch (pEvent->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
        return Tell(m_control.MouseDown, *static_cast<QMouseEvent*>(pEvent));
    case QEvent::MouseMove:
        return Tell(m_control.MouseMove, *static_cast<QMouseEvent*>(pEvent));
    case QEvent::MouseButtonRelease:
        return Tell(m_control.MouseUp, *static_cast<QMouseEvent*>(pEvent));
    case QEvent::Paint:
        Paint();
        return true;
    default:
        return false;
    }
}

QRect PictureBoxView::Place() const
{
    return ControlView::Place().adjusted(0, -Beyond(), 0, Beyond());
}

int PictureBoxView::Beyond() const
{
    return m_control.SizesNorthSouth() ? std::max(0, Pixels(kBarHeight) - Pixels(m_control.Height())) / 2 : 0;
}

bool PictureBoxView::Tell(const platform::MouseEvent& tell, const QMouseEvent& event) const
{
    if (tell) {
        // A move event reports the held buttons, the others the one that changed.
        const Qt::MouseButtons buttons =
            event.type() == QEvent::MouseMove ? event.buttons() : Qt::MouseButtons(event.button());
        const QPoint at = event.position().toPoint();
        tell(ButtonMask(buttons), ShiftMask(event.modifiers()), Twips(at.x()), Twips(at.y() - Beyond()));
    }
    return true;
}

void PictureBoxView::Paint() const
{
    QPainter painter(&m_widget);
    painter.fillRect(m_widget.rect().adjusted(0, Beyond(), 0, -Beyond()),
                     m_widget.palette().brush(m_widget.backgroundRole()));
}

} // namespace desktop
