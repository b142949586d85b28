// SPDX-License-Identifier: MIT
#include "frmMain.h"
#include "frmProgress.h"

// The layout of the main form, initially and when the window is resized or the splitter between the lists is
// moved. A control refuses a negative size and keeps its old one; that is intended here and not reported.

namespace mainwindow {
namespace {

constexpr float kVolumeWidth = 1440;   ///< of the second column of lvFolders, which never changes
constexpr float kFoldersMargin = 880;  ///< the width that the columns of lvFolders leave free
constexpr float kFilesMargin = 1450;   ///< the width that the columns of lvFiles leave free
constexpr float kLeastListRoom = 1000; ///< minimum distance of the splitter from the far end of each list

} // namespace

void frmMain::DesignControls()
{
    const struct {
        platform::Control& control;
        platform::tPlace place;
        const char* pSpokenName;
    } kInTabOrder[] = {
        {StatusBar1, {0, 5160, 8085, 330}, "Status"},
        {Toolbar1, {0, 0, 8085, 720}, "Commands"},
        {lvFolders, {0, 735, 8100, 1485}, "Folders to compare"},
        {lvFiles, {0, 2310, 8100, 2010}, "Duplicated files found"},
        {picSep, {0, 2205, 8100, 30}, "Border between the lists"},
        {lvFake, {5565, 2940, 2325, 2010}, "Results of the search that is running"},
    };
    for (const auto& [control, place, pSpokenName] : kInTabOrder) {
        control.SetPlace(place);
        control.sSpokenName = pSpokenName;
        form.controls.push_back(&control);
    }
    lvFolders.BackColor = platform::SystemColor::InfoBackground;
    lvFiles.MultiSelect = true;
    lvFake.SetVisible(false);
    picSep.SetSizesNorthSouth(true);
}

void frmMain::DesignColumns()
{
    using platform::Alignment;
    using platform::Ellipsis;
    lvFolders.AddColumn("Folders to Compare", Alignment::Left, 5000, Ellipsis::InMiddle);
    lvFolders.AddColumn("Volume", Alignment::Center, kVolumeWidth);
    for (platform::ListView* pList : {&lvFiles, &lvFake}) {
        pList->AddColumn("Name", Alignment::Left, 2000);
        pList->AddColumn("Size", Alignment::Right, 1000);
        pList->AddColumn("Date", Alignment::Left, 1440);
        pList->AddColumn("Path", Alignment::Left, 5000, Ellipsis::InMiddle);
    }
}

void frmMain::DesignStatusBar()
{
    platform::Panel& state = StatusBar1.Panels(1);
    state.sToolTip = " Status ";
    state.MinWidth = 1440;
    state.bSpring = true;
    state.SetText("Add at least one folder");
    platform::Panel& count = StatusBar1.Panels(2);
    count.sToolTip = " Duplicated Files Found ";
    count.MinWidth = 1000;
    count.alignment = platform::Alignment::Center;
    count.SetText("0");
}

void frmMain::Form_Resize()
{
    // A minimised window has no area to lay out.
    if (form.WindowState() == platform::WindowState::Minimized) {
        return;
    }
    // With large fonts the toolbar is higher than designed, so the controls below it move down.
    const float covered = Toolbar1.Height() - lvFolders.Top();
    if (covered > 0) {
        lvFolders.SetTop(lvFolders.Top() + covered);
        picSep.SetTop(picSep.Top() + covered);
    }
    // The width goes to the folder column.
    static_cast<void>(lvFolders.SetWidth(form.ScaleWidth()));
    static_cast<void>(picSep.SetWidth(form.ScaleWidth()));
    static_cast<void>(lvFolders.ColumnHeaders(1).SetWidth(lvFolders.Width() - kFoldersMargin - kVolumeWidth));
    // The lower list takes up all of a change in height.
    lvFiles.SetTop(picSep.Top() + picSep.Height());
    static_cast<void>(lvFiles.SetWidth(form.ScaleWidth()));
    static_cast<void>(lvFiles.SetHeight(form.ScaleHeight() - lvFiles.Top() - StatusBar1.Height()));
    // The path column takes the width that the other three leave.
    const float others = lvFiles.ColumnHeaders(1).Width() + lvFiles.ColumnHeaders(2).Width() +
                         lvFiles.ColumnHeaders(3).Width();
    static_cast<void>(lvFiles.ColumnHeaders(4).SetWidth(lvFiles.Width() - (others + kFilesMargin)));
    // The window can be resized while it is disabled during a search; the rows must stay covered.
    if (lvFake.Visible()) {
        dialogs::LayCoverList();
    }
}

void frmMain::picSep_MouseDown(int Button)
{
    if (Button == platform::kLeftButton) {
        picSep.SetBackColor(platform::SystemColor::ButtonShadow);
    }
}

void frmMain::picSep_MouseMove(int Button, float Y)
{
    if (Button != platform::kLeftButton) {
        return;
    }
    // Y is relative to the splitter itself. Beyond the limits the splitter stays where it was.
    const float top = picSep.Top() + Y;
    if (top > lvFolders.Top() + kLeastListRoom && top < StatusBar1.Top() - kLeastListRoom) {
        picSep.SetTop(top);
    }
}

void frmMain::picSep_MouseUp(int Button)
{
    if (Button != platform::kLeftButton) {
        return;
    }
    picSep.SetBackColor(platform::SystemColor::ButtonFace);
    // The list starts one pixel below the toolbar, and so extends one pixel under the splitter.
    static_cast<void>(lvFolders.SetHeight(picSep.Top() - Toolbar1.Height()));
    lvFiles.SetTop(picSep.Top() + picSep.Height());
    static_cast<void>(lvFiles.SetHeight(form.ScaleHeight() - lvFiles.Top() - StatusBar1.Height()));
}

} // namespace mainwindow
