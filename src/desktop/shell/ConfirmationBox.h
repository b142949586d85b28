// SPDX-License-Identifier: MIT
#pragma once

#include "OperationDialogs.h"
#include "ShellDialog.h"

class QPlainTextEdit;

namespace desktop {

/// Asks before files go to the trash of which there is more to say than their number. Enter takes those of
/// which a copy stays, or cancels where there is none.
class ConfirmationBox final : public ShellDialog
{
public:
    ConfirmationBox(QWidget* pOwner, const tConfirmation& confirmation);

    /// Asks, and returns the answer.
    Consent Answer();

private:
    QPushButton* AddChoice(QDialogButtonBox& buttons, const QString& sText, const QString& sName,
                           Consent consent);
    void Unfold(bool bShown);

    QPlainTextEdit* m_pNames;
    Consent m_consent = Consent::Cancel;
};

} // namespace desktop
