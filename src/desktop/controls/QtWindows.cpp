// SPDX-License-Identifier: MIT
#include "QtWindows.h"

#include "FormWindow.h"
#include "ListView.h"
#include "Menu.h"
#include "Questions.h"
#include "Twips.h"
#include "WidgetOf.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QCursor>
#include <QMenu>
#include <QScreen>
#include <QTimer>
#include <algorithm>

namespace desktop {
namespace {

/// The position of the current row on the screen, or that of the list if the row is scrolled out of view.
QPoint CurrentRowOn(const QAbstractItemView& rows)
{
    const QRect inSight = rows.viewport()->rect();
    const QRect row = rows.visualRect(rows.currentIndex()) & inSight;
    return rows.viewport()->mapToGlobal(row.isEmpty() ? inSight.topLeft() : row.center());
}

/// Shows a menu opened by a key with its first command highlighted, so that the keyboard continues there.
void ExecByKey(QMenu& menu, const QPoint& place)
{
    QTimer shown;
    shown.setSingleShot(true);
    QObject::connect(&shown, &QTimer::timeout, &menu, [&menu] {
        const QList<QAction*> actions = menu.actions();
        const auto first = std::find_if(actions.begin(), actions.end(), [](const QAction* pEach) {
            return pEach->isEnabled() && !pEach->isSeparator();
        });
        if (first != actions.end()) {
            menu.setActiveAction(*first);
        }
    });
    shown.start(0);
    menu.exec(place);
}

} // namespace

QtWindows::~QtWindows()
{
    while (!m_windows.empty()) {
        delete m_windows.begin()->second;
        m_windows.erase(m_windows.begin());
    }
}

int QtWindows::RunUntilAllDown()
{
    m_bRuns = true;
    const int nResult = QApplication::exec();
    m_bRuns = false;
    return nResult;
}

QWidget* QtWindows::WindowOf(const platform::Form* pForm) const
{
    const auto found = m_windows.find(pForm);
    return found == m_windows.end() ? nullptr : found->second;
}

void QtWindows::ShowForm(platform::Form& form, bool bModal, platform::Form* pOwner)
{
    if (QWidget* const pShown = WindowOf(&form)) {
        pShown->show();
        SetForegroundWindow(form.hWnd());
        return;
    }
    // A modal form without an owner stays above the window from which it was opened.
    QWidget* const pOver = bModal && pOwner == nullptr ? QApplication::activeWindow() : WindowOf(pOwner);
    auto* const pWindow = new FormWindow(form, pOver);
    m_windows[&form] = pWindow;
    pWindow->ShowUp(bModal);
    if (bModal && WindowOf(&form) == pWindow) {
        pWindow->RunUntilDown();
    }
}

void QtWindows::TakeDownForm(platform::Form& form)
{
    const auto found = m_windows.find(&form);
    if (found == m_windows.end()) {
        return;
    }
    FormWindow* const pWindow = found->second;
    m_windows.erase(found);
    pWindow->TakeDown();
    if (m_windows.empty() && m_bRuns) {
        QApplication::exit(); // quit() would also close windows that do not belong to forms
    }
}

void QtWindows::RefreshForm(platform::Form& form)
{
    const auto found = m_windows.find(&form);
    if (found != m_windows.end()) {
        found->second->RefreshNow();
    }
}

void QtWindows::PopupMenu(platform::MenuItem& menu, const platform::ListView* pList)
{
    const auto* const pRows = qobject_cast<const QAbstractItemView*>(WidgetOf(pList));
    if (auto* const pMenu = qobject_cast<QMenu*>(WidgetOf(&menu))) {
        if (pRows == nullptr) {
            pMenu->exec(QCursor::pos());
        } else {
            ExecByKey(*pMenu, CurrentRowOn(*pRows));
        }
    }
}

void QtWindows::SetForegroundWindow(platform::WindowHandle hWnd)
{
    if (QWidget* const pWidget = WidgetOf(hWnd)) {
        pWidget->window()->raise();
        pWidget->window()->activateWindow();
    }
}

void QtWindows::LockWindowUpdate(platform::WindowHandle hWnd)
{
    if (m_locked != nullptr) {
        m_locked->setUpdatesEnabled(true);
    }
    m_locked = WidgetOf(hWnd);
    if (m_locked != nullptr) {
        m_locked->setUpdatesEnabled(false);
    }
}

void QtWindows::SetMousePointer(platform::MousePointer pointer)
{
    QApplication::restoreOverrideCursor();
    if (pointer == platform::MousePointer::Hourglass) {
        QApplication::setOverrideCursor(Qt::WaitCursor);
    }
}

float QtWindows::Width()
{
    return Twips(QGuiApplication::primaryScreen()->size().width());
}

/// The owner of a message box: the active window or, if one has just closed and none is active yet, one that
/// is not disabled.
QWidget* QtWindows::MessageOwner() const
{
    if (QApplication::activeWindow() != nullptr) {
        return QApplication::activeWindow();
    }
    const auto usable = std::find_if(m_windows.begin(), m_windows.end(), [](const auto& each) {
        return each.second->isVisible() && each.first->Enabled();
    });
    return usable != m_windows.end() ? usable->second : nullptr;
}

void QtWindows::Show(std::string_view sText, platform::MessageIcon icon)
{
    SayFault(MessageOwner(), QStringLiteral("message"),
             QString::fromUtf8(sText.data(), static_cast<qsizetype>(sText.size())),
             icon == platform::MessageIcon::Stop ? QMessageBox::Critical : QMessageBox::Warning);
}

} // namespace desktop
