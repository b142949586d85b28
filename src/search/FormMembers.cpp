// SPDX-License-Identifier: MIT
#include "FormMembers.h"

#include <cassert>

namespace search {
namespace {

MainFormMembers* g_pMain = nullptr;
ProgressFormMembers* g_pProgress = nullptr;

} // namespace

void UseForms(MainFormMembers& main, ProgressFormMembers& progress)
{
    g_pMain = &main;
    g_pProgress = &progress;
}

MainFormMembers& frmMain()
{
    assert(g_pMain != nullptr && "UseForms comes first");
    return *g_pMain;
}

ProgressFormMembers& frmProgress()
{
    assert(g_pProgress != nullptr && "UseForms comes first");
    return *g_pProgress;
}

} // namespace search
