// SPDX-License-Identifier: MIT
#pragma once

#include "Control.h"
#include "OperationDialogs.h"
#include "PacedEventLoop.h"
#include "ProgressWindow.h"

#include <QElapsedTimer>
#include <QPointer>

namespace desktop {

/// The user as a person before the screen. The questions take input also while the form over which they are
/// asked is disabled.
class QtOperationDialogs final : public OperationDialogs
{
public:
    QtOperationDialogs();
    QtOperationDialogs(const QtOperationDialogs&) = delete;
    QtOperationDialogs& operator=(const QtOperationDialogs&) = delete;
    ~QtOperationDialogs() override;

    bool Looking(const tOperation& soFar) override;
    Consent Confirm(const tConfirmation& confirmation) override;
    bool AskRoom(const tOperation& operation, const tRoom& room) override;
    tReplaceAnswer AskReplace(const tFileFacts& source, const tFileFacts& target, bool bIdentical) override;
    void Started(const tOperation& operation) override;
    bool Progress(const tOperationProgress& progress) override;
    bool Finished(const tOperation& operation, const tOperationOutcome& outcome) override;

private:
    void Open(const tOperation& operation, ProgressWindow::Phase phase);
    bool GoOn(const tOperationProgress& progress);
    void Look();

    PacedEventLoop m_events;
    platform::WindowHandle m_hwnd = nullptr; ///< over which the operation in hand asks
    QPointer<ProgressWindow> m_pWindow;      ///< while something is being done; not visible at first
    QElapsedTimer m_sinceStart;
    const tOperationProgress* m_pReached = nullptr; ///< while GoOn runs
};

} // namespace desktop
