// SPDX-License-Identifier: MIT
#pragma once

#include "FormMembers.h"
#include "ListView.h"

namespace dialogs {

/// What the dialogs use of the main form, beyond what the searches use.
class MainFormMembers : public search::MainFormMembers
{
public:
    platform::ListView lvFake{form}; ///< covers lvFiles while a search fills it
};

/// Installs the main form for the dialogs. It is not owned here.
void UseMainForm(MainFormMembers& main);

/// The installed main form.
MainFormMembers& frmMain();

/// Puts lvFake exactly over lvFiles, with the same column widths.
void LayCoverList();

} // namespace dialogs
