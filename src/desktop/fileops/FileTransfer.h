#pragma once

#include "OperationPlan.h"
#include "Renaming.h"
#include "ReplaceQuestions.h"
#include "TargetFolder.h"
#include "TemporaryFile.h"

#include <optional>

namespace desktop {

/// Moves or copies file after file. At every moment each file is whole under its old name or its new one, and
/// a file replaced is in the trash; where it cannot go there, it is not replaced.
class FileTransfer
{
public:
    /// `dialogs` must outlive it.
    FileTransfer(FileOperation operation, OperationDialogs& dialogs)
        : m_bMove(operation == FileOperation::Move), m_questions(dialogs)
    {
    }

    /// Brings one file to its target. Where another one is there, the user is asked. Skipped and Cancelled
    /// leave it as it was, and so does NotDone unless the reason says otherwise.
    tEnding Carry(const tPlannedFile& file, const ProgressCall& goOn);

private:
    /// The file in hand.
    struct tJob {
        const tPlannedFile& file;
        const ProgressCall& goOn;
        FolderEntry source;
        tName target;
        std::optional<tFileIdentity> replaced; ///< what the user has agreed to have replaced
    };

    tEnding Settle(tJob& job);
    ContentComparison::Result CompareWithTarget(const tJob& job, const tLook& target);
    tEnding Move(const tJob& job);
    tEnding Copy(const tJob& job);
    static tEnding Fill(const tJob& job, int hSource, const Status& status, const TemporaryFile& made);
    [[nodiscard]] tEnding RemoveSource(const tJob& job, int hSource, int hCopy) const;

    TargetFolder m_folder;
    bool m_bMove;
    ReplaceQuestions m_questions;
    ContentComparison m_comparison;
};

} // namespace desktop
