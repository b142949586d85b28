// SPDX-License-Identifier: MIT
#pragma once

#include "Form.h"
#include "FormMembers.h"
#include "Widgets.h"
#include "cProgressBar.h"

#include <optional>

namespace dialogs {

/// The small window in front of the main form while a search runs. It shows what the search is at, takes the
/// user's Cancel, and keeps the result list out of sight while rows go into it.
class frmProgress final : public search::ProgressFormMembers
{
public:
    frmProgress();

    platform::Form form;
    platform::Label Label1;
    platform::CommandButton cmdCancel;
    platform::Image Image1;

    /// Made when first referred to, gone with the form.
    cProgressBar& pbProgress() override;

    void Show() override;
    void Refresh() override { form.Refresh(); }
    void Unload() override;

private:
    void RestoreDesign();
    void Form_Load();
    void Form_Unload();
    void cmdCancel_Click();
    void ShowCoverList();
    void InitProgressBar();

    std::optional<cProgressBar> m_pbProgress;
};

/// The one progress window.
frmProgress& theProgressForm();

} // namespace dialogs
