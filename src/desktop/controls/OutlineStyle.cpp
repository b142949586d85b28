// SPDX-License-Identifier: MIT
#include "OutlineStyle.h"

#include <QPainter>
#include <QStyleOption>

namespace desktop {
namespace {

/// Below this lightness, of 255, a darker tone cannot be told from the colour itself.
constexpr int kDarkest = 16;

bool NeedsOutline(QStyle::PrimitiveElement element, const QStyleOption& option)
{
    switch (element) {
    case QStyle::PE_Frame:
    case QStyle::PE_FrameLineEdit:
    case QStyle::PE_PanelMenu:
    case QStyle::PE_IndicatorCheckBox:
        return true;
    case QStyle::PE_PanelButtonCommand: {
        // The button that Enter presses has one that tells it from the others.
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
    if (NeedsOutline(element, *pOption) && pOption->palette.window().color().lightness() < kDarkest) {
        pPainter->save();
        pPainter->setPen(pOption->palette.color(QPalette::WindowText));
        pPainter->setBrush(Qt::NoBrush);
        pPainter->drawRect(pOption->rect.adjusted(0, 0, -1, -1));
        pPainter->restore();
    }
}

} // namespace desktop
