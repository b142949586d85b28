// SPDX-License-Identifier: MIT
#pragma once

#include <QProxyStyle>

namespace desktop {

/// The toolkit's own style, but for themes with a dark window. That style outlines boxes, menus and buttons
/// in a darker tone of the window's colour, and nothing is darker than black: here they get the colour of the
/// text. No button of a dialog has an icon.
class OutlineStyle final : public QProxyStyle
{
public:
    /// The name of the style that is in need of it.
    static constexpr const char* kFor = "fusion";

    OutlineStyle() : QProxyStyle(QLatin1String(kFor)) {}

    void drawPrimitive(PrimitiveElement element, const QStyleOption* pOption, QPainter* pPainter,
                       const QWidget* pWidget) const override;
    int styleHint(StyleHint hint, const QStyleOption* pOption, const QWidget* pWidget,
                  QStyleHintReturn* pReturn) const override;
};

} // namespace desktop
