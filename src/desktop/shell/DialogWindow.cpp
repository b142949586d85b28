// SPDX-License-Identifier: MIT
#include "DialogWindow.h"

#include "PointerAtRest.h"
#include "ShownText.h"
#include "WidgetOf.h"

#include <QApplication>
#include <QScreen>

#include <algorithm>

namespace desktop {

QWidget* OwnerOf(platform::WindowHandle hwnd)
{
    QWidget* const pWidget = WidgetOf(hwnd);
    return pWidget != nullptr ? pWidget->window() : QApplication::activeWindow();
}

DialogWindow::DialogWindow(QWidget* pOwner, const QString& sName, const QString& sTitle) : QDialog(pOwner)
{
    setObjectName(sName);
    setWindowTitle(AsTitle(sTitle));
}

bool DialogWindow::Ask()
{
    const PointerAtRest pointer;
    return exec() == QDialog::Accepted;
}

void DialogWindow::SizeFor(QSize wanted)
{
    constexpr int nFrame = 48; // room for the window frame and a panel
    const QRect room = screen()->availableGeometry();
    const QSize size = wanted.expandedTo(sizeHint()).boundedTo(room.size() - QSize(nFrame, nFrame));
    resize(size);
    // A window that grows while visible must stay within the screen.
    const int nBeyond = y() + nFrame + size.height() - room.bottom();
    if (isVisible() && nBeyond > 0) {
        move(x(), std::max(room.top(), y() - nBeyond));
    }
}

QPushButton* DialogWindow::AddButton(QDialogButtonBox& buttons, const QString& sText,
                                     QDialogButtonBox::ButtonRole role, const QString& sName,
                                     const std::function<void()>& press)
{
    QPushButton* const pButton = buttons.addButton(sText, role);
    pButton->setObjectName(sName);
    if (press) {
        connect(pButton, &QPushButton::clicked, this, press);
    }
    return pButton;
}

QLabel* DialogWindow::Text(const QString& sText, const QString& sName)
{
    auto* const pText = new QLabel(sText);
    pText->setObjectName(sName);
    pText->setTextFormat(Qt::PlainText);
    pText->setWordWrap(true);
    return pText;
}

} // namespace desktop
