// SPDX-License-Identifier: MIT
#pragma once

#include "NativeWindow.h"
#include "OperationDialogs.h"
#include "OperationProgressWindow.h"
#include "PacedEventLoop.h"

#include <QElapsedTimer>
#include <QPointer>

namespace desktop {

/// Asks a real user, through windows. The questions accept input even if the form that owns them is disabled.
class QtOperationDialogs final : public OperationDialogs
{
public:
    QtOperationDialogs();
    QtOperationDialogs(const QtOperationDialogs&) = delete;
    QtOperationDialogs& operator=(const QtOperationDialogs&) = delete;
    ~QtOperationDialogs() override;

    bool Looking(const tOperation& soFar) override;
    void LookingEnded() override { delete m_pWindow; }
    Consent Confirm(const tConfirmation& confirmation) override;
    bool AskRoom(const tOperation& operation, const tRoom& room) override;
    tReplaceAnswer AskReplace(const tFileFacts& source, const tFileFacts& target, bool bIdentical) override;
    void Started(const tOperation& operation) override
    {
        Open(operation, OperationProgressWindow::Phase::Working);
    }
    bool Progress(const tOperationProgress& progress) override { return GoOn(progress); }
    bool Finished(const tOperation& operation, const tOperationOutcome& outcome) override;

private:
    void Open(const tOperation& operation, OperationProgressWindow::Phase phase);
    bool GoOn(const tOperationProgress& progress);
    void Look();

    PacedEventLoop m_events;
    platform::WindowHandle m_hwnd = nullptr;     ///< owner of the questions of the current operation
    QPointer<OperationProgressWindow> m_pWindow; ///< of the current operation; initially hidden
    QElapsedTimer m_sinceStart;
    const tOperationProgress* m_pReached = nullptr; ///< only during GoOn
};

} // namespace desktop
