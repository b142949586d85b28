// SPDX-License-Identifier: MIT
#pragma once

#include "ContentComparison.h"
#include "Ending.h"
#include "FileIdentity.h"
#include "FolderEntry.h"
#include "HeldFile.h"
#include "HeldFolder.h"
#include "OperationDialogs.h"
#include "OperationPlan.h"
#include "ReplaceQuestions.h"
#include "TargetFolders.h"
#include "TemporaryFile.h"
#include "TrashCan.h"
#include "WriteLease.h"

#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace desktop {

/// Moves or copies files one by one. At every moment each file is complete under its old or its new name, and
/// a replaced file is in the trash; if it cannot go there, it is not replaced.
class FileTransfer
{
public:
    FileTransfer(FileOperation operation, ReplaceQuestions questions)
        : m_bMove(operation == FileOperation::Move), m_questions(std::move(questions))
    {
    }

    /// Moves or copies a held file to its target. If the target exists, the user is asked. Skipped and
    /// Cancelled leave the file as it was, and so does NotDone unless the reason says otherwise. Done may
    /// have a remark.
    tEnding Carry(const HeldFile& source, const tPlannedFile& file, const ProgressCall& goOn);

    /// The target folder of a file; null if it cannot be opened.
    FolderPtr FolderOf(const tPlannedFile& file) { return Target(file).pFolder; }

    /// Files that were transferred to a folder which is no longer where it was.
    [[nodiscard]] std::vector<std::string> Astray() const { return m_folders.Astray(); }

private:
    /// The file being transferred.
    struct tJob {
        const HeldFile& source;
        const tPlannedFile& file;
        const ProgressCall& goOn;
        FolderEntry target;
        std::optional<tFileIdentity> replaced{}; ///< the file that the user has agreed to replace
    };

    /// A file that is copied: its open descriptor, and its state when the copy began.
    struct tOriginal {
        [[nodiscard]] bool IsOpenForWriting() const { return lease && lease->IsOpenForWriting(); }

        int h;
        const Status& status;
        std::optional<WriteLease> lease{}; ///< only for a move
    };

    /// Gives a file the target name without replacing anything.
    using Names = std::function<tRelocation()>;

    tTargetFolder& Target(const tPlannedFile& file);
    tEnding Settle(tJob& job);
    ContentComparison::Result CompareWithTarget(const tJob& job, const tLook& target);
    tRelocation Place(const tJob& job, const Names& names);
    tEnding Copy(const tJob& job);
    static tEnding Fill(const tJob& job, const tOriginal& original, const TemporaryFile& made);
    tEnding Finish(const tJob& job, const tOriginal& original, const TemporaryFile& copy);
    static std::string WhyNotThere(const tJob& job, const TemporaryFile& copy);
    std::string WhyUnlike(const tJob& job, const tOriginal& original, const TemporaryFile& copy);

    TargetFolders m_folders;
    TrashCan m_trash; ///< for replaced files
    bool m_bMove;
    ReplaceQuestions m_questions;
    ContentComparison m_comparison;
};

} // namespace desktop
