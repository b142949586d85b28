// SPDX-License-Identifier: MIT
#pragma once

#include "FormMembers.h"
#include "ListView.h"

namespace dialogs {

/// What the dialogs use of the main form beyond what the searches do, whoever offers it.
class MainFormMembers : public search::MainFormMembers
{
public:
    platform::ListView lvFake{form}; ///< covers lvFiles while a search fills it
};

/// Puts the main form in place for the dialogs; it is not owned here.
void UseMainForm(MainFormMembers& main);

MainFormMembers& frmMain();

/// Lays lvFake exactly over lvFiles, with columns as wide as those of that list.
void LayCoverList();

} // namespace dialogs
