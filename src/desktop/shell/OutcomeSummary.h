// SPDX-License-Identifier: MIT
#pragma once

#include "OperationDialogs.h"
#include "ShellDialog.h"

namespace desktop {

/// What an operation on files has skipped, replaced and not done, and why, to be read and copied. Accepted if
/// the files that were spared are to go to the trash after all.
class OutcomeSummary final : public ShellDialog
{
public:
    OutcomeSummary(QWidget* pOwner, const tOperation& operation, const tOperationOutcome& outcome);

    /// True if there is something to say: a file was not dealt with or another one replaced, or a cancel came
    /// when some had been.
    static bool IsNeeded(const tOperationOutcome& outcome);
};

} // namespace desktop
