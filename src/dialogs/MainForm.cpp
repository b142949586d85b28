#include "MainForm.h"

#include <cassert>

namespace dialogs {
namespace {

MainFormMembers* g_pMain = nullptr;

} // namespace

void UseMainForm(MainFormMembers& main)
{
    g_pMain = &main;
}

MainFormMembers& frmMain()
{
    assert(g_pMain != nullptr && "UseMainForm comes first");
    return *g_pMain;
}

} // namespace dialogs
