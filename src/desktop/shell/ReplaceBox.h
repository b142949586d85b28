// SPDX-License-Identifier: MIT
#pragma once

#include "DialogWindow.h"
#include "OperationDialogs.h"

class QCheckBox;

namespace desktop {

/// Asks whether a file is to replace another one, and shows how they differ. Enter skips, Esc cancels.
class ReplaceBox final : public DialogWindow
{
public:
    ReplaceBox(QWidget* pOwner, const tFileFacts& source, const tFileFacts& target, bool bIdentical);

    /// Shows the question and returns the answer.
    tReplaceAnswer Answer();

private:
    QCheckBox* m_pForAll;
    tReplaceAnswer::Choice m_choice = tReplaceAnswer::Choice::Cancel;
};

} // namespace desktop
