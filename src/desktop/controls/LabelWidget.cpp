// SPDX-License-Identifier: MIT
#include "LabelWidget.h"

#include "ShownText.h"

#include <QPainter>
#include <QTextLayout>
#include <algorithm>
#include <chrono>
#include <limits>

namespace desktop {

/// One frame at a usual refresh rate.
constexpr std::chrono::milliseconds kWait{16};

LabelWidget::LabelWidget(QWidget* pParent) : QLabel(pParent)
{
    setTextFormat(Qt::PlainText);
}

int LabelWidget::HeightNeeded(int nWidth) const
{
    const auto nLines = Lines(nWidth, std::numeric_limits<int>::max()).size();
    return static_cast<int>(nLines) * fontMetrics().lineSpacing();
}

QStringList LabelWidget::Lines(int nWidth, int nMost) const
{
    QTextOption wrap;
    wrap.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    QStringList lines;
    for (const QString& sParagraph : text().split(QLatin1Char('\n'))) {
        QTextLayout layout(sParagraph, font());
        layout.setTextOption(wrap);
        layout.beginLayout();
        for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
            line.setLineWidth(nWidth);
            if (lines.size() + 1 == nMost) {
                const QString sRest = sParagraph.mid(line.textStart());
                return lines << fontMetrics().elidedText(sRest, Qt::ElideRight, nWidth);
            }
            lines << sParagraph.mid(line.textStart(), line.textLength());
        }
        layout.endLayout();
    }
    return lines;
}

void LabelWidget::paintEvent(QPaintEvent* /*pEvent*/)
{
    QPainter painter(this);
    painter.setPen(palette().color(foregroundRole()));
    const int nLineHeight = fontMetrics().lineSpacing();
    QRect line(0, 0, width(), nLineHeight);
    for (const QString& sLine : Lines(width(), std::max(1, height() / nLineHeight))) {
        painter.drawText(line, Qt::AlignLeft | Qt::AlignTop | Qt::TextSingleLine, sLine);
        line.translate(0, nLineHeight);
    }
}

LabelView::LabelView(const platform::Form& form, platform::Label& label, QWidget* pParent)
    : ViewOf(form, label, pParent)
{
    m_wait.setSingleShot(true);
    m_wait.setInterval(kWait);
    connect(&m_wait, &QTimer::timeout, this, &LabelView::Flush);
}

void LabelView::Flush()
{
    m_wait.stop();
    const QString sShown = ShownLines(m_control.Caption());
    if (sShown != m_widget.text()) {
        m_widget.setText(sShown);
        m_nHeightNeeded = m_widget.HeightNeeded(ControlView::Place().width());
    }
    Follow();
}

void LabelView::StateChanged(platform::Observable& /*control*/)
{
    Follow();
    if (!m_wait.isActive()) {
        m_wait.start();
    }
}

QRect LabelView::Place() const
{
    QRect place = ControlView::Place();
    if (m_nHeightNeeded <= place.height()) {
        return place;
    }
    int nBottom = m_widget.parentWidget()->height();
    for (const auto* pChild : m_widget.parentWidget()->children()) {
        const auto* pOther = qobject_cast<const QWidget*>(pChild);
        if (pOther != nullptr && pOther != &m_widget && !pOther->isHidden() && pOther->y() > place.y() &&
            pOther->x() <= place.right() && pOther->geometry().right() >= place.x()) {
            nBottom = std::min(nBottom, pOther->y());
        }
    }
    place.setHeight(std::clamp(nBottom - place.y(), place.height(), m_nHeightNeeded));
    return place;
}

} // namespace desktop
