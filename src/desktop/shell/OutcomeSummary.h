// SPDX-License-Identifier: MIT
#pragma once

#include "DialogWindow.h"
#include "OperationDialogs.h"

namespace desktop {

/// The report at the end of a file operation: which files were skipped, replaced or not processed, and why,
/// as text that can be copied. Accepted if the files that were kept are to go to the trash after all.
class OutcomeSummary final : public DialogWindow
{
public:
    OutcomeSummary(QWidget* pOwner, const tOperation& operation, const tOperationOutcome& outcome);

    /// True if there is something to report: a file was not processed or another one was replaced, or the
    /// operation was cancelled after some files.
    static bool IsNeeded(const tOperationOutcome& outcome);
};

} // namespace desktop
