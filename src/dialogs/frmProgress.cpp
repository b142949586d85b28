// SPDX-License-Identifier: MIT
#include "frmProgress.h"

#include "FormDesign.h"
#include "System.h"
#include "WindowFunctions.h"

namespace dialogs {

frmProgress::frmProgress()
{
    form.design = {.sCaption = "Progress", .ClientWidth = 5415, .ClientHeight = 2640, .bControlBox = false};
    form.controls = {&Label1, &lblStatus, &cmdCancel, &lblFolder, &lblFile, &Image1};
    form.Load = [this] {
        RestoreDesign();
        Form_Load();
    };
    form.Unload = [this] { Form_Unload(); };
    cmdCancel.Click = [this] { cmdCancel_Click(); };
    RestoreDesign();
}

/// Resets the window to its design, since a previous search may have changed it.
void frmProgress::RestoreDesign()
{
    Design(Label1, {1155, 210, 4005, 435}, "Please wait while Tallyfen is performing requested operation.");
    Design(lblStatus, {210, 945, 5055, 225}, "Initializing...");
    Design(cmdCancel, {4200, 2100, 1065, 345}, "Cancel");
    Design(lblFolder, {315, 1260, 4950, 225}, "");
    Design(lblFile, {315, 1575, 4950, 225}, "");
    Design(Image1, 315, 210, "working");
}

void frmProgress::Show()
{
    form.Show(false, &search::frmMain().form);
}

void frmProgress::Unload()
{
    form.UnloadForm();
    m_pbProgress.reset();
}

void frmProgress::Form_Load()
{
    LayCoverList();
    search::frmMain().lvFake.SetVisible(true);
    InitProgressBar();
    platform::System().screen->SetMousePointer(platform::MousePointer::Default);
}

void frmProgress::Form_Unload()
{
    search::frmMain().lvFake.SetVisible(false);
    platform::SetForegroundWindow(search::frmMain().form.hWnd());
}

void frmProgress::InitProgressBar()
{
    auto& bar = pbProgress();
    bar.SetLeft(210);
    bar.SetTop(2100);
    bar.SetHeight(225);
    bar.SetWidth(3795);
    bar.Create(form.hWnd());
}

void LayCoverList()
{
    auto& lvFiles = search::frmMain().lvFiles;
    auto& lvFake = search::frmMain().lvFake;
    lvFake.SetLeft(lvFiles.Left());
    lvFake.SetTop(lvFiles.Top());
    lvFake.SetWidth(lvFiles.Width());
    lvFake.SetHeight(lvFiles.Height());
    for (std::size_t n = 1; n <= lvFiles.ColumnCount(); ++n) {
        lvFake.ColumnHeaders(n).SetWidth(lvFiles.ColumnHeaders(n).Width());
    }
}

} // namespace dialogs
