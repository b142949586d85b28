// SPDX-License-Identifier: MIT
#include "ToolbarWidget.h"

#include "Pictures.h"
#include "ShownText.h"
#include "Twips.h"
#include "WidgetOf.h"

#include <QLayout>
#include <QToolButton>

namespace desktop {
namespace {

// In twips.
constexpr float kPicture = 360;
constexpr float kButtonWidth = 840;
constexpr float kButtonHeight = 660;

} // namespace

ToolbarView::ToolbarView(const platform::Form& form, platform::Toolbar& toolbar, QWidget* pParent)
    : ViewOf(form, toolbar, pParent)
{
    m_widget.setMovable(false);
    m_widget.setIconSize(QSize(Pixels(kPicture), Pixels(kPicture)));
    m_widget.setToolButtonStyle(Qt::ToolButtonTextUnderIcon);
    m_widget.layout()->setContentsMargins(0, 0, 0, 0);
    m_widget.layout()->setSpacing(0);
    // The extension button, which gives access to the buttons that do not fit into a narrow window.
    for (QToolButton* pMore : m_widget.findChildren<QToolButton*>()) {
        pMore->setAccessibleName(QStringLiteral("More commands"));
    }
    for (std::size_t n = 0; n < m_control.buttons.size(); ++n) {
        AddButton(n);
    }
    EnterWidget(m_control.native, &m_widget);
    m_control.native.Observe(this);
}

ToolbarView::~ToolbarView()
{
    m_control.native.Observe(nullptr);
    RemoveWidget(m_control.native);
}

void ToolbarView::AddButton(std::size_t n)
{
    const platform::tToolbarButton& button = m_control.buttons[n];
    if (button.sKey.empty()) {
        m_widget.addSeparator();
        return;
    }
    QAction* const pAction = m_widget.addAction(Picture(button.sPicture), ShownText(button.sCaption));
    pAction->setToolTip(ShownText(button.sToolTip));
    m_widget.widgetForAction(pAction)->setMinimumSize(Pixels(kButtonWidth), Pixels(kButtonHeight));
    m_widget.widgetForAction(pAction)->setFocusPolicy(Qt::NoFocus);
    connect(pAction, &QAction::triggered, this, [this, n] {
        if (TakesInput() && m_control.ButtonClick) {
            m_control.ButtonClick(m_control.buttons[n].sKey);
        }
    });
}

void ToolbarView::Follow()
{
    for (QToolButton* pButton : m_widget.findChildren<QToolButton*>()) {
        pButton->setAutoRaise(m_control.native.IsFlat());
    }
    DockedView::Follow();
}

} // namespace desktop
