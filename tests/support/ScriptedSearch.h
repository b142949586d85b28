#pragma once

#include "FormMembers.h"
#include "ScriptedFiles.h"
#include "System.h"
#include "mCommon.h"

namespace support {

/// Everything a search meets, in memory: forms, files, and an event loop in which Cancel can be clicked.
class ScriptedSearch final : public search::MainFormMembers,
                             private search::ProgressFormMembers,
                             private search::ProgressBarMembers,
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
    std::int64_t nYields = 0;     ///< in how many calls
    std::int64_t nCancelStep = 0; ///< the step at which Cancel is clicked; 0 for never
    float nBar = -1, nBarMax = -1;

private:
    void CheckMenu() override {}
    std::string sSelectedFolder() override { return "picked"; }

    ProgressBarMembers& pbProgress() override { return *this; }
    void Show() override {}
    void Refresh() override {}
    void Unload() override {}
    void SetMax(float New_Max) override { nBarMax = New_Max; }
    void SetValue(float New_Value) override { nBar = New_Value; }

    void DoEvents(std::int64_t nStepsNow) override
    {
        const bool bBefore = nSteps < nCancelStep;
        nSteps += nStepsNow;
        ++nYields;
        search::bStopped = search::bStopped || (bBefore && nSteps >= nCancelStep);
    }

    void SetMousePointer(platform::MousePointer) override {}
    void Show(std::string_view, platform::MessageIcon) override {}
};

} // namespace support
