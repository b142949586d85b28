// SPDX-License-Identifier: MIT
#pragma once

#include "CopyLook.h"
#include "Ending.h"
#include "FileGroups.h"
#include "FileTransfer.h"
#include "HeldFile.h"
#include "HeldFolder.h"
#include "HeldFolders.h"
#include "OperationDialogs.h"
#include "OperationPlan.h"
#include "OperationThread.h"
#include "TrashCan.h"
#include "TrashConsent.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <unordered_set>
#include <vector>

namespace desktop {

/// An operation as carried out by the worker thread: looks at the files, and after the user's consent
/// processes them one by one. Records the results in `pThread`.
class OperationRun
{
public:
    /// `groups` is what the rows say about the requested files.
    OperationRun(std::shared_ptr<OperationThread> pThread, tOperationPlan plan, platform::tFileGroups groups);

    /// The plan, as far as the files have been looked at. Must not be called from another thread while this
    /// one works.
    [[nodiscard]] const tOperationPlan& Plan() const { return m_plan; }

    /// Looks at the files and prepares the question.
    void LookAtFiles();

    /// After the files have been looked at: the question before they go to the trash, and for a move or copy
    /// the missing disk space, if any.
    [[nodiscard]] tConfirmation Question() const { return m_consent.Question(); }
    [[nodiscard]] const std::optional<tRoom>& Room() const { return m_room; }

    /// Applies the answer. Returns the operation that is left to carry out.
    tOperation Answered(Consent consent);

    /// Processes the files.
    void CarryOut();

    /// After that: a plan for the spared files.
    [[nodiscard]] tOperationPlan Spared() const;

private:
    bool GoOn(const std::string& sPath, std::int64_t cyOfFile = 0);
    void End(const tPlannedFile& file, tEnding ending);
    void Arrive(const FolderPtr& pFolder);
    HeldFile Held(const tPlannedFile& file);
    void TrashAll();
    std::size_t TrashSome(TrashCan& trash, CopyLook& look, std::size_t nFirst);
    void TransferAll();
    void NameAstray(const FileTransfer& transfer);

    std::shared_ptr<OperationThread> m_pThread;
    tOperationPlan m_plan;
    platform::tFileGroups m_groups; ///< until the files have been looked at
    HeldFolders m_folders;
    TrashConsent m_consent;
    std::optional<tRoom> m_room;
    Consent m_answer = Consent::All;
    std::vector<std::size_t> m_toTrash; ///< indexes in the plan of the files that may go
    std::vector<std::string> m_spared;
    std::unordered_set<std::string> m_cleared; ///< folders already cleared of leftovers
    tOperationProgress m_progress;
    bool m_bCancelled = false;
};

} // namespace desktop
