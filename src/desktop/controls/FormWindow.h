// SPDX-License-Identifier: MIT
#pragma once

#include "ControlView.h"
#include "Form.h"
#include "InputGate.h"
#include "Menus.h"
#include "Observable.h"

#include <QEventLoop>
#include <QPointer>
#include <QWidget>
#include <memory>
#include <optional>
#include <tuple>
#include <vector>

class QMenuBar;

namespace desktop {

/// The window of a form, with a widget for each of its controls. It is created when the form is shown and
/// deletes itself some time after the form has been taken down.
///
/// The windows have no parent, so that one stays usable while its owner is disabled.
class FormWindow final : public QWidget, public platform::Observer
{
public:
    /// The window stays above `pOwner` if that is not null.
    FormWindow(platform::Form& form, QWidget* pOwner);
    FormWindow(const FormWindow&) = delete;
    FormWindow& operator=(const FormWindow&) = delete;
    ~FormWindow() override;

    /// Shows the window.
    void ShowUp(bool bModal);

    /// Runs an event loop until the window has been taken down. The window may have been deleted by then.
    void RunUntilDown();

    /// Hides the window and disconnects it from the form and its controls. Can be called from the window's
    /// own event handlers.
    void TakeDown();

    /// Repaints everything that has changed at once.
    void RefreshNow();

    void StateChanged(platform::Observable& control) override;

protected:
    void changeEvent(QEvent* pEvent) override;
    void closeEvent(QCloseEvent* pEvent) override;
    void keyPressEvent(QKeyEvent* pEvent) override;
    void paintEvent(QPaintEvent* pEvent) override;
    void resizeEvent(QResizeEvent* pEvent) override;

private:
    void MakeWidgets();
    void FollowChildren();
    [[nodiscard]] int MenuHeight(int nWidth) const;
    void TellSize();
    void WaitUntilExposed();
    void FitWithFrame();
    void FocusMoved(const QWidget* pNow);

    platform::Form* m_pForm; ///< null once the window has been taken down
    QPointer<QWidget> m_pOwner;
    QMenuBar* m_pMenuBar = nullptr;
    QWidget* m_pInside; ///< everything but the menu bar; contains the widgets of the controls
    std::unique_ptr<InputGate> m_inputGate;
    std::unique_ptr<Menus> m_menus;
    std::vector<std::unique_ptr<ControlView>> m_views;
    std::optional<std::tuple<QSize, platform::WindowState>> m_told;
    bool m_bFrameUnknown = true;
    bool m_bWaits = false;        ///< waiting for the system to show the window
    QPointer<QEventLoop> m_pLoop; ///< of RunUntilDown
};

} // namespace desktop
