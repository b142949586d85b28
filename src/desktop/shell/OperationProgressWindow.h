// SPDX-License-Identifier: MIT
#pragma once

#include "DialogWindow.h"
#include "OperationDialogs.h"

class QLabel;
class QProgressBar;

namespace desktop {

class PathLabel;

/// The progress of a file operation, with a way to cancel it: the button, Esc, or closing the window. The
/// window stays until it is deleted.
class OperationProgressWindow final : public DialogWindow
{
public:
    enum class Phase {
        Looking, ///< examining the files; their number is not known yet
        Working
    };

    OperationProgressWindow(QWidget* pOwner, const tOperation& operation, Phase phase);

    void ShowProgress(const tOperationProgress& progress);
    /// True once the user has cancelled.
    [[nodiscard]] bool Cancelled() const { return m_bCancelled; }

    void reject() override;

private:
    const tOperation m_operation;
    const Phase m_phase;
    PathLabel* m_pPath;
    QLabel* m_pCount;
    QProgressBar* m_pBar;
    QPushButton* m_pCancel = nullptr;
    bool m_bCancelled = false;
};

} // namespace desktop
