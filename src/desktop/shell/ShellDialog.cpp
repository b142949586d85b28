#include "ShellDialog.h"

#include "PointerAtRest.h"
#include "WidgetOf.h"

#include <QApplication>
#include <QScreen>

namespace desktop {

QWidget* OwnerOf(platform::WindowHandle hwnd)
{
    QWidget* const pWidget = WidgetOf(hwnd);
    return pWidget != nullptr ? pWidget->window() : QApplication::activeWindow();
}

ShellDialog::ShellDialog(QWidget* pOwner, const QString& sName, const QString& sTitle) : QDialog(pOwner)
{
    setObjectName(sName);
    setWindowTitle(AsTitle(sTitle));
}

bool ShellDialog::Ask()
{
    const PointerAtRest pointer;
    return exec() == QDialog::Accepted;
}

void ShellDialog::SizeFor(QSize wanted)
{
    constexpr int nFrame = 48; // what a window's frame and a panel may take
    const QSize room = screen()->availableGeometry().size() - QSize(nFrame, nFrame);
    resize(wanted.expandedTo(sizeHint()).boundedTo(room));
}

QPushButton* ShellDialog::AddButton(QDialogButtonBox& buttons, const QString& sText,
                                    QDialogButtonBox::ButtonRole role, const QString& sName)
{
    QPushButton* const pButton = buttons.addButton(sText, role);
    pButton->setObjectName(sName);
    return pButton;
}

QString AsTitle(QString sText)
{
    return sText.replace(QLatin1String("[*]"), QLatin1String("[*][*]"));
}

} // namespace desktop
