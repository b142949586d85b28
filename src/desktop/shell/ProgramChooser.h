// SPDX-License-Identifier: MIT
#pragma once

#include "Applications.h"
#include "StandingWindow.h"

#include <functional>
#include <string>
#include <vector>

class QLineEdit;
class QListWidget;
class QListWidgetItem;

namespace desktop {

class NoticeLabel;

/// The question for the application that is to open a file: those registered for it first, all others below a
/// heading. The window stays until an application has been started, or Cancel.
class ProgramChooser final : public StandingWindow
{
public:
    /// Starts an application on the file: as Start does.
    using Starter = std::function<long(const tApplication&)>;

    ProgramChooser(QWidget* pOpenedFrom, const std::string& sPath, const tApplications& applications,
                   Starter start);

    void accept() override;

private:
    void AddApplications(const std::vector<tApplication>& applications);
    void Filter();
    void SelectFirst();

    std::vector<tApplication> m_applications; ///< in the order of the rows, headings aside
    Starter m_start;
    QLineEdit* m_pFilter = nullptr;
    QListWidget* m_pList;
    QListWidgetItem* m_pHeading = nullptr; ///< between the two kinds, where there are both
    NoticeLabel* m_pSaid;
    QPushButton* m_pOpen = nullptr;
};

} // namespace desktop
