#pragma once

#include "OperationDialogs.h"
#include "ShellDialog.h"

namespace desktop {

/// What an operation on files has not done and why, to be read and copied.
class OutcomeSummary final : public ShellDialog
{
public:
    OutcomeSummary(QWidget* pOwner, const tOperation& operation, const tOperationOutcome& outcome);

    /// True if there is something to say: a file was not dealt with, or a cancel came when some had been.
    static bool IsNeeded(const tOperationOutcome& outcome);
};

} // namespace desktop
