// SPDX-License-Identifier: MIT
#pragma once

#include "ShellDialog.h"

#include <QPointer>
#include <vector>

namespace desktop {

/// A window of the shell that stands by itself, like a program that looks at a file: no other window owns it,
/// and it stays when the main window goes. Closed, it deletes itself and gives the keyboard, if it had it,
/// back to the window that it was opened from.
class StandingWindow : public ShellDialog
{
public:
    StandingWindow(QWidget* pOpenedFrom, const QString& sName, const QString& sTitle);

    /// Brings the window up over the one that it was opened from, beside others of its kind, or to the front.
    void ShowUp();

    void done(int nResult) override;

    /// All that are on the screen.
    static std::vector<StandingWindow*> All();

private:
    [[nodiscard]] QPoint FreePlace() const;

    QPointer<QWidget> m_pOpenedFrom;
    QPoint m_place; ///< where it was brought up
};

} // namespace desktop
