// SPDX-License-Identifier: MIT
#pragma once

#include "Form.h"
#include "Widgets.h"

namespace dialogs {

/// The box that says what the program is and whose.
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
    void btnOK_Click();
};

/// The one about box.
frmAbout& theAboutForm();

} // namespace dialogs
