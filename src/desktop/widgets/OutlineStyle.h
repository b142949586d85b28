// SPDX-License-Identifier: MIT
#pragma once

#include <QProxyStyle>

namespace desktop {

/// The toolkit's own style, corrected for themes with a dark window colour. That style draws the outlines of
/// boxes, menus and buttons in a darker shade of the window colour, and nothing is darker than black: here
/// they get the text colour. Buttons of dialogs have no icons.
class OutlineStyle final : public QProxyStyle
{
public:
    /// The name of the style that needs the correction.
    static constexpr const char* kFor = "fusion";

    OutlineStyle() : QProxyStyle(QLatin1String(kFor)) {}

    void drawPrimitive(PrimitiveElement element, const QStyleOption* pOption, QPainter* pPainter,
                       const QWidget* pWidget) const override;
    int styleHint(StyleHint hint, const QStyleOption* pOption, const QWidget* pWidget,
                  QStyleHintReturn* pReturn) const override;
};

} // namespace desktop
