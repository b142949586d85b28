// SPDX-License-Identifier: MIT
#include "ControlView.h"

#include "Form.h"
#include "Twips.h"
#include "WidgetOf.h"

namespace desktop {

ControlView::ControlView(const platform::Form& form, platform::Control& control, QWidget& widget)
    : m_form(form), m_control(control), m_widget(widget)
{
    EnterWidget(m_control, &m_widget);
    m_control.Observe(this);
}

ControlView::~ControlView()
{
    m_control.Observe(nullptr);
    RemoveWidget(m_control);
}

void ControlView::Follow()
{
    m_widget.setGeometry(Place());
    m_widget.setVisible(m_control.Visible());
    m_widget.setEnabled(m_control.Enabled());
}

void ControlView::StateChanged(platform::Observable& /*control*/)
{
    Follow();
}

QRect ControlView::Place() const
{
    return PixelRect(m_control.Place());
}

bool ControlView::TakesInput() const
{
    return m_form.Enabled();
}

} // namespace desktop
