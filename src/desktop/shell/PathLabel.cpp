// SPDX-License-Identifier: MIT
#include "PathLabel.h"

#include "ShownText.h"

#include <QPainter>
#include <QStyle>

namespace desktop {

PathLabel::PathLabel(QWidget* pParent) : QLabel(pParent)
{
    setTextFormat(Qt::PlainText);
    setAccessibleDescription(QStringLiteral("Path")); // else the tool tip, with its markup
    setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
}

void PathLabel::ShowPath(const std::string& sPath)
{
    if (sPath == m_sPath) {
        return;
    }
    m_sPath = sPath;
    setText(ShownText(sPath));
    setToolTip(AsToolTip(text()));
}

void PathLabel::paintEvent(QPaintEvent* /*pEvent*/)
{
    QPainter painter(this);
    // Paths read from left to right in any language.
    painter.setLayoutDirection(Qt::LeftToRight);
    const Qt::Alignment alignment =
        QStyle::visualAlignment(layoutDirection(), Qt::AlignLeading) | Qt::AlignVCenter;
    style()->drawItemText(&painter, rect(), static_cast<int>(alignment), palette(), isEnabled(),
                          fontMetrics().elidedText(text(), Qt::ElideMiddle, width()), foregroundRole());
}

} // namespace desktop
