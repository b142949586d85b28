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

/// The dialog that asks for the application to open a file: those registered for its kind first, all others
/// below a heading. It stays open until an application has been started or the user cancels.
class ProgramChooser final : public StandingWindow
{
public:
    /// Starts an application on the file; same result as Start.
    using Starter = std::function<long(const tApplication&)>;

    ProgramChooser(QWidget* pOpenedFrom, const std::string& sPath, const tApplications& applications,
                   Starter start);

    void accept() override;

private:
    void AddApplications(const std::vector<tApplication>& applications);
    void Filter();
    void SelectFirst();

    std::vector<tApplication> m_applications; ///< in row order, without the headings
    Starter m_start;
    QLineEdit* m_pFilter = nullptr;
    QListWidget* m_pList;
    QListWidgetItem* m_pHeading = nullptr; ///< between the two groups, if both exist
    NoticeLabel* m_pSaid;
    QPushButton* m_pOpen = nullptr;
};

} // namespace desktop
