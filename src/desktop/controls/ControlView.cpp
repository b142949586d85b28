// SPDX-License-Identifier: MIT
#include "ControlView.h"

#include "Form.h"
#include "Twips.h"
#include "WidgetOf.h"

#include <algorithm>

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

void DockedView::Dock(QSize inside)
{
    const int nHeight = std::max(Pixels(Shown().Height()), Widget().sizeHint().height());
    const int nTop = AtBottom() ? inside.height() - nHeight : 0;
    Shown().SetPlace({0, Twips(nTop), Twips(inside.width()), Twips(nHeight)});
}

} // namespace desktop
