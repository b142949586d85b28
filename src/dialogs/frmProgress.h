// SPDX-License-Identifier: MIT
#pragma once

#include "Form.h"
#include "FormMembers.h"
#include "Widgets.h"
#include "cProgressBar.h"
#include "mCommon.h"

#include <optional>

namespace dialogs {

/// The small window in front of the main form while a search runs. It shows the progress, lets the user
/// cancel, and covers the result list while rows are added to it.
class frmProgress final : public search::ProgressFormMembers
{
public:
    frmProgress();

    platform::Form form;
    platform::Label Label1;
    platform::CommandButton cmdCancel;
    platform::Image Image1;

    /// Created on first use, destroyed with the form.
    cProgressBar& pbProgress() override { return m_pbProgress ? *m_pbProgress : m_pbProgress.emplace(); }

    void Show() override;
    void Refresh() override { form.Refresh(); }
    void Unload() override;

private:
    void RestoreDesign();
    void Form_Load();
    void Form_Unload();
    void cmdCancel_Click() { search::bStopped = true; }
    void InitProgressBar();

    std::optional<cProgressBar> m_pbProgress;
};

/// Puts the cover list exactly over the result list, with the same column widths.
void LayCoverList();

} // namespace dialogs
