// SPDX-License-Identifier: MIT
#pragma once

#include "FileTransfer.h"
#include "HeldFolders.h"
#include "OperationPlan.h"
#include "OperationThread.h"
#include "TrashCan.h"

#include <memory>
#include <string>
#include <unordered_set>

namespace desktop {

/// One operation as the thread beside the window's does it: looks at the files, and once that is confirmed
/// deals with one after the other. What has come of it is recorded in `pThread`.
class OperationRun
{
public:
    OperationRun(std::shared_ptr<OperationThread> pThread, tOperationPlan plan);

    /// The plan as far as the files have been looked at. Not for another thread while this one works.
    [[nodiscard]] const tOperationPlan& Plan() const { return m_plan; }

    void LookAtFiles();
    void CarryOut();

private:
    bool GoOn(const std::string& sPath, std::int64_t cyOfFile = 0);
    void End(const tPlannedFile& file, tEnding ending);
    void Arrive(const FolderPtr& pFolder);
    HeldFile Held(const tPlannedFile& file);
    void TrashAll();
    std::size_t TrashSome(TrashCan& trash, std::size_t nFirst);
    void TransferAll();
    void NameAstray(const FileTransfer& transfer);

    std::shared_ptr<OperationThread> m_pThread;
    tOperationPlan m_plan;
    HeldFolders m_folders;
    std::unordered_set<std::string> m_cleared; ///< folders without leftovers
    tOperationProgress m_progress;
    bool m_bCancelled = false;
};

} // namespace desktop
