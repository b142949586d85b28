// SPDX-License-Identifier: MIT
#pragma once

#include "FormMembers.h"
#include "ScriptedFiles.h"
#include "System.h"
#include "mCommon.h"

#include <cmath>
#include <cstdint>
#include <optional>

namespace support {

/// Everything a search meets, in memory: forms, files, and an event loop in which Cancel can be clicked.
class ScriptedSearch final : public search::MainFormMembers,
                             private search::ProgressFormMembers,
                             private search::ProgressBarMembers,
                             private platform::Observer,
                             private platform::ListViewObserver,
                             private platform::EventLoop,
                             private platform::Screen,
                             private platform::MessageBoxes
{
public:
    ScriptedSearch()
    {
        platform::UseSystem({&files, this, this, this});
        search::UseForms(*this, *this);
        search::bStopped = false;
        for (platform::Observable* pControl : std::initializer_list<platform::Observable*>{
                 &form, &lblStatus, &lblFolder, &lblFile, &StatusBar1.Panels(1), &StatusBar1.Panels(2)}) {
            pControl->Observe(this);
        }
        lvFiles.ObserveRows(this);
    }

    void AddFolder(const std::string& sPath) { lvFolders.ListItems.Add(sPath, sPath, 1); }

    /// The rows as "2 /a/x", behind it the columns, each behind a "|".
    std::vector<std::string> Rows()
    {
        std::vector<std::string> rows;
        for (std::size_t n = 1; n <= lvFiles.ListItems.Count(); ++n) {
            const auto item = lvFiles.ListItems(n);
            rows.push_back(std::to_string(item.SmallIcon()) + " " + item.Key());
            for (const auto sText : {item.Text(), item.SubItems(1), item.SubItems(2), item.SubItems(3)}) {
                rows.back().append("|").append(sText);
            }
        }
        return rows;
    }
    std::string Labels() { return lblStatus.Caption() + "|" + lblFolder.Caption() + "|" + lblFile.Caption(); }

    ScriptedFiles files;
    std::int64_t nSteps = 0;      ///< the steps yielded for so far
    std::int64_t nYields = 0;     ///< in how many calls; those in which it waits not counted
    std::int64_t nCancelStep = 0; ///< the step at which Cancel is clicked; 0 for never
    std::string sCalls;           ///< all that was asked of the forms and the screen, each behind a "; "
    bool bKeepsEnabled = false;   ///< somebody enables the main form as soon as the search has disabled it

private:
    void CheckMenu() override { Note("menus"); }
    std::string sSelectedFolder() override { return "picked"; }

    ProgressBarMembers& pbProgress() override { return *this; }
    void Show() override { Note("show"); }
    void Refresh() override { Note("refresh"); }
    void Unload() override { Note("unload"); }
    void SetMax(float New_Max) override { Note("max", std::to_string(std::lround(New_Max))); }
    void SetValue(float New_Value) override { Note("bar", std::to_string(std::lround(New_Value))); }

    void Note(std::string_view sCall, std::string_view sValue = {})
    {
        sCalls.append("; ").append(sCall).append(sValue.empty() ? "" : " ").append(sValue);
    }

    void StateChanged(platform::Observable& control) override
    {
        if (&control == &form) {
            Note(form.Enabled() ? "on" : "off", form.ActiveControl() == &lvFiles ? "focused" : "");
            form.SetEnabled(form.Enabled() || bKeepsEnabled);
        } else if (const auto* pLabel = dynamic_cast<platform::Label*>(&control)) {
            Note(pLabel == &lblStatus   ? "status"
                 : pLabel == &lblFolder ? "folder"
                                        : "file",
                 pLabel->Caption());
        } else {
            Note("panel", dynamic_cast<platform::Panel&>(control).Text());
        }
    }

    void RowAdded(std::size_t) override { Note("row"); }
    void RowRemoved(std::size_t) override { Note("removed"); }
    void RowsCleared() override { Note("cleared"); }
    void RowsSorted() override { Note("sorted"); }
    void SelectionChanged() override { Note("selected"); }
    void ShowRow(std::size_t) override { Note("scrolled"); }

    void DoEvents(std::int64_t nStepsNow) override
    {
        const bool bBefore = nSteps < nCancelStep;
        nSteps += nStepsNow;
        nYields += nStepsNow > 0 ? 1 : 0;
        search::bStopped = search::bStopped || (bBefore && nSteps >= nCancelStep);
    }

    void SetMousePointer(platform::MousePointer pointer) override
    {
        Note(pointer == platform::MousePointer::Hourglass ? "hourglass" : "arrow");
    }
    void Show(std::string_view sText, platform::MessageIcon) override { Note("message", sText); }
};

} // namespace support
