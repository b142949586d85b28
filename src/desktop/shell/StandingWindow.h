// SPDX-License-Identifier: MIT
#pragma once

#include "DialogWindow.h"

#include <QPointer>
#include <vector>

namespace desktop {

/// A standalone window of the shell, like a separate program that shows a file: it has no owner and stays
/// open when the main window is closed. When closed it deletes itself and gives the focus, if it had it, back
/// to the window that it was opened from.
class StandingWindow : public DialogWindow
{
public:
    StandingWindow(QWidget* pOpenedFrom, const QString& sName, const QString& sTitle);

    /// Shows the window over the one that it was opened from, offset from others of its kind, or brings it to
    /// the front.
    void ShowUp();

    void done(int nResult) override;

    /// All visible ones.
    static std::vector<StandingWindow*> All();

private:
    [[nodiscard]] QPoint FreePlace() const;

    QPointer<QWidget> m_pOpenedFrom;
    QPoint m_place; ///< its initial position
};

} // namespace desktop
