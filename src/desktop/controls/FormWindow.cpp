// SPDX-License-Identifier: MIT
#include "FormWindow.h"

#include "ControlWidgets.h"
#include "ShownText.h"
#include "SpokenRole.h"
#include "Twips.h"
#include "WidgetOf.h"
#include "Widgets.h"
#include "WindowFrame.h"

#include <QApplication>
#include <QCloseEvent>
#include <QEventLoop>
#include <QKeyEvent>
#include <QMenuBar>
#include <QPushButton>
#include <QScopedValueRollback>
#include <QScreen>
#include <QTimer>
#include <QWindow>
#include <algorithm>
#include <chrono>

namespace desktop {
FormWindow::FormWindow(platform::Form& form, QWidget* pOwner)
    : m_pForm(&form), m_pOwner(pOwner), m_pInside(new QWidget(this))
{
    GiveSpokenRole(*this, form.design.bShowInTaskbar ? QAccessible::Window : QAccessible::Dialog);
    setWindowTitle(ShownText(form.design.sCaption));
    setWindowFlags(FrameOf(form.design));
    if (m_pOwner != nullptr) {
        winId(); // creates the native window, which is needed to set the owner
        windowHandle()->setTransientParent(m_pOwner->windowHandle());
    }
    if (!form.menus.empty()) {
        m_pMenuBar = new QMenuBar(this);
        m_pMenuBar->setNativeMenuBar(false); // otherwise its height would not be part of the layout
        m_menus = std::make_unique<Menus>(form, *m_pMenuBar);
    }
    const QSize inside(Pixels(form.design.ClientWidth), Pixels(form.design.ClientHeight));
    const QSize whole = inside + QSize(0, MenuHeight(inside.width()));
    if (form.design.bSizable) {
        resize(whole);
    } else {
        setFixedSize(whole);
    }
    m_pInside->resize(inside);
    MakeWidgets();
    EnterWidget(form, this);
    form.Observe(this);
    m_inputGate = std::make_unique<InputGate>(form, *this);
    connect(qApp, &QApplication::focusChanged, m_inputGate.get(),
            [this](QWidget*, QWidget* pNow) { FocusMoved(pNow); });
}

FormWindow::~FormWindow()
{
    TakeDown();
}

void FormWindow::MakeWidgets()
{
    for (platform::Control* pControl : m_pForm->controls) {
        if (auto view = ShowControl(*m_pForm, *pControl, *m_pInside)) {
            m_views.push_back(std::move(view));
        }
    }
    // In a very small window, controls that are docked first cover the later ones.
    QWidget* pAbove = nullptr;
    for (const auto& view : m_views) {
        if (dynamic_cast<DockedView*>(view.get()) != nullptr) {
            QWidget& widget = view->Widget();
            widget.raise();
            if (pAbove != nullptr) {
                widget.stackUnder(pAbove);
            }
            pAbove = &widget;
        }
    }
    for (const auto& view : m_views) {
        view->Follow(); // again, because how far a label may grow depends on its neighbours
    }
    if (auto* const pButton = qobject_cast<QPushButton*>(WidgetOf(m_pForm->DefaultButton))) {
        pButton->setDefault(true);
    }
    FollowChildren();
}

void FormWindow::FollowChildren()
{
    // Child controls can be added and removed while the form is shown; the form's own controls have no
    // parent.
    const auto& children = m_pForm->Children();
    std::erase_if(m_views, [&](const auto& view) {
        const auto& own = m_pForm->controls;
        const bool bGone = std::find(own.begin(), own.end(), &view->Shown()) == own.end() &&
                           std::find(children.begin(), children.end(), &view->Shown()) == children.end();
        if (bGone) {
            view->Widget().hide();
            view->Widget().deleteLater();
        }
        return bGone;
    });
    for (platform::Control* pChild : children) {
        if (WidgetOf(pChild) == nullptr) {
            if (auto view = ShowControl(*m_pForm, *pChild, *m_pInside)) {
                m_views.push_back(std::move(view));
            }
        }
    }
}

void FormWindow::ShowUp(bool bModal)
{
    setWindowModality(bModal ? Qt::ApplicationModal : Qt::NonModal);
    PlaceOnScreen(*this, m_pForm->design, m_pOwner);
    TellSize(); // so that it is laid out before it becomes visible
    if (m_pForm == nullptr) {
        return;
    }
    show();
    activateWindow();
    if (m_pForm->ActiveControl() != nullptr) {
        StateChanged(*m_pForm);
    } else {
        focusNextChild();
    }
}

void FormWindow::FitWithFrame()
{
    if (m_pForm != nullptr && StateOf(*this) == platform::WindowState::Normal) {
        PlaceOnScreen(*this, m_pForm->design, m_pOwner);
    }
}

void FormWindow::RunUntilDown()
{
    QEventLoop loop;
    m_pLoop = &loop;
    loop.exec();
}

void FormWindow::TakeDown()
{
    if (m_pForm == nullptr) {
        return;
    }
    m_inputGate.reset();
    m_views.clear();
    m_menus.reset();
    m_pForm->Observe(nullptr);
    RemoveWidget(*m_pForm);
    m_pForm = nullptr;
    hide();
    if (m_pLoop != nullptr) {
        m_pLoop->quit();
    }
    deleteLater();
}

void FormWindow::RefreshNow()
{
    WaitUntilExposed();
    for (const auto& view : m_views) {
        view->Flush();
    }
    repaint();
}

/// Waits until the system shows the window, since nothing can be painted before that. Input is not processed
/// meanwhile. Gives up after a while: a window that is, for example, minimised with its owner is never shown.
void FormWindow::WaitUntilExposed()
{
    constexpr std::chrono::milliseconds kLongest{500};
    QTimer longest;
    longest.setSingleShot(true);
    longest.start(kLongest);
    const QScopedValueRollback waits(m_bWaits, true);
    while (isVisible() && !windowHandle()->isExposed() && longest.isActive()) {
        QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents | QEventLoop::WaitForMoreEvents);
    }
}

void FormWindow::StateChanged(platform::Observable& /*control*/)
{
    m_inputGate->FormChanged();
    FollowChildren();
    QWidget* const pActive = WidgetOf(m_pForm->ActiveControl());
    if (pActive != nullptr && !pActive->hasFocus() && !pActive->isAncestorOf(focusWidget())) {
        pActive->setFocus(Qt::OtherFocusReason);
    }
}

void FormWindow::FocusMoved(const QWidget* pNow)
{
    if (pNow == nullptr || !m_pInside->isAncestorOf(pNow)) {
        return;
    }
    for (const auto& view : m_views) {
        if (&view->Widget() == pNow || view->Widget().isAncestorOf(pNow)) {
            m_pForm->SetFocus(view->Shown());
            return;
        }
    }
}

void FormWindow::changeEvent(QEvent* pEvent)
{
    QWidget::changeEvent(pEvent);
    if (pEvent->type() != QEvent::WindowStateChange) {
        return;
    }
    if (m_pForm != nullptr && !m_pForm->design.bSizable &&
        StateOf(*this) == platform::WindowState::Maximized) {
        showNormal(); // not every window manager respects a fixed size
        return;
    }
    TellSize();
}

void FormWindow::closeEvent(QCloseEvent* pEvent)
{
    pEvent->ignore(); // the form decides, and takes down its window
    if (m_pForm != nullptr && m_pForm->Enabled() && m_pForm->design.bControlBox && !m_bWaits) {
        m_pForm->UnloadForm();
    }
}

void FormWindow::keyPressEvent(QKeyEvent* pEvent)
{
    platform::CommandButton* pButton = nullptr;
    if (m_pForm != nullptr && !pEvent->isAutoRepeat()) {
        const int nKey = pEvent->key();
        const bool bPlain = (pEvent->modifiers() & ~Qt::KeypadModifier) == 0;
        if (bPlain && (nKey == Qt::Key_Return || nKey == Qt::Key_Enter)) {
            pButton = m_pForm->DefaultButton;
        } else if (bPlain && nKey == Qt::Key_Escape) {
            pButton = m_pForm->CancelButton;
        }
    }
    if (pButton == nullptr || !pButton->Enabled() || !pButton->Visible() || !pButton->Click) {
        QWidget::keyPressEvent(pEvent);
        return;
    }
    pButton->Click();
}

void FormWindow::paintEvent(QPaintEvent* pEvent)
{
    QWidget::paintEvent(pEvent);
    if (m_bFrameUnknown && windowHandle()->isExposed()) {
        m_bFrameUnknown = false;
        QMetaObject::invokeMethod(this, &FormWindow::FitWithFrame, Qt::QueuedConnection);
        // A busy window manager adds the frame a moment later, without a notification.
        constexpr std::chrono::milliseconds kMoment{150};
        if (windowHandle()->frameMargins().isNull()) {
            QTimer::singleShot(kMoment, this, &FormWindow::FitWithFrame);
        }
    }
}

void FormWindow::resizeEvent(QResizeEvent* pEvent)
{
    QWidget::resizeEvent(pEvent);
    if (m_told) { // otherwise the window is still being created
        TellSize();
    }
}

int FormWindow::MenuHeight(int nWidth) const
{
    return m_pMenuBar == nullptr ? 0 : m_pMenuBar->heightForWidth(nWidth);
}

void FormWindow::TellSize()
{
    if (m_pForm == nullptr) {
        return;
    }
    const platform::WindowState state = StateOf(*this);
    if (state != platform::WindowState::Minimized) {
        const int nMenu = MenuHeight(width());
        if (m_pMenuBar != nullptr) {
            m_pMenuBar->setGeometry(0, 0, width(), nMenu);
        }
        m_pInside->setGeometry(0, nMenu, width(), height() - nMenu);
    }
    if (m_told == std::tuple(m_pInside->size(), state)) {
        return;
    }
    m_told = {m_pInside->size(), state};
    for (const auto& view : m_views) {
        if (auto* const pDocked = dynamic_cast<DockedView*>(view.get())) {
            pDocked->Dock(m_pInside->size());
        }
    }
    m_pForm->TellSize(Twips(m_pInside->width()), Twips(m_pInside->height()), state);
}

} // namespace desktop
