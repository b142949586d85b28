// SPDX-License-Identifier: MIT
#include "Picture.h"

#include <QApplication>
#include <QMenu>
#include <QPainter>
#include <algorithm>
#include <vector>

namespace tour {
namespace {

constexpr int kTitleHeight = 22;
constexpr int kMargin = 8;

bool IsFramed(const QWidget& window)
{
    return qobject_cast<const QMenu*>(&window) == nullptr;
}

/// The stacking order: the main window and those next to it, windows above it, a message above these, menus.
int Layer(const QWidget& window)
{
    if (!IsFramed(window)) {
        return 4 + std::max(0, window.x()); // a submenu opens to the right of its menu
    }
    if (window.windowFlags().testFlag(Qt::WindowMaximizeButtonHint)) {
        return window.isActiveWindow() ? 1 : 0;
    }
    return window.isModal() ? 3 : 2;
}

QRect WholeRect(const QWidget& window)
{
    const QRect inside(window.mapToGlobal(QPoint(0, 0)), window.size());
    return IsFramed(window) ? inside.adjusted(-1, -kTitleHeight, 1, 1) : inside;
}

void PaintFrame(QPainter& painter, const QWidget& window)
{
    const QRect whole = WholeRect(window);
    const QRect title(whole.left(), whole.top(), whole.width(), kTitleHeight);
    painter.fillRect(whole, QColor(70, 74, 82));
    painter.setPen(Qt::white);
    painter.drawText(title.adjusted(kMargin, 0, 0, 0), Qt::AlignVCenter | Qt::AlignLeft,
                     window.windowTitle());
}

} // namespace

QPixmap PictureOfScreen()
{
    std::vector<QWidget*> windows;
    QRect all;
    for (QWidget* pWindow : QApplication::topLevelWidgets()) {
        if (pWindow->isVisible() && !pWindow->isMinimized()) {
            windows.push_back(pWindow);
            all |= WholeRect(*pWindow);
        }
    }
    std::sort(windows.begin(), windows.end(),
              [](const auto* pOne, const auto* pOther) { return Layer(*pOne) < Layer(*pOther); });
    QPixmap picture(all.size() * qApp->devicePixelRatio());
    picture.setDevicePixelRatio(qApp->devicePixelRatio());
    picture.fill(QColor(120, 130, 140));
    QPainter painter(&picture);
    painter.translate(-all.topLeft());
    for (QWidget* pWindow : windows) {
        if (IsFramed(*pWindow)) {
            PaintFrame(painter, *pWindow);
        }
        painter.drawPixmap(pWindow->mapToGlobal(QPoint(0, 0)), pWindow->grab());
    }
    return picture;
}

} // namespace tour
