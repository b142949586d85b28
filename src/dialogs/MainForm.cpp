// SPDX-License-Identifier: MIT
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

void LayCoverList()
{
    auto& lvFiles = frmMain().lvFiles;
    auto& lvFake = frmMain().lvFake;
    lvFake.SetLeft(lvFiles.Left());
    lvFake.SetTop(lvFiles.Top());
    lvFake.SetWidth(lvFiles.Width());
    lvFake.SetHeight(lvFiles.Height());
    for (std::size_t n = 1; n <= lvFiles.ColumnCount(); ++n) {
        lvFake.ColumnHeaders(n).SetWidth(lvFiles.ColumnHeaders(n).Width());
    }
}

} // namespace dialogs
