// SPDX-License-Identifier: MIT
#pragma once

#include "FileGroups.h"
#include "OperationDialogs.h"
#include "OperationPlan.h"
#include "OperationRun.h"
#include "OperationThread.h"
#include "ShellFiles.h"

#include <optional>
#include <string>

namespace desktop {

/// The shell's file operations with the means of a Linux desktop: the freedesktop.org trash, moves within a
/// volume as renames, copies that appear under their names only when whole and on the disk.
class ShellFileOperations final : public platform::ShellFiles
{
public:
    /// `dialogs` must outlive it, and is called on the thread that asks for an operation; the work is done on
    /// another. With `bEachStep` the work waits at each step until it has been shown.
    explicit ShellFileOperations(OperationDialogs& dialogs, bool bEachStep = false)
        : m_dialogs(dialogs), m_bEachStep(bEachStep)
    {
    }

    /// Moves and copies need FOF_MULTIDESTFILES; what is deleted goes to the trash, with FOF_ALLOWUNDO or
    /// without. Not 0 also if the user has cancelled and a file system does not answer.
    int SHFileOperationA(const platform::SHFILEOPSTRUCT& request) override;
    long SHGetFileInfoA(const std::string& sPath, unsigned dwFileAttributes, unsigned uFlags) override;

    void UseGroups(platform::FileGroups& groups) override { m_pGroups = &groups; }

private:
    enum class Result { Ended, SparedToo, NoAnswer };

    Result CarryOut(tOperationPlan& wanted, platform::tFileGroups groups, bool bAsk);
    std::optional<tOperation> Agreed(OperationRun& run);
    void BrokenOff(const tOperation& operation, const OperationThread& thread, bool bCancelled,
                   const std::string& sReason);

    OperationDialogs& m_dialogs;
    bool m_bEachStep;
    platform::FileGroups* m_pGroups = nullptr; ///< none: nothing is known of files but their paths
};

} // namespace desktop
