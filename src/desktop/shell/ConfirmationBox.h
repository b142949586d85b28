// SPDX-License-Identifier: MIT
#pragma once

#include "DialogWindow.h"
#include "OperationDialogs.h"

class QPlainTextEdit;

namespace desktop {

/// Asks before files go to the trash, when there are concerns to show. Enter deletes only the files of which
/// a copy stays, or cancels if there are none.
class ConfirmationBox final : public DialogWindow
{
public:
    ConfirmationBox(QWidget* pOwner, const tConfirmation& confirmation);

    /// Shows the box and returns the answer.
    Consent Answer();

private:
    QPushButton* AddChoice(QDialogButtonBox& buttons, const QString& sText, const QString& sName,
                           Consent consent);
    void Unfold(bool bShown);

    QPlainTextEdit* m_pNames;
    Consent m_consent = Consent::Cancel;
};

} // namespace desktop
