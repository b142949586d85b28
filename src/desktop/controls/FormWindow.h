// SPDX-License-Identifier: MIT
#pragma once

#include "Control.h"
#include "ControlView.h"
#include "Form.h"
#include "InputGate.h"
#include "Menus.h"

#include <QEventLoop>
#include <QPointer>
#include <QWidget>
#include <memory>
#include <optional>
#include <tuple>
#include <vector>

class QMenuBar;

namespace desktop {

/// The window of one form, with a widget for each of its controls. It is made when the form is shown and
/// deletes itself some time after it has been taken down.
///
/// Windows are nobody's children here, so that a window stays usable while its owner is disabled.
class FormWindow final : public QWidget, public platform::ControlObserver
{
public:
    /// `pOwner` is the window over which this one stays, or null.
    FormWindow(platform::Form& form, QWidget* pOwner);
    FormWindow(const FormWindow&) = delete;
    FormWindow& operator=(const FormWindow&) = delete;
    ~FormWindow() override;

    /// Brings the window to the screen.
    void ShowUp(bool bModal);

    /// Runs an event loop until the window has been taken down. The window may be gone behind it.
    void RunUntilDown();

    /// Takes the window off the screen and lets go of the form and its controls. Works from inside the
    /// window's own events too.
    void TakeDown();

    /// Brings all that has changed to the screen at once.
    void RefreshNow();

    void ControlChanged(platform::Control& control) override;

protected:
    void changeEvent(QEvent* pEvent) override;
    void closeEvent(QCloseEvent* pEvent) override;
    void keyPressEvent(QKeyEvent* pEvent) override;
    void paintEvent(QPaintEvent* pEvent) override;
    void resizeEvent(QResizeEvent* pEvent) override;
    bool focusNextPrevChild(bool bNext) override;

private:
    void MakeWidgets();
    void FollowChildren();
    [[nodiscard]] int MenuHeight(int nWidth) const;
    void TellSize();
    void WaitUntilExposed();
    void FitWithFrame();
    void FocusMoved(const QWidget* pNow);
    [[nodiscard]] std::vector<QWidget*> TabOrder() const;

    platform::Form* m_pForm; ///< null once the window has been taken down
    QPointer<QWidget> m_pOwner;
    QMenuBar* m_pMenuBar = nullptr;
    QWidget* m_pInside; ///< all but the menu bar; holds the controls' widgets
    std::unique_ptr<InputGate> m_inputGate;
    std::unique_ptr<Menus> m_menus;
    std::vector<std::unique_ptr<ControlView>> m_views;
    std::optional<std::tuple<QSize, platform::WindowState>> m_told;
    bool m_bFrameUnknown = true;
    bool m_bWaits = false;        ///< for the system, to bring the window to the screen
    QPointer<QEventLoop> m_pLoop; ///< the one that runs until the window is down
};

} // namespace desktop
