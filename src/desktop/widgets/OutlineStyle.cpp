// SPDX-License-Identifier: MIT
#include "OutlineStyle.h"

#include <QPainter>
#include <QStyleOption>

namespace desktop {
namespace {

/// Below this lightness (0 to 255) a darker shade cannot be told from the colour itself.
constexpr int kDarkest = 16;

/// The same for menus, which open over lists: in dark themes the backgrounds of both hardly differ.
constexpr int kDarkestMenu = 64;

bool NeedsOutline(QStyle::PrimitiveElement element, const QStyleOption& option)
{
    switch (element) {
    case QStyle::PE_Frame:
    case QStyle::PE_FrameLineEdit:
    case QStyle::PE_PanelMenu:
    case QStyle::PE_IndicatorCheckBox:
        return true;
    case QStyle::PE_PanelButtonCommand: {
        // The default button has an outline of its own that distinguishes it from the others.
        const auto* const pButton = qstyleoption_cast<const QStyleOptionButton*>(&option);
        return pButton == nullptr || !pButton->features.testFlag(QStyleOptionButton::DefaultButton);
    }
    default:
        return false;
    }
}

} // namespace

void OutlineStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* pOption, QPainter* pPainter,
                                 const QWidget* pWidget) const
{
    QProxyStyle::drawPrimitive(element, pOption, pPainter, pWidget);
    const int nLightness = pOption->palette.window().color().lightness();
    const bool bMenu = element == PE_PanelMenu;
    if (NeedsOutline(element, *pOption) && nLightness < (bMenu ? kDarkestMenu : kDarkest)) {
        pPainter->save();
        pPainter->setPen(
            pOption->palette.color(nLightness < kDarkest ? QPalette::WindowText : QPalette::PlaceholderText));
        pPainter->setBrush(Qt::NoBrush);
        pPainter->drawRect(pOption->rect.adjusted(0, 0, -1, -1));
        pPainter->restore();
    }
}

int OutlineStyle::styleHint(StyleHint hint, const QStyleOption* pOption, const QWidget* pWidget,
                            QStyleHintReturn* pReturn) const
{
    // Otherwise only the buttons of the toolkit's own boxes would have icons.
    return hint == SH_DialogButtonBox_ButtonsHaveIcons
               ? 0
               : QProxyStyle::styleHint(hint, pOption, pWidget, pReturn);
}

} // namespace desktop
