// SPDX-License-Identifier: MIT
#pragma once

#include "OperationDialogs.h"
#include "ShellDialog.h"

class QLabel;
class QProgressBar;

namespace desktop {

class PathLabel;

/// How far an operation on files has come, and a way to cancel it: the button, Esc, or closing the window,
/// which stays until it is deleted.
class ProgressWindow final : public ShellDialog
{
public:
    enum class Phase {
        Looking, ///< the files are being found out about; how many they are is not known
        Working
    };

    ProgressWindow(QWidget* pOwner, const tOperation& operation, Phase phase);

    void ShowProgress(const tOperationProgress& progress);
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
