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

/// Moves or copies file after file. At every moment each file is whole under its old name or its new one, and
/// a file replaced is in the trash; where it cannot go there, it is not replaced.
class FileTransfer
{
public:
    FileTransfer(FileOperation operation, ReplaceQuestions questions)
        : m_bMove(operation == FileOperation::Move), m_questions(std::move(questions))
    {
    }

    /// Brings one file, which is held, to its target. Where another one is there, the user is asked. Skipped
    /// and Cancelled leave it as it was, and so does NotDone unless the reason says otherwise. Done may have
    /// a remark.
    tEnding Carry(const HeldFile& source, const tPlannedFile& file, const ProgressCall& goOn);

    /// The folder that a file goes to; null if it cannot be opened.
    FolderPtr FolderOf(const tPlannedFile& file) { return Target(file).pFolder; }

    /// Files that were done, but the folder that they were brought to is no longer where it was.
    [[nodiscard]] std::vector<std::string> Astray() const { return m_folders.Astray(); }

private:
    /// The file in hand.
    struct tJob {
        const HeldFile& source;
        const tPlannedFile& file;
        const ProgressCall& goOn;
        FolderEntry target;
        std::optional<tFileIdentity> replaced{}; ///< what the user has agreed to have replaced
    };

    /// A file that is copied, open, and what it was when that began.
    struct tOriginal {
        [[nodiscard]] bool IsOpenForWriting() const { return lease && lease->IsOpenForWriting(); }

        int h;
        const Status& status;
        std::optional<WriteLease> lease{}; ///< on one that is moved
    };

    /// Gives a file the target's name without replacing.
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
    TrashCan m_trash; ///< for what is replaced
    bool m_bMove;
    ReplaceQuestions m_questions;
    ContentComparison m_comparison;
};

} // namespace desktop
