// SPDX-License-Identifier: MIT
#pragma once

#include "Form.h"
#include "Widgets.h"

namespace dialogs {

/// The about box.
class frmAbout
{
public:
    frmAbout();

    platform::Form form;
    platform::Label Label1;
    platform::CommandButton btnOK;
    platform::Image Image1;

private:
    void Form_Load();
    void btnOK_Click() { form.UnloadForm(); }
};

/// The only about box.
frmAbout& theAboutForm();

} // namespace dialogs
